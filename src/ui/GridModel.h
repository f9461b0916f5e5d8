#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <QAbstractTableModel>
#include <vector>

#include "base/TextGrid.h"

namespace zelkor {

/// The rows of a grid below its header rows, as a table view reads them: cell by cell, nothing is copied.
/// Hidden rows are left out; the others are in the grid's order, or in one of their own.
class GridModel final : public QAbstractTableModel {
 public:
  using QAbstractTableModel::QAbstractTableModel;

  const TextGrid& grid() const { return grid_; }
  /// Shows another grid, in its order. Gives the one that was shown before.
  TextGrid setGrid(TextGrid grid);
  /// The rows come after those that are shown.
  void addRows(TextGrid more);
  void setText(std::size_t row, std::size_t column, std::string text);
  /// Shows these rows of the grid alone, in this order; without any, all that are not hidden in the grid's.
  void arrange(std::optional<std::vector<std::uint32_t>> rows);
  /// The rows that the grid itself shows: those below the header that are not hidden.
  std::vector<std::uint32_t> allRows() const;

  /// Row of the grid that a row of the view shows, and the other way; -1 for one that is not shown.
  std::size_t gridRow(int viewRow) const;
  int viewRow(std::size_t gridRow) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  void order(std::optional<std::vector<std::uint32_t>> rows);

  TextGrid grid_;
  std::optional<std::vector<std::uint32_t>>
      order_;                // rows of the grid; none while all stand as they are there
  std::vector<int> places_;  // where each row of the grid is in it
};

}  // namespace zelkor
