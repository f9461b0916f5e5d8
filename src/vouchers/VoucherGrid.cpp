#include "vouchers/VoucherGrid.h"

#include <array>

#include "base/Format.h"

namespace zelkor {
namespace {

constexpr std::array kWidths = {3000, 4700, 2500, 2500};  // twips

}  // namespace

std::vector<std::string> voucherCells(const VoucherLine& line) {
  const std::string subject =
      line.SubjectCode.empty() ? std::string() : line.SubjectCode + " " + line.SubjectName;
  return {line.Digest, subject, voucherAmountText(line.Debit), voucherAmountText(line.Credit)};
}

TextGrid voucherGrid(const Voucher& voucher) {
  TextGrid grid;
  grid.setHeader("摘要|会计科目|借方金额|贷方金额");
  for (std::size_t column = 0; column < kWidths.size(); ++column)
    grid.setColumnWidth(column, kWidths[column]);
  for (const auto amount : {voucher_column::Debit, voucher_column::Credit}) {
    grid.setAlignment(amount, Align::Right);
  }
  for (std::size_t i = 1; i <= voucher.RowCount(); ++i) grid.addRow(voucherCells(voucher.Row(i)));
  grid.addRow({});
  return grid;
}

std::string voucherSumText(Currency sum) {
  return Format(sum, "#,##0.00");
}

std::string voucherBalanceText(const VoucherTotals& totals) {
  if (totals.balanced()) return "借贷平衡";
  const bool debitMore = totals.debit > totals.credit;
  const Currency more = debitMore ? totals.difference() : -totals.difference();
  // With all its decimals: staged amounts have four, and "0.00 more" would say nothing.
  return (debitMore ? "借贷不平，借方多 " : "借贷不平，贷方多 ") + Format(more, "#,##0.00##");
}

}  // namespace zelkor
