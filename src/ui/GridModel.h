#pragma once

#include <cstddef>
#include <QAbstractTableModel>

#include "base/TextGrid.h"

namespace zelkor {

/// The rows of a grid below its header rows, as a table view reads them: cell by cell, nothing is copied.
class GridModel final : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  const TextGrid& grid() const { return grid_; }
  /// Gives the grid that was shown before.
  TextGrid setGrid(TextGrid grid);
  void addRows(TextGrid more);
  void setText(std::size_t row, std::size_t column, std::string text);

  /// Row of the grid that a row of the view shows, and the other way.
  std::size_t gridRow(int viewRow) const { return static_cast<std::size_t>(viewRow) + grid_.headerRows(); }
  int viewRow(std::size_t gridRow) const { return static_cast<int>(gridRow - grid_.headerRows()); }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  TextGrid grid_;
};

}  // namespace zelkor
