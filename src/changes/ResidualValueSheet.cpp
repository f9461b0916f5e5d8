#include "base/Format.h"
#include "changes/SheetRules.h"

// 净残值调整: shows a card and saves nothing.

namespace zelkor {
namespace {

void show(Database& /*database*/, const CardVersion& card, ChangeSheet& sheet) {
  sheet.residualRate = Format(card["dblBVRate"], "0.00%");
  sheet.before.text = Format(card["dblBV"], "0.00");
}

}  // namespace

const SheetRules& residualValueRules() {
  static constexpr SheetRules kRules{.find = newestDepreciated,
                                     .show = show,
                                     .pick = nullptr,
                                     .stored = storedText,
                                     .check = nullptr,
                                     .write = nullptr,
                                     .afterwards = nullptr};
  return kRules;
}

}  // namespace zelkor
