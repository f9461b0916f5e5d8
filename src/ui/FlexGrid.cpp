#include "ui/FlexGrid.h"

#include <algorithm>
#include <QHeaderView>
#include <QKeyEvent>

#include "base/GridSpans.h"
#include "ui/GridHeader.h"
#include "ui/Twips.h"

namespace zelkor {
namespace {

constexpr int kRowPadding = 8;
constexpr int kRowsMeasured = 200;
constexpr int kWidestFitted = 360;

bool sameHeader(const TextGrid& before, const TextGrid& after) {
  if (before.headerRows() == 0 || before.headerRows() != after.headerRows()) return false;
  if (before.columns() != after.columns()) return false;
  for (std::size_t row = 0; row < after.headerRows(); ++row) {
    for (std::size_t column = 0; column < after.columns(); ++column) {
      if (before.text(row, column) != after.text(row, column)) return false;
    }
  }
  return true;
}

}  // namespace

FlexGrid::FlexGrid(QWidget* parent) : QTableView(parent) {
  setHorizontalHeader(new GridHeader(model_, this));
  setModel(&model_);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::SingleSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setAlternatingRowColors(true);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  verticalHeader()->hide();
  // One height for all rows: no row is measured, however many there are.
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
  horizontalHeader()->setResizeContentsPrecision(kRowsMeasured);
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& cell) { emit rowOpened(model_.gridRow(cell.row())); });
}

TextGrid FlexGrid::setGrid(TextGrid grid) {
  clearSpans();
  const bool known = sameHeader(this->grid(), grid);
  TextGrid before = model_.setGrid(std::move(grid));
  setCurrentIndex({});  // or the view would make the first row the current one as soon as it gets the focus
  horizontalHeader()->setVisible(this->grid().headerRows() > 0);
  if (!known) setWidths();
  hideColumns();
  hideRows();
  mergeCells();
  return before;
}

void FlexGrid::addRows(TextGrid more) {
  model_.addRows(std::move(more));
}

void FlexGrid::setText(std::size_t row, std::size_t column, std::string text) {
  model_.setText(row, column, std::move(text));
}

void FlexGrid::fitColumns() {
  for (int column = 0; column < model_.columnCount(); ++column) {
    const int content = std::max(sizeHintForColumn(column), horizontalHeader()->sectionSizeHint(column));
    setColumnWidth(column, std::min(content + kRowPadding * 2, kWidestFitted));
  }
}

std::optional<std::size_t> FlexGrid::currentGridRow() const {
  if (!currentIndex().isValid()) return std::nullopt;
  return model_.gridRow(currentIndex().row());
}

std::optional<std::size_t> FlexGrid::currentGridColumn() const {
  if (!currentIndex().isValid()) return std::nullopt;
  return static_cast<std::size_t>(currentIndex().column());
}

std::vector<std::size_t> FlexGrid::selectedGridRows() const {
  std::vector<std::size_t> rows;
  for (const QModelIndex& cell : selectionModel()->selectedRows()) rows.push_back(model_.gridRow(cell.row()));
  std::ranges::sort(rows);
  return rows;
}

void FlexGrid::selectGridRow(std::size_t row) {
  setCurrentIndex(model_.index(model_.viewRow(row), std::max(currentIndex().column(), 0)));
}

void FlexGrid::selectCell(std::size_t row, std::size_t column) {
  setCurrentIndex(cellIndex(row, column));
}

QModelIndex FlexGrid::cellIndex(std::size_t row, std::size_t column) const {
  return model_.index(model_.viewRow(row), static_cast<int>(column));
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const auto row = currentGridRow();
  if (!enter || !row) return QTableView::keyPressEvent(event);
  emit rowOpened(*row);
}

void FlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.isValid() && current.row() != previous.row()) emit rowSelected(model_.gridRow(current.row()));
}

void FlexGrid::setWidths() {
  for (std::size_t column = 0; column < grid().columns(); ++column) {
    setColumnWidth(static_cast<int>(column), pixelsOf(grid().columnWidth(column), *this));
  }
}

void FlexGrid::hideColumns() {
  for (std::size_t column = 0; column < grid().columns(); ++column) {
    setColumnHidden(static_cast<int>(column), grid().columnHidden(column));
  }
}

void FlexGrid::hideRows() {
  for (std::size_t row = grid().headerRows(); row < grid().rows(); ++row) {
    const int viewRow = model_.viewRow(row);
    if (isRowHidden(viewRow) != grid().rowHidden(row)) setRowHidden(viewRow, grid().rowHidden(row));
  }
}

void FlexGrid::mergeCells() {
  for (std::size_t row = grid().headerRows(); row < grid().rows(); ++row) {
    if (grid().rowMerged(row)) mergeRow(row);
  }
  for (std::size_t column = 0; column < grid().columns(); ++column) {
    if (grid().columnMerged(column)) mergeColumn(column);
  }
}

void FlexGrid::mergeRow(std::size_t row) {
  for (std::size_t column = 0; column < grid().columns();) {
    const CellSpan span = mergedCells(grid(), row, column, row, row);
    showAsOne(span);
    column = span.lastColumn + 1;
  }
}

/// Each run of equal cells once: a column may have a hundred thousand rows.
void FlexGrid::mergeColumn(std::size_t column) {
  for (std::size_t row = grid().headerRows(); row < grid().rows();) {
    const CellSpan span = mergedCells(grid(), row, column, row, grid().rows() - 1);
    if (span.firstColumn == span.lastColumn) showAsOne(span);
    row = span.lastRow + 1;
  }
}

void FlexGrid::showAsOne(const CellSpan& cells) {
  if (cells.isSingle()) return;
  setSpan(model_.viewRow(cells.firstRow), static_cast<int>(cells.firstColumn),
          static_cast<int>(cells.lastRow - cells.firstRow + 1),
          static_cast<int>(cells.lastColumn - cells.firstColumn + 1));
}

}  // namespace zelkor
