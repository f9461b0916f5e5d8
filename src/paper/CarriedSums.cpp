#include "paper/CarriedSums.h"

#include <algorithm>
#include <cmath>

#include "base/Conversion.h"
#include "base/Format.h"

namespace zelkor {
namespace {

std::string withoutSeparators(std::string text) {
  std::erase(text, ',');
  return text;
}

std::size_t decimalsOf(const std::string& text) {
  const std::size_t point = text.find('.');
  return point == std::string::npos ? 0 : text.size() - point - 1;
}

bool hasTwoDecimals(const std::string& text) {
  return text.size() > 3 && text[text.size() - 3] == '.';
}

}  // namespace

CarriedSums::CarriedSums(const PaperTable& table) : table_(table) {
  for (std::size_t i = 0; i < table.carried.size(); ++i) {
    if (table.carried[i] != CarriedOver::Nothing) {
      columns_.push_back({.index = i, .kind = table.carried[i], .sum = {}, .last = {}});
    }
  }
}

void CarriedSums::add(std::size_t row) {
  if (columns_.empty() || table_.grid.isTotal(row)) return;
  for (Column& column : columns_) {
    const std::string& text = table_.grid.text(row, column.index);
    if (text.empty()) continue;
    column.filled = true;
    if (column.kind == CarriedOver::Last) {
      column.last = text;
    } else {
      const double number = Val(table_.thousands ? withoutSeparators(text) : text);
      column.sum.add(number);
      column.magnitude.add(std::abs(number));
      column.decimals = std::max(column.decimals, decimalsOf(text));
      column.twoDecimals = column.twoDecimals && hasTwoDecimals(text);
    }
  }
}

std::string CarriedSums::textOf(const Column& column) const {
  if (!column.filled) return {};
  if (column.kind == CarriedOver::Last) return column.last;
  if (table_.thousands) return Format(column.sum.total(), "#,##0.00");
  return column.twoDecimals ? Format(column.sum.total(), "0.00") : textOfDouble(column.sum.total());
}

std::vector<std::string> CarriedSums::texts() const {
  std::vector<std::string> texts(table_.grid.columns());
  for (const Column& column : columns_) texts[column.index] = textOf(column);
  return texts;
}

std::string CarriedSums::widest(std::size_t column) const {
  const auto found = std::ranges::find(columns_, column, &Column::index);
  if (found == columns_.end() || found->kind != CarriedOver::Sum) return {};
  if (table_.thousands) return "-" + Format(found->magnitude.total(), "#,##0.00");
  return "-" + Format(found->magnitude.total(), "0") + "." + std::string(found->decimals, '0');
}

}  // namespace zelkor
