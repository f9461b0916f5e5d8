#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "base/TextGrid.h"

namespace zelkor {

/// Prints a grid under its title and caption lines on A4 pages across, as a PDF file, with the header rows
/// and the page's number on every page. Columns are as wide as in the grid or as their texts need, the
/// letters small enough that all columns fit. Needs no window system. Raises error 57 when the file cannot be
/// written.
void printPdf(const std::filesystem::path& file, const std::string& title,
              const std::vector<std::string>& captions, const TextGrid& grid);

}  // namespace zelkor
