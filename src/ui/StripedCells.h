#pragma once

#include <QStyledItemDelegate>

namespace zelkor {

/// Paints the cells of a table; the stripes of its rows, and the selected ones, run on through a cell that
/// is merged over several.
class StripedCells final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

}  // namespace zelkor
