#include "base/GridSpans.h"

namespace zelkor {

CellSpan mergedCells(const TextGrid& grid, std::size_t row, std::size_t column, std::size_t firstRow,
                     std::size_t lastRow) {
  CellSpan span{row, column, row, column};
  const std::string& text = grid.text(row, column);
  if (grid.rowMerged(row)) {
    while (span.firstColumn > 0 && grid.text(row, span.firstColumn - 1) == text) --span.firstColumn;
    while (span.lastColumn + 1 < grid.columns() && grid.text(row, span.lastColumn + 1) == text) {
      ++span.lastColumn;
    }
  }
  const bool mergesDown = grid.columnMerged(column) || row < grid.headerRows();
  if (span.firstColumn != span.lastColumn || !mergesDown) return span;
  while (span.firstRow > firstRow && grid.text(span.firstRow - 1, column) == text) --span.firstRow;
  while (span.lastRow < lastRow && grid.text(span.lastRow + 1, column) == text) ++span.lastRow;
  return span;
}

CellSpan shownCells(const TextGrid& grid, std::size_t row, std::size_t column, std::size_t firstRow,
                    std::size_t lastRow) {
  CellSpan span = mergedCells(grid, row, column, firstRow, lastRow);
  while (span.firstColumn < column && grid.columnHidden(span.firstColumn)) ++span.firstColumn;
  while (span.lastColumn > column && grid.columnHidden(span.lastColumn)) --span.lastColumn;
  return span;
}

}  // namespace zelkor
