#include "base/Conversion.h"
#include "base/Text.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

constexpr std::size_t kFirstRow = 2;
constexpr std::size_t kAmountsPerGroup = 3;  // value, depreciation, net value
constexpr int kAmountWidth = 1800;

/// The departments of the chosen levels: the first alone, all, or all but the first.
Recordset chosenDepartments(Database& data, const ReportConditions& conditions) {
  if (conditions.departmentRange.to == "1") return firstLevelDepartments(data);
  if (conditions.departmentRange.to == "2" && conditions.departmentRange.from == "1") {
    return data.OpenRecordset("select * from fa_Departments where  sNum<>'&' order by sNum");
  }
  return data.OpenRecordset(
      "select * from fa_Departments"
      " where sParentNum is not null and sParentNum<>'' and  sNum<>'&' order by sNum");
}

void writeAmounts(ReportGrid& grid, std::size_t row, std::size_t firstColumn, const LedgerSums& sums) {
  grid.putAmount(row, firstColumn, sums.yz);
  grid.putAmount(row, firstColumn + 1, sums.ytzj);
  grid.putAmount(row, firstColumn + 2, sums.netValue());
}

void writeDepartments(ReportGrid& grid, Database& data, Recordset departments) {
  for (; !departments.Eof(); departments.MoveNext()) {
    const std::string code = departments.Text("sNum");
    const LedgerSums sums = sumDepartment(data, code);
    if (!sums.hasValue()) continue;
    const std::size_t row = grid.addRow();
    grid.put(row, 0, departments.TextOrEmpty("sName") + "(" + code + ")");
    writeAmounts(grid, row, 1, sums);
  }
}

/// The code is what stands behind the label's first bracket, without its last character.
std::string departmentOfLabel(const std::string& label) {
  const std::string behind = label.substr(std::min(label.find('(') + 1, label.size()));
  return behind.substr(0, behind.size() - std::min<std::size_t>(behind.size(), 1));
}

/// Three further columns for the category.
void addType(ReportGrid& grid, TextGrid& cells, Database& data, const Recordset& type) {
  const std::size_t first = cells.columns();
  cells.resize(cells.rows(), first + kAmountsPerGroup);
  for (std::size_t i = 0; i < kAmountsPerGroup; ++i) grid.put(0, first + i, type.TextOrEmpty("sName"));
  const std::string code = type.Text("sNum");
  for (std::size_t row = kFirstRow; row < grid.rows(); ++row) {
    const std::string department = departmentOfLabel(grid.text(row, 0));
    const LedgerSums sums = sumLedger(data, {department, code});
    if (sums.hasValue()) writeAmounts(grid, row, first, sums);
  }
}

void captionAmounts(ReportGrid& grid, TextGrid& cells) {
  static constexpr const char* kCaptions[kAmountsPerGroup] = {"原值", "累计折旧", "净值"};
  for (std::size_t column = 1; column < cells.columns(); ++column) {
    grid.put(1, column, kCaptions[(column - 1) % kAmountsPerGroup]);
    cells.setAlignment(column, Align::Right);
    cells.setColumnWidth(column, kAmountWidth);
    for (const std::size_t row : {0, 1}) {
      cells.setBold(row, column, true);
      cells.setCentred(row, column, true);
    }
  }
}

/// Parents and children that are listed together count twice.
void writeTotal(ReportGrid& grid, std::size_t columns) {
  const std::size_t total = grid.addRow();
  grid.put(total, 0, "　合计");
  for (std::size_t row = kFirstRow; row < total; ++row) {
    for (std::size_t column = 1; column < columns; ++column) grid.addToTotal(total, row, column);
  }
}

}  // namespace

void BuildValueOverview(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.title = "(固定资产原值)一览表";
  view.conditionLines[0].text = conditions.departmentRange.captioned("汇总部门：");
  view.conditionLines[1].text.clear();
  ReportGrid grid(view.grid, {3000, kAmountWidth, kAmountWidth, kAmountWidth}, 1);
  grid.addHeader({"部门名称", "合计", "合计", "合计"});
  grid.addHeader({"部门名称", "", "", ""});
  writeDepartments(grid, run.dbZKData, chosenDepartments(run.dbZKData, conditions));
  Recordset types = firstLevelTypes(run.dbZKData);
  for (; !types.Eof(); types.MoveNext()) addType(grid, view.grid, run.dbZKData, types);
  captionAmounts(grid, view.grid);
  writeTotal(grid, view.grid.columns());
}

}  // namespace zelkor
