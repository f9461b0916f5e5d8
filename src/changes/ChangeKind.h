#pragma once

#include <optional>
#include <string_view>

namespace zelkor {

/// The kinds of change sheet that frmAssetsAlteration serves. The change of the depreciation method has a
/// screen of its own; see BalanceSheet.h.
enum class ChangeKind {
  OriginalValue,
  UsageStatus,
  AccumulatedDepr,
  UsefulLife,
  ResidualValue,  // is shown and never saved
  Transfer,
};

/// Caption of the kind: the BillType of the screen and the name on the stored sheet.
std::string_view captionOf(ChangeKind kind);
std::optional<ChangeKind> changeKindOf(std::string_view caption);

/// iVoucherType of the kind's sheets; 0 for the kind that is never saved.
int voucherTypeOf(ChangeKind kind);

}  // namespace zelkor
