#include "paper/PagedTable.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "paper/TextLines.h"

namespace zelkor {
namespace {

// Of the letters' size.
constexpr double kCellPadding = 0.35;  // beside a text
constexpr double kCellMargins = 2 * kCellPadding;
constexpr double kRowPadding = 0.4;   // above and below a text together
constexpr double kLongestPiece = 20;  // a longer one is broken
constexpr double kWidestText = 22;    // a longer one has several lines
constexpr double kNarrowText = 6;     // to which a column of texts may shrink
constexpr double kNarrowCaption = 4;
constexpr double kUsualCaption = 8;

constexpr double kTitleSize = 15;  // points
constexpr double kMarginSize = 9;
constexpr double kFewestLines = 3;  // of a body, however high its header is
constexpr double kTwipsPerPoint = 20;
constexpr double kTolerance = 1e-6;

/// Rows of totals are bold.
Face faceOf(const TextGrid& grid, std::size_t row, std::size_t column) {
  return grid.isTotal(row) || grid.bold(row, column) ? Face::Bold : Face::Regular;
}

bool isOneLine(const std::string& text, double width, Face face, TextWidths& widths) {
  const auto breaks = [](char letter) { return letter == '\n' || letter == '\r'; };
  return widths.of(text, face) <= width + kTolerance && std::ranges::none_of(text, breaks);
}

}  // namespace

PageSize PageForm::size() const {
  const PageSize upright = paper == Paper::A4 ? PageSize{595.28, 841.89} : PageSize{841.89, 1190.55};
  return landscape ? PageSize{upright.height, upright.width} : upright;
}

PagedTable::PagedTable(const PaperTable& table, PageForm form, TextWidths& widths)
    : table_(table), grid_(table.grid), widths_(widths), size_(form.size()) {
  findColumns();
  fitWidths();
  setMargins();
  fitHeader();
  paginate();
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
  std::string_view before;
  Face faceBefore = Face::Regular;
  for (const std::size_t row : rows_) {
    const std::string& text = grid_.text(row, column);
    const Face face = carried ? Face::Bold : faceOf(grid_, row, column);
    if (text == before && face == faceBefore) continue;
    const double width = widths_.of(text, face);
    need.whole = std::max(need.whole, width);
    if (width > need.least) need.least = std::max(need.least, widestPiece(text, face, widths_));
    before = text;
    faceBefore = face;
  }
  need.least = std::min(need.least, kLongestPiece);
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

/// A row that is too high for a page begins where the one before ends, and goes on overleaf.
void PagedTable::paginate() {
  CarriedSums sums(table_);
  const double carriedRow = sums.any() ? rowHeight(1) : 0;
  const double whole =
      bodyBottom() - bodyTop() - carriedRow;  // the last row of a page may be the carried one
  double used = 0;
  starts_.push_back({});
  const auto turn = [&](std::size_t row, std::size_t line) {
    starts_.push_back({row, line, sums.texts()});
    used = carriedRow;
  };
  const auto fitting = [&](double room) {
    return static_cast<std::size_t>(
        std::max(0.0, std::floor((room / fit_.size - kRowPadding) / kLinePitch + 1e-6)));
  };
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const std::size_t lines = lineCount(rows_[i]);
    const bool higherThanPage = lines > fitting(whole - carriedRow);
    for (std::size_t line = 0; line < lines;) {
      const std::size_t room = fitting(whole - used);
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

/// Draws one page.
class PagedTable::Drawing {
 public:
  Drawing(const PagedTable& paged, std::size_t number)
      : paged_(paged),
        number_(number),
        band_(paged.fit_.bands[number % paged.fit_.bands.size()]),
        sheet_(number / paged.fit_.bands.size()) {
    lefts_.push_back((paged.size_.width - width()) / 2);
    for (const std::size_t place : band_) lefts_.push_back(lefts_.back() + paged.fit_.widths[place]);
  }

  Page draw() {
    drawMargins();
    drawHeader();
    drawBody();
    return std::move(page_);
  }

 private:
  double width() const {
    double sum = 0;
    for (const std::size_t place : band_) sum += paged_.fit_.widths[place];
    return sum;
  }
  bool isLast() const { return sheet_ + 1 == paged_.starts_.size(); }
  bool carries() const { return !paged_.table_.carried.empty(); }

  void drawMargins() {
    addBlock(paged_.head_, kPageMargin);
    const double footTop = paged_.size_.height - kPageMargin - paged_.foot_.height;
    addBlock(paged_.foot_, std::max(footTop, paged_.bodyBottom()));
    const std::string text = paged_.pageNumber(number_);
    const double used = paged_.widths_.of(text, Face::Regular) * kMarginSize;
    const double base = paged_.size_.height - kPageMargin - (kLinePitch - kAscent) * kMarginSize;
    page_.texts.push_back({(paged_.size_.width - used) / 2, base, kMarginSize, Face::Regular, text});
  }
  void addBlock(const MarginBlock& block, double top) {
    for (PlacedText text : block.texts) {
      text.y += top;
      page_.texts.push_back(std::move(text));
    }
  }

  void drawHeader() {
    const double top = kPageMargin + paged_.head_.height;
    for (const HeaderCell& cell : paged_.headerCells(band_)) {
      const double begin = paged_.headerBegin(cell.span.firstRow);
      const double height = paged_.headerBegin(cell.span.lastRow + 1) - begin;
      const double left = lefts_[cell.first];
      const double wide = lefts_[cell.last + 1] - left;
      page_.boxes.push_back({left, top + begin, wide, height});
      const auto lines = linesOf(paged_.grid_.text(cell.span.firstRow, cell.span.firstColumn),
                                 wide / paged_.fit_.size - kCellMargins, Face::Bold, paged_.widths_);
      const double slack = height - paged_.rowHeight(lines.size());
      drawLines(lines, {left, top + begin + slack / 2}, wide, Align::Center, Face::Bold);
    }
  }

  struct Corner {
    double x;
    double y;
  };

  void drawLines(std::span<const std::string_view> lines, Corner corner, double wide, Align align,
                 Face face) {
    const double size = paged_.fit_.size;
    double base = corner.y + (kRowPadding / 2 + kAscent) * size;
    for (const std::string_view line : lines) {
      if (!line.empty()) {
        const double room =
            align == Align::Left ? 0 : wide - kCellMargins * size - paged_.widths_.of(line, face) * size;
        const double x = corner.x + kCellPadding * size + (align == Align::Center ? room / 2 : room);
        page_.texts.push_back({x, base, size, face, std::string(line)});
      }
      base += kLinePitch * size;
    }
  }

  void drawBody() {
    y_ = paged_.bodyTop();
    const double top = y_;
    const Start& start = paged_.starts_[sheet_];
    if (carries() && sheet_ > 0) drawCarried("承前页", start.carried);
    const Start end = isLast() ? Start{paged_.rows_.size(), 0, {}} : paged_.starts_[sheet_ + 1];
    for (std::size_t i = start.row; i < end.row || (i == end.row && end.line > 0); ++i) {
      const std::size_t from = i == start.row ? start.line : 0;
      drawRow(paged_.rows_[i], from, i == end.row ? end.line : std::string::npos);
    }
    if (carries() && !isLast()) drawCarried("过次页", end.carried);
    if (y_ <= top) return;
    for (const double left : lefts_) page_.lines.push_back({left, top, left, y_});
  }

  void endRow(std::size_t lines) {
    y_ += paged_.rowHeight(lines);
    page_.lines.push_back({lefts_.front(), y_, lefts_.back(), y_});
  }

  void drawRow(std::size_t row, std::size_t from, std::size_t to) {
    // Pages beside each other have their rows at one height.
    std::size_t count = paged_.fit_.bands.size() > 1 ? paged_.lineCount(row) : 1;
    for (std::size_t i = 0; i < band_.size(); ++i) {
      const std::size_t column = paged_.columns_[band_[i]];
      const Face face = faceOf(paged_.grid_, row, column);
      if (paged_.grid_.text(row, column).empty()) continue;
      const auto lines = paged_.cellLines(row, band_[i]);
      count = std::max(count, lines.size());
      if (from >= lines.size()) continue;
      const auto shown = std::span(lines).subspan(from, std::min(to, lines.size()) - from);
      drawLines(shown, {lefts_[i], y_}, lefts_[i + 1] - lefts_[i], paged_.grid_.alignment(column), face);
    }
    endRow(std::min(to, count) - from);
  }

  void drawCarried(std::string_view label, const std::vector<std::string>& texts) {
    for (std::size_t i = 0; i < band_.size(); ++i) {
      const std::size_t column = paged_.columns_[band_[i]];
      const bool labelled = column == paged_.table_.carriedLabel || (i == 0 && !hasLabel());
      const std::string_view text = labelled ? label : std::string_view(texts[column]);
      const Align align = labelled ? Align::Left : paged_.grid_.alignment(column);
      drawLines(std::span(&text, 1), {lefts_[i], y_}, lefts_[i + 1] - lefts_[i], align, Face::Bold);
    }
    endRow(1);
  }
  bool hasLabel() const {
    return std::ranges::any_of(
        band_, [this](std::size_t place) { return paged_.columns_[place] == paged_.table_.carriedLabel; });
  }

  const PagedTable& paged_;
  std::size_t number_;
  const std::vector<std::size_t>& band_;
  std::size_t sheet_;
  std::vector<double> lefts_;  // of the band's columns, and the right end of the last
  double y_ = 0;
  Page page_;
};

Page PagedTable::page(std::size_t number) const {
  return Drawing(*this, number).draw();
}

}  // namespace zelkor
