#pragma once

#include <cstddef>
#include <optional>
#include <QTableView>
#include <string>
#include <vector>

#include "base/GridSpans.h"
#include "base/TextGrid.h"
#include "ui/GridModel.h"

namespace zelkor {

/// Shows a text grid: header rows, column widths, alignment, merging, hidden rows and columns as the grid has
/// them. Rows are selected whole; columns can be resized. Row numbers count the grid's header rows.
class FlexGrid final : public QTableView {
  Q_OBJECT

 public:
  explicit FlexGrid(QWidget* parent = nullptr);

  const TextGrid& grid() const { return model_.grid(); }
  /// Shows another content; nothing is selected then. Column widths are the grid's, but stay as they are
  /// under the same header. Gives the content that was shown before.
  TextGrid setGrid(TextGrid grid);
  /// Adds rows below; the selection stays. They may be neither merged nor hidden.
  void addRows(TextGrid more);
  void setText(std::size_t row, std::size_t column, std::string text);
  /// Widens the columns to their texts, for grids that give no widths of their own.
  void fitColumns();

  /// Row (and column) of the current cell.
  std::optional<std::size_t> currentGridRow() const;
  std::optional<std::size_t> currentGridColumn() const;
  /// All selected rows from top to bottom, where the view lets several be selected.
  std::vector<std::size_t> selectedGridRows() const;
  void selectGridRow(std::size_t row);
  void selectCell(std::size_t row, std::size_t column);
  /// The cell as the view's index.
  QModelIndex cellIndex(std::size_t row, std::size_t column) const;

 signals:
  /// Another row has become the current one.
  void rowSelected(std::size_t row);
  /// A row was opened: double click or Enter.
  void rowOpened(std::size_t row);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void setWidths();
  void hideColumns();
  void hideRows();
  void mergeCells();
  void mergeRow(std::size_t row);
  void mergeColumn(std::size_t column);
  void showAsOne(const CellSpan& cells);

  GridModel model_;
};

}  // namespace zelkor
