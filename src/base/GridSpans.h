#pragma once

#include <cstddef>

#include "base/TextGrid.h"

namespace zelkor {

/// A block of cells that is shown as one; bounds are inclusive.
struct CellSpan {
  std::size_t firstRow = 0;
  std::size_t firstColumn = 0;
  std::size_t lastRow = 0;
  std::size_t lastColumn = 0;

  bool isSingle() const { return firstRow == lastRow && firstColumn == lastColumn; }
  bool operator==(const CellSpan&) const = default;
};

/// The cell with its equal neighbours, sideways in a merged row, otherwise up and down in a merged column and
/// in header rows.
/// Rows outside `firstRow` to `lastRow` (inclusive) do not count. Empty cells merge as others do.
CellSpan mergedCells(const TextGrid& grid, std::size_t row, std::size_t column, std::size_t firstRow,
                     std::size_t lastRow);

/// The same for a column that is shown, without hidden columns at its sides.
CellSpan shownCells(const TextGrid& grid, std::size_t row, std::size_t column, std::size_t firstRow,
                    std::size_t lastRow);

}  // namespace zelkor
