#include "ui/FlexGrid.h"

#include <algorithm>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScrollBar>

#include "base/GridSpans.h"
#include "base/Text.h"
#include "ui/FrozenColumn.h"
#include "ui/GridHeader.h"
#include "ui/StripedCells.h"
#include "ui/Texts.h"
#include "ui/Twips.h"

namespace zelkor {
namespace {

constexpr int kRowPadding = 8;
constexpr int kCellPadding = 16;  // both sides together
constexpr int kRoomForArrow = 12;
constexpr std::size_t kRowsMeasured = 200;
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

std::size_t firstShownColumn(const TextGrid& grid) {
  std::size_t column = 0;
  while (column + 1 < grid.columns() && grid.columnHidden(column)) ++column;
  return column;
}

/// Whether the number or name begins like that; the noughts in front of a number need not be typed.
bool beginsWith(std::string_view text, std::string_view sought) {
  if (text.starts_with(sought)) return true;
  const std::size_t digits = text.find_first_not_of('0');
  return digits != std::string_view::npos && text.substr(digits).starts_with(sought);
}

/// The text as it may be between tabs.
QString cellText(const std::string& text) {
  QString cell = toQt(text);
  for (QChar& letter : cell) {
    if (letter == '\t' || letter == '\n' || letter == '\r') letter = ' ';
  }
  return cell;
}

}  // namespace

FlexGrid::FlexGrid(QWidget* parent) : QTableView(parent), header_(new GridHeader(model_, this)) {
  setHorizontalHeader(header_);
  setModel(&model_);
  setItemDelegate(new StripedCells(this));
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setAlternatingRowColors(true);
  setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
  verticalHeader()->hide();
  // One height for all rows: no row is measured, however many there are.
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + kRowPadding);
  connect(this, &QTableView::doubleClicked, this,
          [this](const QModelIndex& cell) { emit rowOpened(model_.gridRow(cell.row())); });
}

TextGrid FlexGrid::setGrid(TextGrid grid) {
  clearSpans();
  const bool known = sameHeader(this->grid(), grid);
  TextGrid before = model_.setGrid(std::move(grid));
  setCurrentIndex({});  // or the view would make the first row the current one as soon as it gets the focus
  shown_.reset();
  if (!known) {
    sort_.reset();
    header_->showSort(sort_);
  }
  if (sort_) model_.arrange(sortedRows());
  horizontalHeader()->setVisible(this->grid().headerRows() > 0);
  hideColumns();
  if (!known) setWidths();
  mergeCells();
  if (frozen_) frozen_->renew();
  emit replaced();
  return before;
}

void FlexGrid::addRows(TextGrid more) {
  const std::size_t first = grid().rows();
  model_.addRows(std::move(more));
  emit rowsAdded(first);
}

void FlexGrid::setText(std::size_t row, std::size_t column, std::string text) {
  model_.setText(row, column, std::move(text));
}

void FlexGrid::makeSortable() {
  connect(header_, &QHeaderView::sectionClicked, this,
          [this](int column) { sortBy(static_cast<std::size_t>(column)); });
}

void FlexGrid::sortBy(std::size_t column) {
  if (!sort_ || sort_->column != column) {
    sort_ = GridSort{column, false};
  } else if (!sort_->descending) {
    sort_->descending = true;
  } else {
    sort_.reset();
  }
  header_->showSort(sort_);
  arrange();
}

void FlexGrid::sortRowsAgain() {
  if (sort_) arrange();
}

void FlexGrid::showOnly(std::optional<std::vector<std::uint32_t>> rows) {
  if (!rows && !shown_) return;
  shown_ = std::move(rows);
  arrange();
}

std::optional<std::size_t> FlexGrid::firstShownRow() const {
  if (model_.rowCount() == 0) return std::nullopt;
  return model_.gridRow(0);
}

