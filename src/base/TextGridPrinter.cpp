#include "base/TextGridPrinter.h"

#include <algorithm>
#include <ostream>

#include "base/Text.h"

namespace zelkor {
namespace {

struct PrintedColumn {
  std::size_t index = 0;
  std::size_t width = 0;
};

std::string cellText(const TextGrid& grid, std::size_t row, std::size_t column) {
  std::string text = grid.text(row, column);
  std::replace(text.begin(), text.end(), '\n', ' ');
  std::erase(text, '\r');
  return text;
}

std::vector<PrintedColumn> visibleColumns(const TextGrid& grid) {
  std::vector<PrintedColumn> columns;
  for (std::size_t column = 0; column < grid.columns(); ++column) {
    if (grid.columnHidden(column)) continue;
    std::size_t width = 0;
    for (std::size_t row = 0; row < grid.rows(); ++row) {
      if (!grid.rowHidden(row)) width = std::max(width, displayWidth(cellText(grid, row, column)));
    }
    columns.push_back({column, width});
  }
  return columns;
}

std::string aligned(const std::string& text, std::size_t width, Align align) {
  const std::size_t room = width - displayWidth(text);
  const std::size_t before = align == Align::Right ? room : align == Align::Center ? room / 2 : 0;
  return std::string(before, ' ') + text + std::string(room - before, ' ');
}

void printLine(std::ostream& out, const std::string& line) {
  out << RTrim(line) << '\n';
}

}  // namespace

void printGrid(std::ostream& out, const TextGrid& grid) {
  const auto columns = visibleColumns(grid);
  std::size_t total = 0;
  for (const auto& column : columns) total += column.width + (total == 0 ? 0 : 2);
  for (std::size_t row = 0; row < grid.rows(); ++row) {
    if (row == grid.headerRows() && row != 0) printLine(out, std::string(total, '-'));
    if (grid.rowHidden(row)) continue;
    std::string line;
    for (const auto& column : columns) {
      if (&column != &columns.front()) line += "  ";
      const Align align = grid.centred(row, column.index) ? Align::Center : grid.alignment(column.index);
      line += aligned(cellText(grid, row, column.index), column.width, align);
    }
    printLine(out, line);
  }
}

}  // namespace zelkor
