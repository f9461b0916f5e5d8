#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "base/TextGrid.h"

namespace zelkor {

/// A column by which rows are arranged.
struct GridSort {
  std::size_t column = 0;
  bool descending = false;

  bool operator==(const GridSort&) const = default;
};

/// Arranges the rows by their texts in the column: amounts as numbers, other texts as a Chinese list has
/// them, with the numbers in them counted (2020-4-1 before 2020-10-1). Equal ones stay in their order.
void sortRows(const TextGrid& grid, const GridSort& sort, std::vector<std::uint32_t>& rows);

}  // namespace zelkor
