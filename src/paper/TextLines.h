#pragma once

#include <string_view>
#include <vector>

#include "paper/TextWidths.h"

namespace zelkor {

/// The widest piece of a text that stays together: a number, a code, a word, a wide character with the marks
/// that may not be parted from it.
double widestPiece(std::string_view text, Face face, TextWidths& widths);

/// The lines of a text in a column of that width: broken where the text has line breaks, after blanks and
/// between wide characters, and within a piece that alone is wider. A blank at which a line is broken is
/// left out, nothing else. At least one line.
std::vector<std::string_view> linesOf(std::string_view text, double width, Face face, TextWidths& widths);

}  // namespace zelkor
