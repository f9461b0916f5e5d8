#include "reports/CardLines.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

struct Columns : CardLineColumns<Columns> {
  Column quantity = add({"数量", 500});
  Column valueDebit = add({"借方", 1350, Right, Number, "原值"});
  Column valueCredit = add({"贷方", 1350, Right, Number, "原值"});
  Column valueBalance = add({"余额", 1350, Right, Last, "原值"});
  Column deprDebit = add({"借方", 1350, Right, Number, "累计折旧"});
  Column deprCredit = add({"贷方", 1350, Right, Number, "累计折旧"});
  Column deprBalance = add({"余额", 1350, Right, Last, "累计折旧"});
  Column quantityBalance = add({"数量", 500, Right, Last, "余额"});
  Column netBalance = add({"净值", 1350, Right, Last, "余额"});
};
constexpr Columns kColumns;

using Grid = ReportGrid<Columns>;

std::string voucherLinesQuery(const std::string& department) {
  constexpr std::string_view columns = "select doutbilldate,coutno_id,coutbillsign,md,mc from fa_ZWVouchers ";
  if (department.empty()) {
    return sql(columns, " where (cdept_id='' or cdept_id is null) and coutsysname='FA'");
  }
  return sql(columns, " where (cdept_id like '", department, "*') and coutsysname='FA'");
}

/// What a line adds to the balances of the line above.
struct Changes {
  double value = 0;
  double depreciation = 0;
  double quantity = 0;
};

/// The header above the first line counts as 0.
void writeBalances(Grid& grid, std::size_t row, const Changes& changes) {
  const auto carry = [&grid, row](Columns::Column balance, double change) {
    grid.putNumber(row, balance, grid.amount(row - 1, balance) + change);
    return grid.amount(row, balance);
  };
  const double value = carry(kColumns.valueBalance, changes.value);
  const double depreciation = carry(kColumns.deprBalance, changes.depreciation);
  carry(kColumns.quantityBalance, changes.quantity);
  grid.putNumber(row, kColumns.netBalance, value - depreciation);
}

void writeCard(Grid& grid, const Recordset& card) {
  const std::size_t row = grid.addRow();
  writeCardHead(grid, kColumns, row, card);
  grid.put(row, kColumns.digest, std::string(digestOf(kindOf(card))));
  grid.put(row, kColumns.quantity, "1");
  const double value = card.Fields("dblInputValue").number();
  const double depreciation = card.Fields("dblDeprT1").number();
  grid.putNumber(row, kColumns.valueDebit, value);
  grid.putNumber(row, kColumns.deprCredit, depreciation);
  writeBalances(grid, row, {.value = value, .depreciation = depreciation, .quantity = 1});
}

/// A debit raises the balance of depreciation here and a credit lowers it, the other way round than a card.
void writeVoucherLine(Grid& grid, const Recordset& line) {
  const std::size_t row = grid.addRow();
  const double debit = line.Fields("md").number();
  const double credit = line.Fields("mc").number();
  grid.put(row, kColumns.date, line.TextOrEmpty("doutbilldate"));
  grid.put(row, kColumns.documentNumber, line.TextOrEmpty("coutno_id"));
  grid.put(row, kColumns.digest, line.TextOrEmpty("coutbillsign"));
  grid.putNumber(row, kColumns.deprDebit, debit);
  grid.putNumber(row, kColumns.deprCredit, credit);
  writeBalances(grid, row, {.depreciation = debit - credit});
}

}  // namespace

void BuildDeptTypeLedger(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  setLedgerCaptions(view, conditions);
  Grid grid(view.grid, kColumns);
  Recordset cards = run.dbZKData.OpenRecordset(
      cardLinesQuery("select a.dInputDate,a.sAssetNum,a.sCardNum,a.sZWVoucherType,a.iOptType,"
                     "a.sAssetName, b.dblInputValue ,b.dblDeprT1",
                     chosenAssets(conditions)));
  for (; !cards.Eof(); cards.MoveNext()) writeCard(grid, cards);
  Recordset lines = run.dbZKData.OpenRecordset(voucherLinesQuery(conditions.department.code));
  for (; !lines.Eof(); lines.MoveNext()) writeVoucherLine(grid, lines);
  if (grid.rows() > grid.firstRow()) grid.addTotalRow(kColumns.digest, "本期合计");
}

}  // namespace zelkor
