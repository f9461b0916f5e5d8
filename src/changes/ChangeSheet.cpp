#include "changes/ChangeSheet.h"

#include <utility>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

constexpr const char* kAmountPicture = "0.00";

/// Nothing where the increase is no number.
std::optional<double> increaseOf(const std::string& typed) {
  if (Trim(typed).empty()) return 0.0;
  try {
    return parseNumber(typed);
  } catch (const RuntimeError&) {
    return std::nullopt;  // beyond what a number can be
  }
}

}  // namespace

void ChangeSheet::chooseDepartment(std::string code, std::string name) {
  after = {std::move(name), std::move(code)};
  split = {};
}

void ChangeSheet::chooseSplit(DepartSplit chosen) {
  after = {withoutLastSlash(chosen.names), withoutLastSlash(chosen.codes)};
  split = std::move(chosen);
}

// The residual value follows the value at the card's rate. Each figure is computed from those shown.
void ChangeSheet::recomputeValues() {
  const auto amount = increaseOf(increase);
  if (!amount) {
    after.text = residualAfter = residualIncrease = "";
    return;
  }
  after.text = Format(Val(before.text) + *amount, kAmountPicture);
  residualAfter = Format(Val(after.text) * Val(residualRate) / 100, kAmountPicture);
  residualIncrease = Format(Val(residualAfter) - Val(residualBefore), kAmountPicture);
}

}  // namespace zelkor
