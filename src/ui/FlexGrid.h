#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <QElapsedTimer>
#include <QTableView>
#include <string>
#include <vector>

#include "base/GridSpans.h"
#include "base/TextGrid.h"
#include "ui/GridModel.h"
#include "ui/GridSort.h"

namespace zelkor {

class FrozenColumn;
class GridHeader;

/// Shows a text grid: header rows, column widths, alignment, merging, hidden rows and columns as the grid has
/// them. Rows are selected whole, several by Shift and Ctrl; the current one is always among them, and is
/// what commands are about. Ctrl+C copies the selected rows. Columns can be resized. Row numbers are those of
/// the grid, its header rows counted, in whatever order the rows are shown.
///
/// Typing goes to the row whose first column begins like that.
class FlexGrid final : public QTableView {
  Q_OBJECT

 public:
  explicit FlexGrid(QWidget* parent = nullptr);

  const TextGrid& grid() const { return model_.grid(); }
  /// Shows another content; nothing is selected then. Column widths are the grid's, but they and the column
  /// by which rows are sorted stay as they are under the same header. Gives the content that was shown
  /// before.
  TextGrid setGrid(TextGrid grid);
  /// Adds rows below, sorted in by `sortRowsAgain` only; the selection stays. They may be neither merged nor
  /// hidden.
  void addRows(TextGrid more);
  void setText(std::size_t row, std::size_t column, std::string text);

  /// A click on a heading sorts by its column, a second one the other way round, a third one brings the
  /// grid's own order back. Totals stay below. Not for grids with merged cells.
  void makeSortable();
  void sortRowsAgain();
  /// Shows these rows alone, totals left out; all of them without any. The current row stays so while it is
  /// among them.
  void showOnly(std::optional<std::vector<std::uint32_t>> rows);
  /// The first row that is shown.
  std::optional<std::size_t> firstShownRow() const;

  /// The first column stays in place when the others are moved.
  void freezeFirstColumn();
  /// Makes the columns as wide as their texts, those of another header later, too: for grids that give no
  /// widths of their own.
  void fitColumns();
  /// Widens the columns that are too narrow for their texts, those of another header later, too.
  void widenColumns();
  /// The column takes the room that the others leave, at least what it has now.
  void fillWith(std::size_t column);

  /// Row (and column) of the current cell.
  std::optional<std::size_t> currentGridRow() const;
  std::optional<std::size_t> currentGridColumn() const;
  /// All selected rows from top to bottom, where the view lets several be selected.
  std::vector<std::size_t> selectedGridRows() const;
  /// Makes the row the current one; nothing happens where it is not shown.
  void selectGridRow(std::size_t row);
  void selectCell(std::size_t row, std::size_t column);
  /// The cell as the view's index.
  QModelIndex cellIndex(std::size_t row, std::size_t column) const;
  /// The selected rows as they are shown: cells parted by tabs, a line each. A tab or a line break within a
  /// text is a blank.
  QString selectedText() const;

  void keyboardSearch(const QString& typed) override;
  void scrollTo(const QModelIndex& cell, ScrollHint hint = EnsureVisible) override;

 signals:
  /// Another row has become the current one.
  void rowSelected(std::size_t row);
  /// A row was opened: double click or Enter.
  void rowOpened(std::size_t row);
  /// Another content is shown.
  void replaced();
  /// Rows have come below, from this one on.
  void rowsAdded(std::size_t first);
  /// Other rows are shown, or in another order; there may be no current one now.
  void arranged();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& cell,
                                                       const QEvent* event) const override;
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void makeCurrent(const QModelIndex& cell);
  void sortBy(std::size_t column);
  void arrange();
  std::vector<std::uint32_t> sortedRows() const;
  void setWidths();
  void widenForTexts();
  int widthNeeded(std::size_t column) const;
  void fillRoom();
  void hideColumns();
  void mergeCells();
  void mergeRow(std::size_t row);
  void mergeColumn(std::size_t column);
  void showAsOne(const CellSpan& cells);

  GridModel model_;
  GridHeader* header_;
  FrozenColumn* frozen_ = nullptr;
  std::optional<GridSort> sort_;
  std::optional<std::vector<std::uint32_t>> shown_;  // the rows shown alone
  struct Filling {
    int column;
    int least;  // pixels
  };
  enum class Fit { AsTold, AtLeastTexts, Texts };
  Fit fit_ = Fit::AsTold;
  std::optional<Filling> filling_;
  QString typed_;
  QElapsedTimer sinceTyped_;
};

}  // namespace zelkor
