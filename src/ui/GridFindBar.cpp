#include "ui/GridFindBar.h"

#include <utility>

#include "ui/Texts.h"

namespace zelkor {

GridFindBar::GridFindBar(FlexGrid& grid, const QString& hint, RowText textOf, QWidget* form)
    : FindBar(grid, hint, form), grid_(grid), textOf_(std::move(textOf)) {
  grid.makeSortable();
  connect(&grid, &FlexGrid::replaced, this, [this] {
    forgetTexts();
    searchNewRows();
  });
  connect(&grid, &FlexGrid::rowsAdded, this, &GridFindBar::searchNewRows);
}

void GridFindBar::forgetTexts() {
  texts_ = {};
}

void GridFindBar::searchNewRows() {
  if (!text().trimmed().isEmpty()) searchAgain();
}

QString GridFindBar::search(const QString& text) {
  if (text.trimmed().isEmpty()) {
    grid_.showOnly(std::nullopt);
    return {};
  }
  const std::size_t header = grid_.grid().headerRows();
  for (std::size_t row = header + texts_.rows(); row < grid_.grid().rows(); ++row) {
    texts_.add(grid_.grid().isTotal(row) || grid_.grid().rowHidden(row) ? std::string() : textOf_(row));
  }
  std::vector<std::uint32_t> found = texts_.find(fromQt(text));
  for (std::uint32_t& row : found) row += static_cast<std::uint32_t>(header);
  const std::size_t count = found.size();
  grid_.showOnly(std::move(found));
  if (const auto first = grid_.firstShownRow(); first && !grid_.currentGridRow()) grid_.selectGridRow(*first);
  return count == 0 ? QString("没有找到") : QString("找到 %1 行").arg(count);
}

void GridFindBar::step(int direction) {
  const QModelIndex current = grid_.currentIndex();
  const QModelIndex next = current.siblingAtRow(current.row() + direction);
  if (next.isValid())
    grid_.selectionModel()->setCurrentIndex(next,
                                            QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void GridFindBar::take() {
  if (const auto row = grid_.currentGridRow()) emit grid_.rowOpened(*row);
}

}  // namespace zelkor
