#pragma once

#include <string_view>

#include "base/TextGrid.h"
#include "paper/Page.h"

// How texts stand in the cells of a table on paper.
namespace zelkor {

// Of the letters' size.
inline constexpr double kCellPadding = 0.35;  // beside a text
inline constexpr double kCellMargins = 2 * kCellPadding;
inline constexpr double kRowPadding = 0.4;  // above and below a text together

inline constexpr std::string_view kGoesOn = "（续）";  // after the name of a group, overleaf

inline constexpr double kMarginSize = 9;  // points; of the lines above and below the table

/// Rows of totals are bold.
inline Face faceOf(const TextGrid& grid, std::size_t row, std::size_t column) {
  return grid.isTotal(row) || grid.bold(row, column) ? Face::Bold : Face::Regular;
}

}  // namespace zelkor
