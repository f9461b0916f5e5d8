#include "reports/ReportGrid.h"

#include <algorithm>

namespace zelkor {

ReportRows::ReportRows(TextGrid& grid, std::span<const ReportColumn> columns) : grid_(grid) {
  grid_ = TextGrid(0, columns.size());
  for (std::size_t i = 0; i < columns.size(); ++i) {
    grid_.setColumnWidth(i, columns[i].width);
    grid_.setAlignment(i, columns[i].align);
    grid_.setColumnMerged(i, columns[i].merged);
    totals_.push_back(columns[i].total);
  }
  const auto hasUpper = [](const ReportColumn& column) { return column.upper != column.caption; };
  if (std::ranges::any_of(columns, hasUpper)) writeHeader(columns, &ReportColumn::upper);
  writeHeader(columns, &ReportColumn::caption);
}

void ReportRows::writeHeader(std::span<const ReportColumn> columns, std::string_view ReportColumn::*caption) {
  const std::size_t row = grid_.addRow();
  grid_.setHeaderRows(row + 1);
  grid_.setRowMerged(row, true);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    grid_.setText(row, i, std::string(columns[i].*caption));
    grid_.setBold(row, i, true);
    grid_.setCentred(row, i, true);
  }
}

void ReportRows::repeatColumns(std::size_t first, std::size_t last, const std::string& upper) {
  for (std::size_t like = first; like <= last; ++like) {
    const std::size_t column = grid_.columns();
    grid_.resize(grid_.rows(), column + 1);
    grid_.setColumnWidth(column, grid_.columnWidth(like));
    grid_.setAlignment(column, grid_.alignment(like));
    totals_.push_back(totals_[like]);
    for (std::size_t row = 0; row < firstRow(); ++row) {
      grid_.setText(row, column, row + 1 < firstRow() ? upper : grid_.text(row, like));
      grid_.setBold(row, column, true);
      grid_.setCentred(row, column, true);
    }
  }
}

void ReportRows::addToTotals(std::size_t totalRow, std::size_t row) {
  for (std::size_t column = 0; column < totals_.size(); ++column) {
    const auto sum = [&] { return Val(grid_.text(totalRow, column)) + Val(grid_.text(row, column)); };
    switch (totals_[column]) {
      case Total::None:
        break;
      case Total::Amount:
        grid_.setText(totalRow, column, Format(sum(), "0.00"));
        break;
      case Total::Number:
        grid_.setText(totalRow, column, textOfDouble(sum()));
        break;
      case Total::Last:
        grid_.setText(totalRow, column, grid_.text(row, column));
        break;
    }
  }
}

}  // namespace zelkor
