#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "base/TextGrid.h"
#include "base/Value.h"

namespace zelkor {

/// Fills a report's grid cell by cell, the way all reports are built: amounts as text of two decimals, totals
/// added up from the texts above.
class ReportGrid {
 public:
  /// Column widths in twips; columns from `firstAmount` on are aligned as `amounts`.
  ReportGrid(TextGrid& grid, std::initializer_list<int> widths, std::size_t firstAmount,
             Align amounts = Align::Right);

  /// A further header row: bold and centred; equal neighbours are shown as one.
  void addHeader(const std::vector<std::string>& captions);
  /// Equal neighbours in these columns are shown as one.
  void mergeColumns(std::initializer_list<std::size_t> columns);

  std::size_t rows() const { return grid_.rows(); }
  std::size_t addRow() { return grid_.addRow(); }
  const std::string& text(std::size_t row, std::size_t column) const { return grid_.text(row, column); }
  void put(std::size_t row, std::size_t column, std::string text) {
    grid_.setText(row, column, std::move(text));
  }
  /// With two decimals; Null leaves the cell empty.
  void putAmount(std::size_t row, std::size_t column, const Value& amount);
  /// As a plain number, unrounded.
  void putNumber(std::size_t row, std::size_t column, double number);
  /// The number that the cell's text begins with.
  double amount(std::size_t row, std::size_t column) const;
  /// Adds the cell of `row` to that of `totalRow`, with two decimals.
  void addToTotal(std::size_t totalRow, std::size_t row, std::size_t column);
  /// The same with the sum as a plain number.
  void addPlainToTotal(std::size_t totalRow, std::size_t row, std::size_t column);

 private:
  TextGrid& grid_;
};

}  // namespace zelkor
