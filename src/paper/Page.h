#pragma once

#include <cstdint>
#include <string>
#include <vector>

// A page of paper as a value: what stands where. A PDF document and a printer draw the same pages.
namespace zelkor {

/// In points (1/72 inch), as all that is on a page.
struct PageSize {
  double width = 0;
  double height = 0;
};

enum class Face : std::uint8_t { Regular, Bold };

struct PlacedText {
  double x = 0;  // of its left end
  double y = 0;  // of its base line, from the top of the page
  double size = 0;
  Face face = Face::Regular;
  std::string text;
};

struct PlacedLine {
  double fromX = 0, fromY = 0;
  double toX = 0, toY = 0;
};

/// With a frame, and shaded within.
struct PlacedBox {
  double x = 0, y = 0;
  double width = 0, height = 0;
};

struct Page {
  std::vector<PlacedBox> boxes;  // below all else
  std::vector<PlacedLine> lines;
  std::vector<PlacedText> texts;
};

inline constexpr double kRuleWidth = 0.4;   // of lines and frames
inline constexpr double kRuleShade = 0.45;  // theirs, from black at 0 to white at 1
inline constexpr double kBoxShade = 0.93;

}  // namespace zelkor