void FlexGrid::arrange() {
  const auto row = currentGridRow();
  const int column = currentIndex().column();
  if (shown_ || sort_) {
    model_.arrange(sortedRows());
  } else {
    model_.arrange(std::nullopt);
  }
  if (row && model_.viewRow(*row) >= 0) makeCurrent(model_.index(model_.viewRow(*row), column));
  emit arranged();
}

/// The rows to be shown in their order; totals come below all others, or not at all.
std::vector<std::uint32_t> FlexGrid::sortedRows() const {
  std::vector<std::uint32_t> rows = shown_ ? *shown_ : model_.allRows();
  const auto totals = std::ranges::stable_partition(rows, [this](auto row) { return !grid().isTotal(row); });
  const std::vector<std::uint32_t> last(totals.begin(), totals.end());
  rows.erase(totals.begin(), totals.end());
  if (sort_) sortRows(grid(), *sort_, rows);
  if (!shown_) rows.insert(rows.end(), last.begin(), last.end());
  return rows;
}

void FlexGrid::freezeFirstColumn() {
  frozen_ = new FrozenColumn(*this, model_);
  frozen_->renew();
}

void FlexGrid::fitColumns() {
  fit_ = Fit::Texts;
  setWidths();
}

void FlexGrid::widenColumns() {
  fit_ = std::max(fit_, Fit::AtLeastTexts);
  widenForTexts();
}

void FlexGrid::widenForTexts() {
  for (std::size_t column = 0; column < grid().columns(); ++column) {
    if (grid().columnHidden(column)) continue;
    const int view = static_cast<int>(column);
    const int needed = widthNeeded(column);
    if (filling_ && filling_->column == view) {
      filling_->least = std::max(filling_->least, needed);
    } else {
      setColumnWidth(view, std::max(columnWidth(view), needed));
    }
  }
  fillRoom();
}

/// Of the heading, of the first rows, of the longest text further below and of the totals.
int FlexGrid::widthNeeded(std::size_t column) const {
  const std::size_t header = grid().headerRows();
  QFont bold = font();
  bold.setBold(true);
  const QFontMetrics totals(bold);
  int widest = 0;
  if (header > 0) {
    const QFontMetrics letters = grid().bold(header - 1, column) ? totals : fontMetrics();
    widest = letters.horizontalAdvance(toQt(grid().text(header - 1, column))) + kRoomForArrow;
  }
  std::size_t longest = 0;
  for (std::size_t row = header; row < grid().rows(); ++row) {
    const std::string& text = grid().text(row, column);
    const bool isLonger = text.size() > longest;
    if (isLonger) longest = text.size();
    if (text.empty() || (row >= header + kRowsMeasured && !isLonger && !grid().isTotal(row))) continue;
    const QFontMetrics letters = grid().isTotal(row) ? totals : fontMetrics();
    widest = std::max(widest, letters.horizontalAdvance(toQt(text)));
  }
  return std::min(widest + kCellPadding, kWidestFitted);
}

void FlexGrid::fillWith(std::size_t column) {
  const int view = static_cast<int>(column);
  filling_ = Filling{view, columnWidth(view)};
  fillRoom();
}

void FlexGrid::fillRoom() {
  if (!filling_ || isColumnHidden(filling_->column)) return;
  const int others = horizontalHeader()->length() - columnWidth(filling_->column);
  setColumnWidth(filling_->column, std::max(filling_->least, viewport()->width() - others));
}

void FlexGrid::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  fillRoom();
  if (frozen_) frozen_->place();
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
  if (const int shown = model_.viewRow(row); shown >= 0) {
    makeCurrent(model_.index(shown, std::max(currentIndex().column(), 0)));
  }
}

void FlexGrid::selectCell(std::size_t row, std::size_t column) {
  makeCurrent(cellIndex(row, column));
}

