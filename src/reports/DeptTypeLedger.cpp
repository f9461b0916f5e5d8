#include "reports/CardLines.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

// Columns
constexpr std::size_t kAssetNumber = 1;
constexpr std::size_t kCardNumber = 2;
constexpr std::size_t kVoucherNumber = 3;
constexpr std::size_t kDigest = 4;
constexpr std::size_t kAssetName = 5;
constexpr std::size_t kValueDebit = 7;
constexpr std::size_t kValueCredit = 8;
constexpr std::size_t kValueBalance = 9;
constexpr std::size_t kDeprDebit = 10;
constexpr std::size_t kDeprCredit = 11;
constexpr std::size_t kDeprBalance = 12;
constexpr std::size_t kQuantityBalance = 13;
constexpr std::size_t kNetBalance = 14;

constexpr std::size_t kFirstRow = 2;

std::string voucherLinesQuery(const LedgerFilter& filter) {
  constexpr std::string_view columns = "select doutbilldate,coutno_id,coutbillsign,md,mc from fa_ZWVouchers ";
  if (filter.department.empty()) {
    return sql(columns, " where (cdept_id='' or cdept_id is null) and coutsysname='FA'");
  }
  return sql(columns, " where (cdept_id like '", filter.department, "*') and coutsysname='FA'");
}

void writeBalances(ReportGrid& grid, std::size_t row, double value, double depreciation, double quantity) {
  const std::size_t above = row - 1;  // on the first line the header, which counts as 0
  grid.putNumber(row, kValueBalance, grid.amount(above, kValueBalance) + value);
  grid.putNumber(row, kDeprBalance, grid.amount(above, kDeprBalance) + depreciation);
  grid.putNumber(row, kQuantityBalance, grid.amount(above, kQuantityBalance) + quantity);
  grid.putNumber(row, kNetBalance, grid.amount(row, kValueBalance) - grid.amount(row, kDeprBalance));
}

void writeCard(ReportGrid& grid, const Recordset& card) {
  const std::size_t row = grid.addRow();
  writeCardHead(grid, row, card);
  const std::string_view digest = digestOf(kindOf(card));
  if (!digest.empty()) grid.put(row, kDigest, std::string(digest));
  grid.put(row, kAssetName, card.TextOrEmpty("sAssetName"));
  grid.put(row, 6, "1");
  const double value = card.Fields("dblInputValue").number();
  const double depreciation = card.Fields("dblDeprT1").number();
  grid.putNumber(row, kValueDebit, value);
  grid.putNumber(row, kDeprCredit, depreciation);
  writeBalances(grid, row, value, depreciation, 1);
}

/// A debit raises the balance of depreciation here and a credit lowers it, the other way round than a card.
void writeVoucherLine(ReportGrid& grid, const Recordset& line) {
  const std::size_t row = grid.addRow();
  const double debit = line.Fields("md").number();
  const double credit = line.Fields("mc").number();
  grid.put(row, 0, line.TextOrEmpty("doutbilldate"));
  grid.put(row, 2, line.TextOrEmpty("coutno_id"));
  grid.put(row, kDigest, line.TextOrEmpty("coutbillsign"));
  grid.putNumber(row, kDeprDebit, debit);
  grid.putNumber(row, kDeprCredit, credit);
  writeBalances(grid, row, 0, debit - credit, 0);
}

void writeClosing(ReportGrid& grid) {
  if (grid.rows() == kFirstRow) return;
  const std::size_t total = grid.addRow();
  grid.put(total, kDigest, "本期合计");
  for (const std::size_t column : {kValueBalance, kDeprBalance, kQuantityBalance, kNetBalance}) {
    grid.put(total, column, grid.text(total - 1, column));
  }
  for (std::size_t row = kFirstRow; row < total; ++row) {
    for (const std::size_t column : {kValueDebit, kValueCredit, kDeprDebit, kDeprCredit}) {
      grid.addPlainToTotal(total, row, column);
    }
  }
}

}  // namespace

void BuildDeptTypeLedger(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.title = "(部门、类别)明细账";
  setLedgerCaptions(view, conditions);
  ReportGrid grid(view.grid,
                  {1200, 1200, 1200, 750, 1200, 1200, 500, 1350, 1350, 1350, 1350, 1350, 1350, 500, 1350}, 7);
  grid.addHeader({"日期", "资产编号", "业务单号", "凭证号", "摘要", "资产名称", "数量", "原值", "原值",
                  "原值", "累计折旧", "累计折旧", "累计折旧", "余额", "余额"});
  grid.addHeader({"日期", "资产编号", "业务单号", "凭证号", "摘要", "资产名称", "数量", "借方", "贷方",
                  "余额", "借方", "贷方", "余额", "数量", "净值"});
  grid.mergeColumns({kAssetNumber, kCardNumber, kVoucherNumber, kAssetName});
  const LedgerFilter filter{conditions.department.code, conditions.type.code};
  Recordset cards = run.dbZKData.OpenRecordset(
      cardLinesQuery("select a.dInputDate,a.sAssetNum,a.sCardNum,a.sZWVoucherType,a.iOptType,"
                     "a.sAssetName, b.dblInputValue ,b.dblDeprT1",
                     filter));
  for (; !cards.Eof(); cards.MoveNext()) writeCard(grid, cards);
  Recordset lines = run.dbZKData.OpenRecordset(voucherLinesQuery(filter));
  for (; !lines.Eof(); lines.MoveNext()) writeVoucherLine(grid, lines);
  writeClosing(grid);
}

}  // namespace zelkor
