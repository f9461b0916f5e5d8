#include "ui/StripedCells.h"

#include <algorithm>
#include <QPainter>
#include <QTableView>

namespace zelkor {
namespace {

/// The rows of the merged cell that are in sight.
void paintStripes(QPainter& painter, const QStyleOptionViewItem& option, const QTableView& table, int first,
                  int last) {
  for (int row = std::max(first, table.rowAt(0)); row <= last; ++row) {
    const int top = table.rowViewportPosition(row);
    if (top > table.viewport()->height()) return;
    const bool selected = table.selectionModel()->isRowSelected(row);
    const auto role = selected                                       ? QPalette::Highlight
                      : table.alternatingRowColors() && row % 2 == 1 ? QPalette::AlternateBase
                                                                     : QPalette::Base;
    painter.fillRect(option.rect.left(), top, option.rect.width(), table.rowHeight(row),
                     option.palette.color(role));
  }
}

}  // namespace

void StripedCells::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  const auto* table = qobject_cast<const QTableView*>(option.widget);
  const int rows = table ? table->rowSpan(index.row(), index.column()) : 1;
  if (rows < 2) return QStyledItemDelegate::paint(painter, option, index);
  paintStripes(*painter, option, *table, index.row(), index.row() + rows - 1);
  QStyleOptionViewItem text = option;
  text.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
  QStyledItemDelegate::paint(painter, text, index);
}

}  // namespace zelkor
