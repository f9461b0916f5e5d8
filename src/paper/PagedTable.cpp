#include "paper/PagedTable.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "paper/CellMeasures.h"
#include "paper/TextLines.h"

namespace zelkor {
namespace {

// Of the letters' size.
constexpr double kLongestPiece = 20;  // a longer one is broken
constexpr double kWidestText = 22;    // a longer one has several lines
constexpr double kNarrowText = 6;     // to which a column of texts may shrink
constexpr double kNarrowCaption = 4;
constexpr double kUsualCaption = 8;

constexpr double kTitleSize = 15;   // points
constexpr double kFewestLines = 3;  // of a body, however high its header is
constexpr double kTwipsPerPoint = 20;
constexpr double kTolerance = 1e-6;

bool isOneLine(const std::string& text, double width, Face face, TextWidths& widths) {
  const auto breaks = [](char letter) { return letter == '\n' || letter == '\r'; };
  return widths.of(text, face) <= width + kTolerance && std::ranges::none_of(text, breaks);
}

}  // namespace

PageSize PageForm::size() const {
  const PageSize upright = paper == Paper::A4 ? PageSize{595.28, 841.89} : PageSize{841.89, 1190.55};
  return landscape ? PageSize{upright.height, upright.width} : upright;
}

PagedTable::PagedTable(const PaperTable& table, PageSize size, TextWidths& widths)
    : table_(table), grid_(table.grid), widths_(widths), size_(size) {
  findColumns();
  fitWidths();
  setMargins();
  fitHeader();
  paginate();
  spareLastPage();
}

void PagedTable::fitWidths() {
  CarriedSums sums(table_);
  for (const std::size_t row : rows_) sums.add(row);
  std::vector<ColumnNeed> needs;
  for (const std::size_t column : columns_) needs.push_back(needOf(column, sums));
  fit_ = fitColumns(needs, size_.width - 2 * kPageMargin);
}

void PagedTable::findColumns() {
  for (std::size_t column = 0; column < grid_.columns(); ++column) {
    if (!grid_.columnHidden(column)) columns_.push_back(column);
  }
  rows_.reserve(grid_.rows());
  for (std::size_t row = grid_.headerRows(); row < grid_.rows(); ++row) {
    if (!grid_.rowHidden(row)) rows_.push_back(row);
  }
}

ColumnNeed PagedTable::needOf(std::size_t column, const CarriedSums& sums) {
  ColumnNeed need;
  need.whole = need.least = widths_.of(sums.widest(column), Face::Bold);
  need.told = grid_.columnWidth(column) / kTwipsPerPoint;
  need.leads = grid_.alignment(column) == Align::Left;
  need.unit = column;
  addTexts(column, need);
  need.whole = std::min(need.whole, std::max(need.least, kWidestText));
  need.least = std::max(need.least, std::min(need.whole, kNarrowText));
  addCaptions(column, need);
  need.least += kCellMargins;
  need.whole = std::max(need.whole + kCellMargins, need.least);
  return need;
}

/// What is carried over is bold, whatever the cell is.
void PagedTable::addTexts(std::size_t column, ColumnNeed& need) {
  const bool carried = !table_.carried.empty() && table_.carried[column] != CarriedOver::Nothing;
  const double goesOn = column == columns_.front() && hasGroups() ? widths_.of(kGoesOn, Face::Regular) : 0;
  std::string_view before;
  Face faceBefore = Face::Regular;
  for (const std::size_t row : rows_) {
    const std::string& text = grid_.text(row, column);
    const Face face = carried ? Face::Bold : faceOf(grid_, row, column);
    if (text == before && face == faceBefore) continue;
    const double width = widths_.of(text, face) + goesOn;
    need.whole = std::max(need.whole, width);
    if (width > need.least) need.least = std::max(need.least, widestPiece(text, face, widths_));
    before = text;
    faceBefore = face;
  }
  need.least = std::min(need.least, kLongestPiece);
}

/// Whether there are rows whose first column is empty, as those of a group are below the one that names it.
bool PagedTable::hasGroups() const {
  return table_.carried.empty() && std::ranges::any_of(rows_, [this](std::size_t row) {
           return !grid_.isTotal(row) && grid_.text(row, columns_.front()).empty();
         });
}

/// A caption over several columns shares their width, and the first row's makes them a unit.
void PagedTable::addCaptions(std::size_t column, ColumnNeed& need) {
  for (std::size_t row = 0; row < grid_.headerRows(); ++row) {
    const CellSpan span = mergedCells(grid_, row, column, 0, grid_.headerRows() - 1);
    if (row == 0) need.unit = span.firstColumn;
    const auto shares = static_cast<double>(span.lastColumn - span.firstColumn + 1);
    const double width = widths_.of(grid_.text(row, column), Face::Bold) / shares;
    need.least = std::max(need.least, std::min(width, kNarrowCaption));
    need.whole = std::max(need.whole, std::min(width, kUsualCaption));
  }
}

std::string PagedTable::pageNumber(std::size_t number) const {
  std::string text = "第 " + std::to_string(number + 1) + " 页 共 " +
                     std::to_string(std::max<std::size_t>(1, pages())) + " 页";
  if (const std::size_t bands = fit_.bands.size(); bands > 1) {
    text += "（横向第 " + std::to_string(number % bands + 1) + " 幅，共 " + std::to_string(bands) + " 幅）";
  }
  return text;
}

void PagedTable::setMargins() {
  head_ = setTitle(table_.title, setLines(table_.head, size_.width, kMarginSize, widths_), size_.width,
                   kTitleSize, widths_);
  // The widest number that could come there is measured, so that all pages are alike.
  MarginLine foot = table_.foot;
  foot.centre = "第 0000000 页 共 0000000 页（横向第 000 幅，共 000 幅）";
  foot_ = setLines(std::span(&foot, 1), size_.width, kMarginSize, widths_);
  std::erase_if(foot_.texts, [&](const PlacedText& text) { return text.text == foot.centre; });
}

std::vector<PagedTable::HeaderCell> PagedTable::headerCells(const std::vector<std::size_t>& band) const {
  std::vector<HeaderCell> cells;
  for (std::size_t row = 0; row < grid_.headerRows(); ++row) {
    for (std::size_t i = 0; i < band.size();) {
      const CellSpan span = mergedCells(grid_, row, columns_[band[i]], 0, grid_.headerRows() - 1);
      std::size_t last = i;
      while (last + 1 < band.size() && columns_[band[last + 1]] <= span.lastColumn) ++last;
      if (span.firstRow == row) cells.push_back({span, i, last});
      i = last + 1;
    }
  }
  return cells;
}

double PagedTable::headerWidth(const std::vector<std::size_t>& band, const HeaderCell& cell) const {
  double width = 0;
  for (std::size_t i = cell.first; i <= cell.last; ++i) width += fit_.widths[band[i]];
  return width;
}

/// The rows of the header are as high on all pages as the highest cell makes them; one over several rows adds
/// to the last of these.
void PagedTable::fitHeader() {
  headerHeights_.assign(grid_.headerRows(), rowHeight(1));
  for (const bool single : {true, false}) {
    for (const auto& band : fit_.bands) {
      for (const HeaderCell& cell : headerCells(band)) {
        if ((cell.span.firstRow == cell.span.lastRow) != single) continue;
        const double inner = headerWidth(band, cell) / fit_.size - kCellMargins;
        const std::string& text = grid_.text(cell.span.firstRow, cell.span.firstColumn);
        const double needed = rowHeight(linesOf(text, inner, Face::Bold, widths_).size());
        const double there = headerBegin(cell.span.lastRow + 1) - headerBegin(cell.span.firstRow);
        if (needed > there) headerHeights_[cell.span.lastRow] += needed - there;
      }
    }
  }
}

double PagedTable::headerBegin(std::size_t row) const {
  return std::accumulate(headerHeights_.begin(), headerHeights_.begin() + static_cast<std::ptrdiff_t>(row),
                         0.0);
}

double PagedTable::bodyTop() const {
  return kPageMargin + head_.height + headerBegin(headerHeights_.size());
}

double PagedTable::bodyBottom() const {
  const double usual = size_.height - kPageMargin - foot_.height - 0.5 * kMarginSize;
  return std::max(usual, bodyTop() + kFewestLines * rowHeight(1));
}

double PagedTable::rowHeight(std::size_t lines) const {
  return (static_cast<double>(lines) * kLinePitch + kRowPadding) * fit_.size;
}

double PagedTable::innerWidth(std::size_t place) const {
  return fit_.widths[place] / fit_.size - kCellMargins;
}

std::vector<std::string_view> PagedTable::cellLines(std::size_t row, std::size_t place) const {
  const std::string& text = grid_.text(row, columns_[place]);
  const Face face = faceOf(grid_, row, columns_[place]);
  if (isOneLine(text, innerWidth(place), face, widths_)) return {text};
  return linesOf(text, innerWidth(place), face, widths_);
}

std::size_t PagedTable::lineCount(std::size_t row) const {
  std::size_t count = 1;
  for (std::size_t place = 0; place < columns_.size(); ++place) {
    const std::string& text = grid_.text(row, columns_[place]);
    const Face face = faceOf(grid_, row, columns_[place]);
    if (isOneLine(text, innerWidth(place), face, widths_)) continue;
    count = std::max(count, cellLines(row, place).size());
  }
  return count;
}

/// How many lines of a row fit into that height.
std::size_t PagedTable::linesIn(double height) const {
  return static_cast<std::size_t>(
      std::max(0.0, std::floor((height / fit_.size - kRowPadding) / kLinePitch + kTolerance)));
}

/// Whether the row would be the last of its page and its total alone overleaf, where both have room.
bool PagedTable::leavesTotalAlone(std::size_t place, std::size_t lines, double room, double page) const {
  if (place + 1 >= rows_.size() || !grid_.isTotal(rows_[place + 1])) return false;
  const std::size_t total = lineCount(rows_[place + 1]);
  const double height = rowHeight(lines);
  return lines <= linesIn(room) && total > linesIn(room - height) && total <= linesIn(page - height);
}

/// A row that is too high for a page begins where the one before ends, and goes on overleaf.
void PagedTable::paginate() {
  CarriedSums sums(table_);
  const double carriedRow = sums.any() ? rowHeight(1) : 0;
  // The last row of a page may be the carried one.
  const double whole = bodyBottom() - bodyTop() - carriedRow;
  double& used = lastUsed_;
  used = 0;
  starts_.assign(1, {});
  const auto turn = [&](std::size_t row, std::size_t line) {
    starts_.push_back({row, line, sums.texts()});
    used = carriedRow;
  };
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const std::size_t lines = lineCount(rows_[i]);
    const bool higherThanPage = lines > linesIn(whole - carriedRow);
    if (i > starts_.back().row && leavesTotalAlone(i, lines, whole - used, whole - carriedRow)) turn(i, 0);
    for (std::size_t line = 0; line < lines;) {
      const std::size_t room = linesIn(whole - used);
      const std::size_t rest = lines - line;
      const bool goesOn = rest > room;
      if (goesOn && !(higherThanPage && room > 0)) {
        turn(i, line);
        continue;
      }
      if (line == 0) sums.add(rows_[i]);
      line += std::min(rest, room);
      if (goesOn)
        turn(i, line);
      else
        used += rowHeight(rest);
    }
  }
}

/// Where a few rows alone would be on the last page, somewhat smaller letters make room for them before it.
void PagedTable::spareLastPage() {
  constexpr std::size_t kMostPages = 8;  // of more, one does not matter
  constexpr double kFewRows = 1.0 / 6;   // of a page
  constexpr double kSizeStep = 0.5;
  constexpr double kLeastShare = 0.85;  // of the letters' size
  const std::size_t pages = starts_.size();
  const double usual = fit_.size;
  if (pages < 2 || pages > kMostPages || lastUsed_ > (bodyBottom() - bodyTop()) * kFewRows) return;
  const auto setSize = [this](double size) {
    fit_.size = size;
    fitHeader();
    paginate();
  };
  const double smallest = std::max(kSmallestSize, usual * kLeastShare);
  for (double size = usual - kSizeStep; size >= smallest; size -= kSizeStep) {
    setSize(size);
    if (starts_.size() < pages) return;
  }
  setSize(usual);
}

}  // namespace zelkor
