#pragma once

#include <array>
#include <cstddef>
#include <optional>

namespace zelkor {

/// Which of the dialog's numbered lists a page of conditions holds, and what else it asks.
struct ConditionPage {
  std::size_t period = 0;               // of the period lists
  std::optional<std::size_t> periodTo;  // the list of the period's end
  std::optional<std::size_t> level;     // of the level lists; the next one is the range's end
  bool type = false;
  bool department = false;
};

inline constexpr int compositionPage = 0;  // also asks for the level of categories
inline constexpr int statisticsPage = 3;   // also asks for the layout and the levels of both trees

/// The pages 0 to 13.
inline constexpr std::array<ConditionPage, 14> conditionPages{{
    {0, {}, {}},
    {1, {}, {}},
    {2, {}, 0},
    {3, {}, {}},
    {4, 5, {}},
    {6, 7, {}, true},
    {8, {}, {}, false, true},
    {9, {}, {}, true},
    {10, 11, {}, true, true},
    {12, 13, {}, true, true},
    {14, 15, {}, true, true},
    {16, 17, {}, true},
    {18, {}, 2, false, true},
    {19, 20, 4},
}};

}  // namespace zelkor
