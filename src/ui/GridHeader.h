#pragma once

#include <cstddef>
#include <optional>
#include <QHeaderView>

#include "ui/GridModel.h"
#include "ui/GridSort.h"

namespace zelkor {

/// The header rows of a grid above its columns: as many lines as there are, equal neighbours shown as one.
class GridHeader final : public QHeaderView {
 public:
  explicit GridHeader(const GridModel& model, QWidget* parent = nullptr);

  QSize sizeHint() const override;
  /// Marks the column by which the rows are arranged with an arrow.
  void showSort(std::optional<GridSort> sort);

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;

 private:
  int lineHeight() const;
  void paintCell(QPainter& painter, std::size_t row, std::size_t column) const;
  void paintArrow(QPainter& painter, const QRect& section) const;

  const GridModel& model_;
  std::optional<GridSort> sort_;
};

}  // namespace zelkor
