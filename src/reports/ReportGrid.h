#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/TextGrid.h"
#include "base/Value.h"
#include "reports/ReportColumns.h"

namespace zelkor {

/// The rows of a report's grid: the header by its columns, one row or two, and below it the data.
class ReportRows {
 public:
  std::size_t firstRow() const { return grid_.headerRows(); }
  std::size_t rows() const { return grid_.rows(); }
  std::size_t addRow() { return grid_.addRow(); }
  std::size_t addTotal() {
    const std::size_t row = addRow();
    grid_.setTotal(row);
    return row;
  }
  /// Adds the cells of `row` to those of `totalRow`, read from their texts, as the columns' totals say.
  void addToTotals(std::size_t totalRow, std::size_t row);

 protected:
  /// The grid gets these columns and their captions, and nothing else.
  ReportRows(TextGrid& grid, std::span<const ReportColumn> columns);
  /// Further columns as those from `first` to `last` are, under another upper caption.
  void repeatColumns(std::size_t first, std::size_t last, const std::string& upper);

  TextGrid& grid_;

 private:
  void writeHeader(std::span<const ReportColumn> columns, std::string_view ReportColumn::*caption);

  std::vector<Total> totals_;
};

/// Fills a report's grid cell by cell. Amounts are texts of two decimals, and totals are added up from the
/// texts above.
template <typename Columns>
class ReportGrid : public ReportRows {
 public:
  using Column = typename Columns::Column;

  ReportGrid(TextGrid& grid, const Columns& columns) : ReportRows(grid, columns.all()) {}

  void hide(Column column) {
    grid_.setColumnWidth(column.index(), 0);
    grid_.setColumnHidden(column.index(), true);
  }
  /// Further columns as those from `first` to `last` are, under another upper caption. Returns how many
  /// columns lie between each of them and the one that it repeats.
  std::size_t repeat(Column first, Column last, const std::string& upper) {
    const std::size_t distance = grid_.columns() - first.index();
    repeatColumns(first.index(), last.index(), upper);
    return distance;
  }

  const std::string& text(std::size_t row, Column column) const { return grid_.text(row, column.index()); }
  /// The number that the cell's text begins with.
  double amount(std::size_t row, Column column) const { return Val(text(row, column)); }
  void put(std::size_t row, Column column, std::string text) {
    grid_.setText(row, column.index(), std::move(text));
  }
  /// With two decimals; Null leaves the cell empty.
  void putAmount(std::size_t row, Column column, const Value& amount) {
    put(row, column, Format(amount, "0.00"));
  }
  /// As a plain number, unrounded.
  void putNumber(std::size_t row, Column column, double number) { put(row, column, textOfDouble(number)); }

  /// A last row with that label and the totals of all rows above. Returns its number.
  std::size_t addTotalRow(Column labelled, const std::string& label) {
    const std::size_t total = addTotal();
    put(total, labelled, label);
    for (std::size_t row = firstRow(); row < total; ++row) addToTotals(total, row);
    return total;
  }
};

}  // namespace zelkor
