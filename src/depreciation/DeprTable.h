#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "base/TextGrid.h"

namespace zelkor {

// Widths of columns in twips.
inline constexpr int kDeprNumberWidth = 1400;
inline constexpr int kDeprNameWidth = 2600;

/// One of the tables that a preview or a plan is shown as.
struct DeprTable {
  std::string title;
  TextGrid grid;
};

/// A column's caption and width in twips; amounts stand to the right.
struct DeprColumn {
  std::string_view caption;
  int width;
  bool amount = false;
};

/// A grid with a header of these columns.
inline TextGrid deprGrid(std::initializer_list<DeprColumn> columns) {
  TextGrid grid(1, columns.size());
  grid.setHeaderRows(1);
  std::size_t place = 0;
  for (const DeprColumn& column : columns) {
    grid.setText(0, place, std::string(column.caption));
    grid.setColumnWidth(place, column.width);
    if (column.amount) grid.setAlignment(place, Align::Right);
    ++place;
  }
  return grid;
}

}  // namespace zelkor
