#pragma once

#include "base/TextGrid.h"

// What the cells of a report hold, told from their texts and captions, and how they look in a file that is
// read and not worked with.
namespace zelkor {

/// True for a cell that holds an amount or a count and not a code that looks like one.
bool isNumberCell(const TextGrid& grid, std::size_t row, std::size_t column);
/// True for a cell of a column of dates that holds one.
bool isDateCell(const TextGrid& grid, std::size_t row, std::size_t column);
/// A column of amounts, not one of counts.
bool holdsAmounts(const TextGrid& grid, std::size_t column);

struct CellDress {
  bool money = false;  // amounts with two decimals and separated thousands
};

/// Dates become yyyy-mm-dd, columns of numbers stand to the right, and a caption takes the empty cell below
/// it.
void dressCells(TextGrid& grid, const CellDress& dress);

}  // namespace zelkor
