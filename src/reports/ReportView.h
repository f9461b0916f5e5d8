#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <vector>

#include "base/TextGrid.h"

namespace zelkor {

struct ConditionLine {
  std::string text;
  bool visible = true;
};

/// What Label1(0) shows until the account set's unit is known; no file shows it.
inline constexpr const char* kUnitLineAsDrawn = "Label1";

/// A report as it is looked at: caption lines and the grid. Exists only while it is open.
struct ReportView {
  std::string title;                            // the report's name
  std::string unitLine = kUnitLineAsDrawn;      // Label1(0)
  std::array<ConditionLine, 2> conditionLines;  // Label1(1), Label1(2)
  std::string subject;                          // what it is about; on paper and in files alone
  bool secondLineMovedUp = false;               // Label1(2) stands where Label1(1) is
  std::string periodCaption = "期间：";         // Label3
  bool periodListVisible = true;                // Combo1
  std::vector<std::string> periods;
  std::size_t selectedPeriod = 0;
  TextGrid grid{2, 2};
};

}  // namespace zelkor
