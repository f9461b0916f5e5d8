#include "reports/ReportFixture.h"

#include <sstream>
#include <utility>

#include "base/GridSpans.h"
#include "base/TextGridPrinter.h"
#include "cards/CardImport.h"
#include "store/engine/Statement.h"
#include "support/MonthlyRun.h"
#include "support/Paths.h"

namespace zelkor::test {
namespace {

constexpr int kCards = 40;

std::string firstLines(const std::string& text, int count) {
  std::size_t end = 0;
  while (count-- > 0) end = text.find('\n', end) + 1;
  return text.substr(0, end);
}

std::string captionsOf(const ReportView& view) {
  std::string text = view.unitLine + "\n";
  text += "[" + view.periodCaption +
          (view.periodListVisible ? "▾" + view.periods.at(view.selectedPeriod) : "") + "]";
  for (const ConditionLine& line : view.conditionLines) {
    text += line.visible ? " [" + line.text + "]" : " (hidden)";
  }
  if (view.secondLineMovedUp) text += " (moved up)";
  return text + "\n";
}

std::string widthsOf(const TextGrid& grid) {
  std::string text = "columns:";
  for (std::size_t i = 0; i < grid.columns(); ++i) {
    static constexpr const char* kAlignments[] = {"", "c", "r"};
    text += sql(" ", grid.columnWidth(i), kAlignments[static_cast<int>(grid.alignment(i))],
                grid.columnMerged(i) ? "m" : "");
  }
  return text + "\n";
}

/// Header cells that are shown as one ("row,column-row,column"), those that do not look like headers, and the
/// rows of totals.
std::string headerOf(const TextGrid& grid) {
  std::string text = "merged:";
  for (std::size_t row = 0; row < grid.headerRows(); ++row) {
    for (std::size_t column = 0; column < grid.columns(); ++column) {
      if (!grid.bold(row, column) || !grid.centred(row, column)) text += sql(" plain ", row, ",", column);
      const CellSpan span = mergedCells(grid, row, column, 0, grid.headerRows() - 1);
      if (span.isSingle() || span.firstRow != row || span.firstColumn != column) continue;
      text += sql(" ", row, ",", column, "-", span.lastRow, ",", span.lastColumn);
    }
  }
  text += "\ntotals:";
  for (std::size_t row = 0; row < grid.rows(); ++row) {
    if (grid.isTotal(row)) text += sql(" ", row);
  }
  return text + "\n";
}

std::string print(const ReportView& view) {
  std::ostringstream out;
  printGrid(out, view.grid);
  return captionsOf(view) + widthsOf(view.grid) + headerOf(view.grid) + out.str();
}

}  // namespace

void ReportTest::keepBooks() {
  importCards();
  runJanuary();
  changeCards();
}

void ReportTest::importCards() {
  std::ostringstream problems;
  const DateTime opDate = std::exchange(context.gdOpDate, day("2020-1-31"));
  const std::string csv = firstLines(readFile(test::dataFolder() / "sample-register.csv"), kCards + 1);
  const ImportResult result = zelkor::importCards(context, csv, 1, problems);
  ASSERT_EQ(result.stored, kCards) << problems.str();
  // Books that were brought from elsewhere have cards on departments with others below them.
  for (const char* table : {"fa_Cards", "fa_Cards_Detail", "fa_DeptScale", "FA_DeprTransactions_detail"})
    execute(sql("update ", table, " set sDeptNum='4' where sCardNum='00006'"));
  context.gdOpDate = opDate;
}

void ReportTest::runJanuary() {
  const DateTime opDate = std::exchange(context.gdOpDate, day("2020-1-31"));
  runMonth(context, dialogs);
  context.gdOpDate = opDate;
}

void ReportTest::addVersion(const std::string& cardNum, const Changes& changes) {
  const Recordset source = db().OpenRecordset(
      sql("select * from fa_Cards where sCardNum='", cardNum, "' order by val(sCardID) desc"));
  Recordset versions = db().OpenRecordset("select * from fa_Cards");
  versions.AddNew();
  for (std::size_t i = 0; i < source.FieldCount(); ++i) {
    const std::string& column = source.FieldName(i);
    const auto change = changes.find(column);
    versions.Collect(column, change == changes.end() ? source.Fields(i) : change->second);
  }
  versions.Collect("sCardID", sql(++lastCardID_));
  versions.Update();
}

void ReportTest::changeCards() {
  addVersion("00003", {{"iOptType", 6.0}, {"sTransDepteNum", "401"}});
  addVersion("00003", {{"iOptType", 7.0}, {"sDeptNum", "401"}, {"sTransDepteNum", "303"}});
  addVersion("00010", {{"iOptType", 4.0}, {"dblValue", 98765.4321}});
  addVersion("00001", {{"iOptType", 1.0}, {"dblValue", 4873000.5}});
  addVersion("00020", {{"iOptType", 10.0}, {"sStatusID", "31"}});
  addVersion("00030", {{"iOptType", 2.0}, {"sOrgAddID", "101"}, {"dblDecDeprT", 0.125}});
  addVersion("00031", {{"iOptType", 2.0}, {"sOrgAddID", "102"}});
  addVersion("00012", {{"iOptType", 3.0},
                       {"dDisposeDate", day("2020-4-30")},
                       {"sOrgDisposeID", "201"},
                       {"dblDecDeprT", 1234.565}});
  execute("update fa_DeprTransactions set dblDeprT1=dblDeprT1+0.005 where sCardNum like '0001*'");
  execute(
      "update fa_DeprTransactions set dblInputValue=dblInputValue+0.125,sMonthStatusID='21' "
      "where sCardNum like '0002*'");
  execute("update fa_DeprTransactions set sMonthStatusID='1' where sCardNum='00005'");
  execute(
      "insert into fa_ZWVouchers (doutbilldate,coutno_id,coutbillsign,md,mc,cdept_id,coutsysname) "
      "values (#2020-4-30#,'00001','减少',1234.57,0,'4','FA')");
}

std::string ReportTest::report(const std::string& name) {
  const ReportKind* kind = findReport(name);
  if (!kind) return "(no such report)";
  ReportView view;
  try {
    if (runReport(context, *kind, conditions, view) == ReportOutcome::NothingToShow) return "(nothing)\n";
  } catch (const RuntimeError& error) {
    return sql("error ", static_cast<int>(error.number()), "\n");
  }
  return print(view);
}

}  // namespace zelkor::test
