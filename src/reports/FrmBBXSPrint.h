#pragma once

#include <cstddef>
#include <QFont>

#include "paper/PaperFont.h"
#include "paper/PaperTable.h"
#include "paper/TextWidths.h"

class QPainter;
class QPrinter;

namespace zelkor {

/// Prints a table on the pages that a PDF document of the same paper has. The table must outlive it. Error 57
/// where the font is not installed.
class TablePrinter {
 public:
  explicit TablePrinter(const PaperTable& table) : table_(table) {}

  /// How many there are on that paper.
  std::size_t pages(const QPrinter& printer);
  /// All pages, or those that were asked for.
  void print(QPrinter& printer);

 private:
  double advance(char32_t character, Face face) const;

  const PaperTable& table_;
  PaperFont regular_{Face::Regular};
  PaperFont bold_{Face::Bold};
  TextWidths widths_{[this](char32_t character, Face face) { return advance(character, face); }};
};

}  // namespace zelkor
