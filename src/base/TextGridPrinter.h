#pragma once

#include <iosfwd>

#include "base/TextGrid.h"

namespace zelkor {

/// Prints the visible rows and columns for a terminal: columns as wide as their widest text, two blanks
/// between them, a rule below the header rows. Alignment as in the grid; no blanks at the ends of lines.
void printGrid(std::ostream& out, const TextGrid& grid);

}  // namespace zelkor
