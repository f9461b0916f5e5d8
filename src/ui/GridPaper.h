#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "base/TextGrid.h"

namespace zelkor {

/// Prints a grid under its title and caption lines on A4 pages across, as a PDF document, with the header
/// rows and the page's number on every page. Columns are as wide as in the grid or as their texts need, the
/// letters small enough that all columns fit. Needs no window system. What the stream refuses is told by the
/// stream.
void printPdf(std::ostream& out, const std::string& title, const std::vector<std::string>& captions,
              const TextGrid& grid);

}  // namespace zelkor
