#include <map>

#include "base/Conversion.h"
#include "cards/ClsBLLFACards.h"
#include "reports/CardLines.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

struct Columns : CardLineColumns<Columns> {
  Column department = add({"使用部门", 1350, Right});
  Column debit = add({"借方", 1350, Right, Number, "原值"});
  Column credit = add({"贷方", 1350, Right, None, "原值"});
  Column balance = add({"余额", 1350, Right, Last, "原值"});
  Column quantity = add({"数量", 500, Right, Last});
};
constexpr Columns kColumns;

using Grid = ReportGrid<Columns>;

constexpr int kEntered = 1;  // iOptType of a card as it was entered

/// Digest and running quantity, which only a card as it was entered raises. A version without a digest has no
/// quantity either, so that the count begins again below it.
void writeQuantity(Grid& grid, std::size_t row, int iOptType) {
  const std::string_view digest = digestOf(iOptType);
  if (digest.empty()) return;
  grid.put(row, kColumns.digest, std::string(digest));
  const double more = iOptType == kEntered ? 1 : 0;
  grid.putNumber(row, kColumns.quantity, grid.amount(row - 1, kColumns.quantity) + more);
}

void writeCard(Grid& grid, const Recordset& card) {
  const std::size_t row = grid.addRow();
  writeCardHead(grid, kColumns, row, card);
  writeQuantity(grid, row, kindOf(card));
  const double value = card.Fields("dblInputValue").number();
  grid.putNumber(row, kColumns.debit, value);
  grid.putNumber(row, kColumns.balance, grid.amount(row - 1, kColumns.balance) + value);
}

/// A department is asked for once, however many lines it has.
void writeDepartments(Grid& grid, ClsBLLFACards& cards, const std::vector<std::string>& departmentOfLine) {
  std::vector<std::string> codes;
  std::map<std::string, std::size_t> places;
  for (const std::string& code : departmentOfLine)
    if (places.emplace(code, codes.size()).second) codes.push_back(code);
  const std::vector<std::string> names = cards.GetDeptNames(codes);
  for (std::size_t line = 0; line < departmentOfLine.size(); ++line)
    grid.put(grid.firstRow() + line, kColumns.department, names[places.at(departmentOfLine[line])]);
}

}  // namespace

void BuildRegisterBook(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  setLedgerCaptions(view, conditions);
  Grid grid(view.grid, kColumns);
  ClsBLLFACards cards(run);
  cards.setZkDataPath(run.gstrZtFile);
  Recordset lines = run.dbZKData.OpenRecordset(
      cardLinesQuery("select a.dInputDate,a.sAssetNum,a.sCardNum,a.sZWVoucherType,a.iOptType,"
                     "a.sAssetName, b.dblInputValue ,b.dblDeprT1,a.sDeptNum",
                     chosenAssets(conditions)));
  std::vector<std::string> departmentOfLine;
  for (; !lines.Eof(); lines.MoveNext()) {
    writeCard(grid, lines);
    departmentOfLine.push_back(lines.TextOrEmpty("sDeptNum"));
  }
  writeDepartments(grid, cards, departmentOfLine);
  if (grid.rows() > grid.firstRow()) grid.addTotalRow(kColumns.digest, "本期合计");
}

}  // namespace zelkor
