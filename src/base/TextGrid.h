#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor {

enum class Align { Left, Center, Right };

/// A table of text cells with what is needed to show or print it: column widths in twips (1/1440 inch),
/// alignment, hidden columns and rows, header rows, totals, merging of equal neighbours by row and by column.
/// Rows and columns count from 0; reading a cell outside the grid is error 9.
class TextGrid {
 public:
  TextGrid() = default;
  TextGrid(std::size_t rows, std::size_t columns);

  std::size_t rows() const { return rows_.size(); }
  std::size_t columns() const { return columns_.size(); }
  void resize(std::size_t rows, std::size_t columns);
  /// Appends a row; cells that are not given stay empty, surplus cells widen the grid.
  std::size_t addRow(std::vector<std::string> cells = {});
  /// Appends the rows of another grid, header rows included, as they are; they widen this grid or are
  /// widened.
  void append(TextGrid more);
  void removeRow(std::size_t row);
  /// Drops every row below the header rows.
  void clearBody();

  const std::string& text(std::size_t row, std::size_t column) const;
  void setText(std::size_t row, std::size_t column, std::string text);

  /// Number of header rows at the top (0 or more).
  std::size_t headerRows() const { return headerRows_; }
  void setHeaderRows(std::size_t count) { headerRows_ = count; }
  /// One header row from captions joined by "|".
  void setHeader(std::string_view captions);

  int columnWidth(std::size_t column) const;  // twips
  void setColumnWidth(std::size_t column, int twips);
  Align alignment(std::size_t column) const;
  void setAlignment(std::size_t column, Align align);
  bool columnHidden(std::size_t column) const;
  void setColumnHidden(std::size_t column, bool hidden);
  bool rowHidden(std::size_t row) const;
  void setRowHidden(std::size_t row, bool hidden);
  /// Equal neighbouring cells of this row (column) are shown as one.
  bool rowMerged(std::size_t row) const;
  void setRowMerged(std::size_t row, bool merged);
  bool columnMerged(std::size_t column) const;
  void setColumnMerged(std::size_t column, bool merged);
  bool bold(std::size_t row, std::size_t column) const;
  void setBold(std::size_t row, std::size_t column, bool bold);
  bool centred(std::size_t row, std::size_t column) const;
  void setCentred(std::size_t row, std::size_t column, bool centred);
  /// A row of totals: shown bold, and it stays below the rows that it adds up, however those are arranged.
  bool isTotal(std::size_t row) const;
  void setTotal(std::size_t row);

 private:
  struct Cell {
    std::string text;
    bool bold = false;
    bool centred = false;
  };
  struct Row {
    std::vector<Cell> cells;
    bool hidden = false;
    bool merged = false;
    bool total = false;
  };
  struct Column {
    int width = 1000;
    Align align = Align::Left;
    bool hidden = false;
    bool merged = false;
  };
  const Cell& cell(std::size_t row, std::size_t column) const;
  Cell& cell(std::size_t row, std::size_t column);

  std::vector<Row> rows_;
  std::vector<Column> columns_;
  std::size_t headerRows_ = 0;
};

}  // namespace zelkor
