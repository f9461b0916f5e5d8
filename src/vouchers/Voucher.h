#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Currency.h"
#include "base/DateTime.h"

namespace zelkor {

/// One entry of a voucher. An entry is on one side: the other amount is 0.
struct VoucherLine {
  std::string Digest;
  std::string SubjectCode;
  std::string SubjectName;
  Currency Debit;
  Currency Credit;
};

/// The states that are acted on; the ledger may hold others.
namespace voucher_state {
inline constexpr std::int16_t Normal = 0;
inline constexpr std::int16_t Cancelled = 1;
inline constexpr std::int16_t Saved = 3;
}  // namespace voucher_state

/// A voucher as its editor holds it.
class Voucher {
 public:
  std::string Caption;      // title: the name of the voucher type
  std::string VoucherSign;  // sign of the voucher type; empty when none is chosen
  bool AllowBrowseSign = false;
  DateTime VoucherDate;
  std::string BillMaker;
  std::string Cashier;
  std::string Checker;
  std::string Bookkeeper;
  std::int16_t Attachments = 0;  // number of attached documents
  std::int16_t SignSeq = 0;      // sequence number of the voucher type
  std::int16_t VoucherState = voucher_state::Normal;

  std::size_t RowCount() const { return rows_.size(); }
  /// Lines count from 1; error 9 outside.
  VoucherLine& Row(std::size_t number);
  const VoucherLine& Row(std::size_t number) const;
  void AddRow(VoucherLine line) { rows_.push_back(std::move(line)); }
  /// Empties everything.
  void Clear() { *this = Voucher(); }

 private:
  friend void insertLine(Voucher& voucher, std::size_t number, VoucherLine line);
  friend void removeLine(Voucher& voucher, std::size_t number);

  std::vector<VoucherLine> rows_;
};

/// Puts a line before the one of that number; error 9 where there is none.
void insertLine(Voucher& voucher, std::size_t number, VoucherLine line);
/// Takes the line of that number out; error 9 where there is none.
void removeLine(Voucher& voucher, std::size_t number);

/// Sums of both sides; error 6 beyond the range of an amount.
struct VoucherTotals {
  Currency debit;
  Currency credit;
  /// What the debit side has more than the credit side.
  Currency difference() const { return debit - credit; }
  bool balanced() const { return debit == credit; }
};
VoucherTotals totalsOf(const Voucher& voucher);

enum class VoucherSide { Debit, Credit };

/// Takes an amount as typed: the line then is on that side alone; nothing typed is 0. False, with the
/// line left as it was, for text that is no amount.
bool enterAmount(VoucherLine& line, VoucherSide side, std::string_view typed);

/// Puts the amount on that side of the line with which the voucher balances.
void balanceWith(Voucher& voucher, std::size_t number, VoucherSide side);

/// An amount as a voucher shows it, "1,234.50"; nothing for 0.
std::string voucherAmountText(Currency amount);

}  // namespace zelkor
