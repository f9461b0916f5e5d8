#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/TextGrid.h"
#include "vouchers/Voucher.h"

namespace zelkor {

/// The columns of `voucherGrid`.
namespace voucher_column {
enum Column : std::size_t { Digest, Subject, Debit, Credit };
}
inline constexpr std::size_t kVoucherColumns = 4;

/// The lines of a voucher below one header row, and an empty one to write on.
TextGrid voucherGrid(const Voucher& voucher);
/// The cells of a line.
std::vector<std::string> voucherCells(const VoucherLine& line);

/// A sum of amounts, "1,234.50".
std::string voucherSumText(Currency sum);
/// Whether both sides are equal, or which one has how much more.
std::string voucherBalanceText(const VoucherTotals& totals);

}  // namespace zelkor
