#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/TextGrid.h"

namespace zelkor {

/// The grid for a terminal of fixed pitch: columns padded to their widest cell, hidden rows and columns left
/// out, a rule under the header rows.
std::string gridText(const TextGrid& grid);

/// Cells that the text takes in a terminal: two for the wide characters of East Asia.
std::size_t displayWidth(std::string_view utf8);

}  // namespace zelkor
