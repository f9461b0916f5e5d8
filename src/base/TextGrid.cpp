#include "base/TextGrid.h"

#include <algorithm>
#include <iterator>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

template <typename Items>
auto& itemAt(Items& items, std::size_t index) {
  if (index >= items.size()) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return items[index];
}

}  // namespace

TextGrid::TextGrid(std::size_t rows, std::size_t columns) {
  resize(rows, columns);
}

void TextGrid::resize(std::size_t rows, std::size_t columns) {
  columns_.resize(columns);
  rows_.resize(rows);
  for (Row& row : rows_) row.cells.resize(columns);
}

std::size_t TextGrid::addRow(std::vector<std::string> cells) {
  if (cells.size() > columns_.size()) resize(rows_.size(), cells.size());
  Row row;
  row.cells.resize(columns_.size());
  for (std::size_t i = 0; i < cells.size(); ++i) row.cells[i].text = std::move(cells[i]);
  rows_.push_back(std::move(row));
  return rows_.size() - 1;
}

void TextGrid::append(TextGrid more) {
  const std::size_t width = std::max(columns_.size(), more.columns_.size());
  if (columns_.size() < width) resize(rows_.size(), width);
  if (more.columns_.size() < width) more.resize(more.rows_.size(), width);
  rows_.insert(rows_.end(), std::move_iterator(more.rows_.begin()), std::move_iterator(more.rows_.end()));
}

void TextGrid::removeRow(std::size_t row) {
  itemAt(rows_, row);
  rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(row));
  if (row < headerRows_) --headerRows_;
}

void TextGrid::clearBody() {
  rows_.resize(std::min(rows_.size(), headerRows_));
}

const TextGrid::Cell& TextGrid::cell(std::size_t row, std::size_t column) const {
  return itemAt(itemAt(rows_, row).cells, column);
}

TextGrid::Cell& TextGrid::cell(std::size_t row, std::size_t column) {
  return itemAt(itemAt(rows_, row).cells, column);
}

const std::string& TextGrid::text(std::size_t row, std::size_t column) const {
  return cell(row, column).text;
}

void TextGrid::setText(std::size_t row, std::size_t column, std::string text) {
  cell(row, column).text = std::move(text);
}

void TextGrid::setHeader(std::string_view captions) {
  std::vector<std::string> cells = Split(captions, '|');
  if (rows_.empty()) {
    addRow(std::move(cells));
  } else {
    resize(rows_.size(), std::max(columns_.size(), cells.size()));
    for (std::size_t i = 0; i < cells.size(); ++i) setText(0, i, std::move(cells[i]));
  }
  headerRows_ = 1;
}

int TextGrid::columnWidth(std::size_t column) const {
  return itemAt(columns_, column).width;
}
void TextGrid::setColumnWidth(std::size_t column, int twips) {
  itemAt(columns_, column).width = twips;
}

Align TextGrid::alignment(std::size_t column) const {
  return itemAt(columns_, column).align;
}
void TextGrid::setAlignment(std::size_t column, Align align) {
  itemAt(columns_, column).align = align;
}

bool TextGrid::columnHidden(std::size_t column) const {
  return itemAt(columns_, column).hidden;
}
void TextGrid::setColumnHidden(std::size_t column, bool hidden) {
  itemAt(columns_, column).hidden = hidden;
}

bool TextGrid::rowHidden(std::size_t row) const {
  return itemAt(rows_, row).hidden;
}
void TextGrid::setRowHidden(std::size_t row, bool hidden) {
  itemAt(rows_, row).hidden = hidden;
}

bool TextGrid::rowMerged(std::size_t row) const {
  return itemAt(rows_, row).merged;
}
void TextGrid::setRowMerged(std::size_t row, bool merged) {
  itemAt(rows_, row).merged = merged;
}

bool TextGrid::columnMerged(std::size_t column) const {
  return itemAt(columns_, column).merged;
}
void TextGrid::setColumnMerged(std::size_t column, bool merged) {
  itemAt(columns_, column).merged = merged;
}

bool TextGrid::bold(std::size_t row, std::size_t column) const {
  return cell(row, column).bold;
}
void TextGrid::setBold(std::size_t row, std::size_t column, bool bold) {
  cell(row, column).bold = bold;
}

bool TextGrid::centred(std::size_t row, std::size_t column) const {
  return cell(row, column).centred;
}
void TextGrid::setCentred(std::size_t row, std::size_t column, bool centred) {
  cell(row, column).centred = centred;
}

bool TextGrid::isTotal(std::size_t row) const {
  return itemAt(rows_, row).total;
}
void TextGrid::setTotal(std::size_t row) {
  itemAt(rows_, row).total = true;
}

}  // namespace zelkor
