#include "vouchers/Voucher.h"

#include <optional>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

void setAmount(VoucherLine& line, VoucherSide side, Currency amount) {
  line.Debit = side == VoucherSide::Debit ? amount : Currency();
  line.Credit = side == VoucherSide::Credit ? amount : Currency();
}

}  // namespace

const VoucherLine& Voucher::Row(std::size_t number) const {
  if (number == 0 || number > rows_.size()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return rows_[number - 1];
}

VoucherLine& Voucher::Row(std::size_t number) {
  return const_cast<VoucherLine&>(std::as_const(*this).Row(number));
}

void insertLine(Voucher& voucher, std::size_t number, VoucherLine line) {
  voucher.Row(number);
  voucher.rows_.insert(voucher.rows_.begin() + static_cast<std::ptrdiff_t>(number - 1), std::move(line));
}

void removeLine(Voucher& voucher, std::size_t number) {
  voucher.Row(number);
  voucher.rows_.erase(voucher.rows_.begin() + static_cast<std::ptrdiff_t>(number - 1));
}

VoucherTotals totalsOf(const Voucher& voucher) {
  VoucherTotals totals;
  for (std::size_t i = 1; i <= voucher.RowCount(); ++i) {
    totals.debit += voucher.Row(i).Debit;
    totals.credit += voucher.Row(i).Credit;
  }
  return totals;
}

bool enterAmount(VoucherLine& line, VoucherSide side, std::string_view typed) {
  const std::string text = Trim(typed);
  try {
    const auto amount = text.empty() ? std::optional<double>(0) : parseNumber(text);
    if (!amount) return false;
    setAmount(line, side, Currency::fromDouble(*amount));
    return true;
  } catch (const RuntimeError&) {
    return false;  // beyond the range of an amount
  }
}

void balanceWith(Voucher& voucher, std::size_t number, VoucherSide side) {
  VoucherLine& line = voucher.Row(number);
  setAmount(line, side, Currency());
  const Currency missing = totalsOf(voucher).difference();
  setAmount(line, side, side == VoucherSide::Credit ? missing : -missing);
}

std::string voucherAmountText(Currency amount) {
  return amount == Currency() ? std::string() : Format(amount, "#,##0.00");
}

}  // namespace zelkor
