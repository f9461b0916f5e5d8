#include <algorithm>

#include "paper/CellMeasures.h"
#include "paper/PagedTable.h"
#include "paper/TextLines.h"

namespace zelkor {

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
      const std::size_t to = i == end.row ? end.line : std::string::npos;
      drawLead(i, from, to);
      drawRow(paged_.rows_[i], from, to);
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

  /// What stands in the first column of a row that has nothing there: the group that goes on from the page
  /// before, the label of a total that is on a page beside.
  std::string leadOf(std::size_t i) const {
    const TextGrid& grid = paged_.grid_;
    const std::size_t first = paged_.columns_.front();
    const std::size_t row = paged_.rows_[i];
    if (band_.front() != 0 || !grid.text(row, first).empty()) return {};
    if (grid.isTotal(row)) return labelBeside(row);
    if (carries() || sheet_ == 0 || i != paged_.starts_[sheet_].row) return {};
    while (i-- > 0 && !grid.isTotal(paged_.rows_[i])) {
      const std::string& name = grid.text(paged_.rows_[i], first);
      if (!name.empty()) return name + std::string(kGoesOn);
    }
    return {};
  }
  std::string labelBeside(std::size_t row) const {
    for (std::size_t place = 0; place < paged_.columns_.size(); ++place) {
      const std::size_t column = paged_.columns_[place];
      if (paged_.grid_.alignment(column) != Align::Left || paged_.grid_.text(row, column).empty()) continue;
      return std::ranges::find(band_, place) == band_.end() ? paged_.grid_.text(row, column) : std::string();
    }
    return {};
  }

  /// As much of it as the row has room for.
  void drawLead(std::size_t i, std::size_t from, std::size_t to) {
    const std::string lead = leadOf(i);
    if (lead.empty()) return;
    const std::size_t row = paged_.rows_[i];
    const std::size_t room = std::min(to, paged_.lineCount(row)) - from;
    const Face face = faceOf(paged_.grid_, row, paged_.columns_.front());
    const std::string_view whole = lead;
    for (const std::string_view text : {whole, whole.substr(0, whole.rfind(kGoesOn))}) {
      const auto lines = linesOf(text, paged_.innerWidth(0), face, paged_.widths_);
      if (lines.size() > room) continue;
      drawLines(lines, {lefts_[0], y_}, lefts_[1] - lefts_[0], Align::Left, face);
      return;
    }
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
