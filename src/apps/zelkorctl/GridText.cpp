#include "apps/zelkorctl/GridText.h"

#include <algorithm>
#include <vector>

namespace zelkor {
namespace {

constexpr std::string_view kGap = "  ";

bool isWide(char32_t c) {
  return (c >= 0x1100 && c <= 0x115F) || (c >= 0x2E80 && c <= 0xA4CF) || (c >= 0xAC00 && c <= 0xD7A3) ||
         (c >= 0xF900 && c <= 0xFAFF) || (c >= 0xFE30 && c <= 0xFE6F) || (c >= 0xFF00 && c <= 0xFF60) ||
         (c >= 0xFFE0 && c <= 0xFFE6) || (c >= 0x20000 && c <= 0x3FFFD);
}

std::string padded(const std::string& text, std::size_t width, Align align) {
  const std::size_t used = displayWidth(text);
  const std::size_t spare = width > used ? width - used : 0;
  const std::size_t before = align == Align::Right ? spare : align == Align::Center ? spare / 2 : 0;
  return std::string(before, ' ') + text + std::string(spare - before, ' ');
}

/// A cell on one line.
std::string flat(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c == '\n' || c == '\r' || c == '\t'; }, ' ');
  return text;
}

std::vector<std::size_t> visibleColumns(const TextGrid& grid) {
  std::vector<std::size_t> columns;
  for (std::size_t column = 0; column < grid.columns(); ++column) {
    if (!grid.columnHidden(column) && grid.columnWidth(column) > 0) columns.push_back(column);
  }
  return columns;
}

std::size_t widestCell(const TextGrid& grid, std::size_t column) {
  std::size_t widest = 0;
  for (std::size_t row = 0; row < grid.rows(); ++row) {
    if (!grid.rowHidden(row)) widest = std::max(widest, displayWidth(grid.text(row, column)));
  }
  return widest;
}

void trimEnd(std::string& line) {
  line.erase(line.find_last_not_of(' ') + 1);
}

}  // namespace

std::size_t displayWidth(std::string_view utf8) {
  std::size_t width = 0;
  for (std::size_t i = 0; i < utf8.size();) {
    const auto lead = static_cast<unsigned char>(utf8[i]);
    const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    char32_t code = length == 1 ? lead : lead & (0xFFU >> (length + 1));
    for (std::size_t k = 1; k < length && i + k < utf8.size(); ++k) {
      code = (code << 6) | (static_cast<unsigned char>(utf8[i + k]) & 0x3FU);
    }
    width += isWide(code) ? 2 : 1;
    i += length;
  }
  return width;
}

std::string gridText(const TextGrid& grid) {
  const auto columns = visibleColumns(grid);
  std::vector<std::size_t> widths;
  std::size_t total = 0;
  for (const std::size_t column : columns) {
    widths.push_back(widestCell(grid, column));
    total += widths.back() + kGap.size();
  }
  std::string text;
  for (std::size_t row = 0; row < grid.rows(); ++row) {
    if (grid.rowHidden(row)) continue;
    std::string line;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const Align align = row < grid.headerRows() ? Align::Left : grid.alignment(columns[i]);
      line += padded(flat(grid.text(row, columns[i])), widths[i], align);
      line += kGap;
    }
    trimEnd(line);
    text += line + '\n';
    if (row + 1 == grid.headerRows()) text += std::string(total, '-') + '\n';
  }
  return text;
}

}  // namespace zelkor
