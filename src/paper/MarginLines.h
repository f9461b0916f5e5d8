#pragma once

#include <span>
#include <string>
#include <vector>

#include "paper/PaperTable.h"
#include "paper/TextWidths.h"

namespace zelkor {

/// Texts that stand alike on every page; their base lines counted from the top of the block.
struct MarginBlock {
  std::vector<PlacedText> texts;
  double height = 0;
};

/// The lines between the left and the right margin of a page of that width.
MarginBlock setLines(std::span<const MarginLine> lines, double pageWidth, double size, TextWidths& widths);
/// A bold text in the middle, above `below`.
MarginBlock setTitle(const std::string& title, MarginBlock below, double pageWidth, double size,
                     TextWidths& widths);

/// How far the lines of a text are apart, of the letters' size.
inline constexpr double kLinePitch = 1.35;
/// The base line of a line, from its top, of the letters' size.
inline constexpr double kAscent = 1.02;

}  // namespace zelkor
