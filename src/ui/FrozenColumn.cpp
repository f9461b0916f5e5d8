#include "ui/FrozenColumn.h"

#include <QHeaderView>
#include <QScrollBar>

#include "ui/FlexGrid.h"
#include "ui/GridHeader.h"
#include "ui/StripedCells.h"

namespace zelkor {

FrozenColumn::FrozenColumn(FlexGrid& grid, const GridModel& model) : QTableView(&grid), grid_(grid) {
  setHorizontalHeader(new GridHeader(model, this));
  setModel(grid.model());
  setSelectionModel(grid.selectionModel());
  setItemDelegate(new StripedCells(this));
  setFocusPolicy(Qt::NoFocus);
  setAttribute(Qt::WA_TransparentForMouseEvents);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setStyleSheet("QTableView { border: none; border-right: 2px solid #b9c3cd; }");
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(grid.verticalHeader()->defaultSectionSize());
  hide();
  connect(grid.verticalScrollBar(), &QScrollBar::valueChanged, verticalScrollBar(), &QScrollBar::setValue);
  connect(grid.horizontalScrollBar(), &QScrollBar::valueChanged, this, &FrozenColumn::place);
  connect(grid.horizontalHeader(), &QHeaderView::sectionResized, this, &FrozenColumn::place);
}

void FrozenColumn::renew() {
  column_ = 0;
  while (column_ + 1 < model()->columnCount() && grid_.isColumnHidden(column_)) ++column_;
  for (int column = 0; column < model()->columnCount(); ++column) setColumnHidden(column, column != column_);
  clearSpans();
  const bool merged =
      model()->columnCount() > 0 && grid_.grid().columnMerged(static_cast<std::size_t>(column_));
  for (int row = 0; merged && row < model()->rowCount();) {
    const int rows = grid_.rowSpan(row, column_);
    if (rows > 1) setSpan(row, column_, rows, 1);
    row += rows;
  }
  place();
}

void FrozenColumn::place() {
  constexpr int kEdge = 2;
  setVisible(grid_.horizontalScrollBar()->value() > 0);
  if (isHidden()) return;
  setColumnWidth(column_, grid_.columnWidth(column_));
  const QRect cells = grid_.viewport()->geometry();
  const int header = grid_.horizontalHeader()->isVisible() ? grid_.horizontalHeader()->height() : 0;
  setGeometry(cells.left(), cells.top() - header, grid_.columnWidth(column_) + kEdge,
              cells.height() + header);
  verticalScrollBar()->setValue(grid_.verticalScrollBar()->value());
}

}  // namespace zelkor
