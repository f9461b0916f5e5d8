#include "reports/ReportGrid.h"

#include "base/Conversion.h"
#include "base/Format.h"

namespace zelkor {

ReportGrid::ReportGrid(TextGrid& grid, std::initializer_list<int> widths, std::size_t firstAmount,
                       Align amounts)
    : grid_(grid) {
  grid_ = TextGrid(0, widths.size());
  std::size_t column = 0;
  for (const int width : widths) {
    grid_.setColumnWidth(column, width);
    grid_.setAlignment(column, column < firstAmount ? Align::Left : amounts);
    ++column;
  }
}

void ReportGrid::addHeader(const std::vector<std::string>& captions) {
  const std::size_t row = grid_.addRow(captions);
  grid_.setHeaderRows(row + 1);
  grid_.setRowMerged(row, true);
  for (std::size_t column = 0; column < grid_.columns(); ++column) {
    grid_.setBold(row, column, true);
    grid_.setCentred(row, column, true);
  }
}

void ReportGrid::mergeColumns(std::initializer_list<std::size_t> columns) {
  for (const std::size_t column : columns) grid_.setColumnMerged(column, true);
}

void ReportGrid::putAmount(std::size_t row, std::size_t column, const Value& amount) {
  put(row, column, Format(amount, "0.00"));
}

void ReportGrid::putNumber(std::size_t row, std::size_t column, double number) {
  put(row, column, textOfDouble(number));
}

double ReportGrid::amount(std::size_t row, std::size_t column) const {
  return Val(text(row, column));
}

void ReportGrid::addToTotal(std::size_t totalRow, std::size_t row, std::size_t column) {
  putAmount(totalRow, column, amount(totalRow, column) + amount(row, column));
}

void ReportGrid::addPlainToTotal(std::size_t totalRow, std::size_t row, std::size_t column) {
  putNumber(totalRow, column, amount(totalRow, column) + amount(row, column));
}

}  // namespace zelkor
