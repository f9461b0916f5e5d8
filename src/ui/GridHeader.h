#pragma once

#include <cstddef>
#include <QHeaderView>

#include "ui/GridModel.h"

namespace zelkor {

/// The header rows of a grid above its columns: as many lines as there are, equal neighbours shown as one.
class GridHeader final : public QHeaderView {
 public:
  explicit GridHeader(const GridModel& model, QWidget* parent = nullptr);

  QSize sizeHint() const override;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;

 private:
  int lineHeight() const;
  void paintCell(QPainter& painter, std::size_t row, std::size_t column) const;

  const GridModel& model_;
};

}  // namespace zelkor
