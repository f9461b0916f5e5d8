#include "base/Conversion.h"
#include "cards/ClsBLLFACards.h"
#include "reports/CardLines.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

// Columns
constexpr std::size_t kAssetNumber = 1;
constexpr std::size_t kCardNumber = 2;
constexpr std::size_t kVoucherNumber = 3;
constexpr std::size_t kDigest = 4;
constexpr std::size_t kAssetName = 5;
constexpr std::size_t kDebit = 7;
constexpr std::size_t kBalance = 9;
constexpr std::size_t kQuantity = 10;

constexpr std::size_t kFirstRow = 2;
constexpr int kEntered = 1;  // iOptType of a card as it was entered

/// Digest and running quantity, which only a card as it was entered raises. A version without a digest has no
/// quantity either, so that the count begins anew below it.
void writeQuantity(ReportGrid& grid, std::size_t row, int iOptType) {
  const std::string_view digest = digestOf(iOptType);
  if (digest.empty()) return;
  grid.put(row, kDigest, std::string(digest));
  const double more = iOptType == kEntered ? 1 : 0;
  grid.put(row, kQuantity, textOfDouble(grid.amount(row - 1, kQuantity) + more));
}

void writeCard(ReportGrid& grid, ClsBLLFACards& cards, const Recordset& card) {
  const std::size_t row = grid.addRow();
  writeCardHead(grid, row, card);
  writeQuantity(grid, row, kindOf(card));
  grid.put(row, kAssetName, card.TextOrEmpty("sAssetName"));
  grid.put(row, 6, cards.GetDeptName(card.TextOrEmpty("sDeptNum")));
  const double value = card.Fields("dblInputValue").number();
  grid.putNumber(row, kDebit, value);
  grid.putNumber(row, kBalance, grid.amount(row - 1, kBalance) + value);
}

void writeClosing(ReportGrid& grid) {
  if (grid.rows() == kFirstRow) return;
  const std::size_t total = grid.addRow();
  grid.put(total, kDigest, "本期合计");
  grid.put(total, kBalance, grid.text(total - 1, kBalance));
  grid.put(total, kQuantity, grid.text(total - 1, kQuantity));
  for (std::size_t row = kFirstRow; row < total; ++row) grid.addPlainToTotal(total, row, kDebit);
}

}  // namespace

void BuildRegisterBook(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.title = "固定资产登记簿";
  setLedgerCaptions(view, conditions);
  ReportGrid grid(view.grid, {1200, 1200, 1200, 750, 1200, 1200, 1350, 1350, 1350, 1350, 500}, 6);
  grid.addHeader({"日期", "资产编号", "业务单号", "凭证号", "摘要", "资产名称", "使用部门", "原值", "原值",
                  "原值", "数量"});
  grid.addHeader({"日期", "资产编号", "业务单号", "凭证号", "摘要", "资产名称", "使用部门", "借方", "贷方",
                  "余额", "数量"});
  grid.mergeColumns({kAssetNumber, kCardNumber, kVoucherNumber, kAssetName});
  ClsBLLFACards cards(run);
  cards.setZkDataPath(run.gstrZtFile);
  Recordset lines = run.dbZKData.OpenRecordset(
      cardLinesQuery("select a.dInputDate,a.sAssetNum,a.sCardNum,a.sZWVoucherType,a.iOptType,"
                     "a.sAssetName, b.dblInputValue ,b.dblDeprT1,a.sDeptNum",
                     {conditions.department.code, conditions.type.code}));
  for (; !lines.Eof(); lines.MoveNext()) writeCard(grid, cards, lines);
  writeClosing(grid);
}

}  // namespace zelkor
