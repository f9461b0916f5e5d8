#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/TextGrid.h"
#include "paper/Page.h"

namespace zelkor {

/// Three texts of a line above or below a table; where they do not fit side by side, the left one is above
/// the others, or all are below each other.
struct MarginLine {
  std::string left;
  std::string centre;
  std::string right;
};

/// What is in a column where a ledger goes on overleaf.
enum class CarriedOver : std::uint8_t {
  Nothing,
  Sum,  // of the lines so far
  Last  // what the last line shows
};

/// A grid with what is told of it on every page. Hidden columns and rows are left out; bold cells are bold.
struct PaperTable {
  std::string title;
  std::vector<MarginLine> head;
  MarginLine foot;  // the page's number is in the middle
  TextGrid grid;
  std::vector<CarriedOver> carried;  // by column; without any nothing is carried over
  std::size_t carriedLabel = 0;      // the column in which that is said
  bool thousands = false;            // how carried sums are written
};

enum class Paper : std::uint8_t { A4, A3 };

struct PageForm {
  Paper paper = Paper::A4;
  bool landscape = true;

  PageSize size() const;
};

inline constexpr double kPageMargin = 34;  // points on every side

}  // namespace zelkor
