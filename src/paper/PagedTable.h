#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/GridSpans.h"
#include "paper/CarriedSums.h"
#include "paper/ColumnFit.h"
#include "paper/MarginLines.h"
#include "paper/PaperTable.h"
#include "paper/TextWidths.h"

namespace zelkor {

/// A table on its pages. Texts are broken into lines, no letter of the table is smaller than kSmallestSize,
/// and nothing is cut: columns that do not fit go on on pages beside, rows on pages below, a total with the
/// row above it. A page that begins within a group of rows names it. Table and widths must outlive it.
class PagedTable {
 public:
  PagedTable(const PaperTable& table, PageSize size, TextWidths& widths);

  std::size_t pages() const { return starts_.size() * fit_.bands.size(); }
  PageSize size() const { return size_; }
  /// The page of that number, from 0: first those beside each other, then those below.
  Page page(std::size_t number) const;

 private:
  /// Where a page begins: a body row, the first of its lines that is there, and what was carried over.
  struct Start {
    std::size_t row = 0;
    std::size_t line = 0;
    std::vector<std::string> carried;
  };
  /// A cell of the header on the pages of a band, from a column of it to another.
  struct HeaderCell {
    CellSpan span;
    std::size_t first;
    std::size_t last;
  };
  class Drawing;

  void findColumns();
  void fitWidths();
  ColumnNeed needOf(std::size_t column, const CarriedSums& sums);
  void addCaptions(std::size_t column, ColumnNeed& need);
  void addTexts(std::size_t column, ColumnNeed& need);
  bool hasGroups() const;
  void setMargins();
  std::string pageNumber(std::size_t number) const;
  std::vector<HeaderCell> headerCells(const std::vector<std::size_t>& band) const;
  double headerWidth(const std::vector<std::size_t>& band, const HeaderCell& cell) const;
  void fitHeader();
  std::size_t linesIn(double height) const;
  bool leavesTotalAlone(std::size_t place, std::size_t lines, double room, double page) const;
  void paginate();
  void spareLastPage();
  std::size_t lineCount(std::size_t row) const;
  std::vector<std::string_view> cellLines(std::size_t row, std::size_t place) const;

  double bodyTop() const;
  double bodyBottom() const;
  double rowHeight(std::size_t lines) const;
  double headerBegin(std::size_t row) const;
  double innerWidth(std::size_t place) const;

  const PaperTable& table_;
  const TextGrid& grid_;
  TextWidths& widths_;
  PageSize size_;
  std::vector<std::size_t> columns_;  // that are shown
  std::vector<std::size_t> rows_;     // of the body that are shown
  ColumnFit fit_;
  MarginBlock head_;
  MarginBlock foot_;
  std::vector<double> headerHeights_;
  std::vector<Start> starts_;
  double lastUsed_ = 0;  // of the body's height, on the last pages
};

}  // namespace zelkor
