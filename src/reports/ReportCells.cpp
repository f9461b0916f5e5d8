#include "reports/ReportCells.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "base/Conversion.h"
#include "base/DateTime.h"
#include "base/Format.h"

namespace zelkor {
namespace {

constexpr std::size_t kMostDigits = 15;  // that a spreadsheet's number keeps
constexpr std::string_view kDateCaption = "日期";
constexpr std::array<std::string_view, 3> kCounts{"数量", "建筑数", "电机数"};
constexpr std::string_view kDepartment = "使用部门";  // a name, wherever it stands

bool isDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

bool allDigits(std::string_view text) {
  return std::ranges::all_of(text, isDigit);
}

/// What follows an E, with its sign.
bool isExponent(std::string_view text) {
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  return !text.empty() && text.size() <= 3 && allDigits(text);
}

/// A number as reports write it: no blanks, no leading zero but one before the point.
bool isPlainNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  if (const std::size_t at = text.find('E'); at != std::string_view::npos) {
    if (!isExponent(text.substr(at + 1))) return false;
    text = text.substr(0, at);
  }
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view whole = text.substr(0, point);
  const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
  const bool leadingZero = whole.size() > 1 && whole.front() == '0';
  return allDigits(whole) && allDigits(decimals) && !leadingZero && !(whole.empty() && decimals.empty()) &&
         whole.size() + decimals.size() <= kMostDigits;
}

std::string_view captionOf(const TextGrid& grid, std::size_t column) {
  if (grid.headerRows() == 0) return {};
  return grid.text(grid.headerRows() - 1, column);
}

bool isCount(const TextGrid& grid, std::size_t column) {
  return std::ranges::find(kCounts, captionOf(grid, column)) != kCounts.end();
}

bool holdsNumbers(const TextGrid& grid, std::size_t column) {
  if (captionOf(grid, column) == kDepartment) return false;
  return grid.alignment(column) != Align::Left || isCount(grid, column);
}

/// Numbers alone stand to the right, texts alone not.
Align alignmentOf(const TextGrid& grid, std::size_t column) {
  bool numbers = false;
  bool texts = false;
  for (std::size_t row = grid.headerRows(); row < grid.rows() && !(numbers && texts); ++row) {
    if (grid.text(row, column).empty()) continue;
    (isNumberCell(grid, row, column) ? numbers : texts) = true;
  }
  const Align told = grid.alignment(column);
  if (numbers && !texts) return Align::Right;
  return texts && !numbers && told == Align::Right ? Align::Left : told;
}

void dressText(TextGrid& grid, std::size_t row, std::size_t column, bool money) {
  if (isDateCell(grid, row, column)) {
    grid.setText(row, column, Format(*parseDate(grid.text(row, column)), "yyyy-mm-dd"));
  } else if (money && isNumberCell(grid, row, column)) {
    grid.setText(row, column, Format(Val(grid.text(row, column)), "#,##0.00"));
  }
}

/// An upper caption without one below it is that of the whole column.
void fillCaptions(TextGrid& grid) {
  for (std::size_t row = 1; row < grid.headerRows(); ++row) {
    for (std::size_t column = 0; column < grid.columns(); ++column) {
      if (grid.text(row, column).empty()) grid.setText(row, column, grid.text(row - 1, column));
    }
  }
}

}  // namespace

bool isNumberCell(const TextGrid& grid, std::size_t row, std::size_t column) {
  return row >= grid.headerRows() && holdsNumbers(grid, column) && isPlainNumber(grid.text(row, column));
}

bool isDateCell(const TextGrid& grid, std::size_t row, std::size_t column) {
  if (row < grid.headerRows() || !captionOf(grid, column).ends_with(kDateCaption)) return false;
  const std::string& text = grid.text(row, column);
  return text.find('-') != std::string::npos && parseDate(text).has_value();
}

bool holdsAmounts(const TextGrid& grid, std::size_t column) {
  return holdsNumbers(grid, column) && !isCount(grid, column);
}

void dressCells(TextGrid& grid, const CellDress& dress) {
  fillCaptions(grid);
  for (std::size_t column = 0; column < grid.columns(); ++column) {
    const Align alignment = alignmentOf(grid, column);
    const bool money = dress.money && holdsAmounts(grid, column);
    const bool dates = captionOf(grid, column).ends_with(kDateCaption);
    for (std::size_t row = grid.headerRows(); (money || dates) && row < grid.rows(); ++row) {
      dressText(grid, row, column, money);
    }
    grid.setAlignment(column, alignment);
  }
}

}  // namespace zelkor