/// It alone is selected, whichever keys are held down.
void FlexGrid::makeCurrent(const QModelIndex& cell) {
  selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

QModelIndex FlexGrid::cellIndex(std::size_t row, std::size_t column) const {
  return model_.index(model_.viewRow(row), static_cast<int>(column));
}

QString FlexGrid::selectedText() const {
  QModelIndexList rows = selectionModel()->selectedRows();
  std::ranges::sort(rows, {}, &QModelIndex::row);
  QString text;
  for (const QModelIndex& place : rows) {
    QString line;
    for (std::size_t column = 0; column < grid().columns(); ++column) {
      if (isColumnHidden(static_cast<int>(column))) continue;
      line += (line.isNull() ? "" : "\t") + cellText(grid().text(model_.gridRow(place.row()), column));
    }
    text += line + '\n';
  }
  return text;
}

void FlexGrid::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) {
    if (selectionModel()->hasSelection()) QApplication::clipboard()->setText(selectedText());
    return;
  }
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  const auto row = currentGridRow();
  if (!enter || !row) return QTableView::keyPressEvent(event);
  emit rowOpened(*row);
}

/// One letter alone goes on to the next row that begins with it; more of them stay where they fit.
void FlexGrid::keyboardSearch(const QString& typed) {
  if (typed.isEmpty() || !typed.at(0).isPrint() || model_.rowCount() == 0) return;
  const bool goesOn = sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
  typed_ = goesOn ? typed_ + typed : typed;
  sinceTyped_.restart();
  const std::string sought = LCase(fromQt(typed_));
  const std::size_t column = firstShownColumn(grid());
  const int rows = model_.rowCount();
  const int from =
      std::max(currentIndex().row(), -1) + (typed_.size() > 1 && currentIndex().isValid() ? 0 : 1);
  for (int step = 0; step < rows; ++step) {
    const int row = (from + step) % rows;
    if (beginsWith(LCase(grid().text(model_.gridRow(row), column)), sought)) {
      return makeCurrent(model_.index(row, static_cast<int>(column)));
    }
  }
}

/// A cell below the frozen column is not in sight.
void FlexGrid::scrollTo(const QModelIndex& cell, ScrollHint hint) {
  QTableView::scrollTo(cell, hint);
  if (!frozen_ || visualRect(cell).left() >= frozen_->covered()) return;
  QScrollBar& bar = *horizontalScrollBar();
  bar.setValue(bar.value() + visualRect(cell).left() - frozen_->covered());
}

void FlexGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  if (current.isValid() && current.row() != previous.row()) emit rowSelected(model_.gridRow(current.row()));
}

/// Ctrl with an arrow would move the current row away from the selected ones.
QItemSelectionModel::SelectionFlags FlexGrid::selectionCommand(const QModelIndex& cell,
                                                               const QEvent* event) const {
  const auto command = QTableView::selectionCommand(cell, event);
  const bool movesAlone =
      command == QItemSelectionModel::NoUpdate && event && event->type() == QEvent::KeyPress;
  return movesAlone ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows : command;
}

/// What commands are about must be seen to be selected, whatever rows Ctrl has taken out.
void FlexGrid::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTableView::selectionChanged(selected, deselected);
  const QModelIndex current = currentIndex();
  if (!current.isValid() || !selectionModel()->hasSelection()) return;
  if (selectionModel()->isSelected(current)) return;
  const int row = selectionModel()->selection().constLast().bottom();
  selectionModel()->setCurrentIndex(model_.index(row, current.column()), QItemSelectionModel::NoUpdate);
}

void FlexGrid::setWidths() {
  const auto least = [this](std::size_t column) {
    return fit_ == Fit::Texts ? 0 : pixelsOf(grid().columnWidth(column), *this);
  };
  for (std::size_t column = 0; column < grid().columns(); ++column) {
    setColumnWidth(static_cast<int>(column), least(column));
    if (filling_ && filling_->column == static_cast<int>(column)) filling_->least = least(column);
  }
  if (fit_ != Fit::AsTold) widenForTexts();
}

void FlexGrid::hideColumns() {
  for (std::size_t column = 0; column < grid().columns(); ++column) {
    setColumnHidden(static_cast<int>(column), grid().columnHidden(column));
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
