#include "ui/GridHeader.h"

#include <algorithm>
#include <iterator>
#include <QPainter>

#include "base/GridSpans.h"
#include "ui/Texts.h"

namespace zelkor {
namespace {

constexpr int kPadding = 10;
constexpr QRgb kGround = 0xffeef1f4;
constexpr QRgb kLine = 0xffd0d7de;
constexpr QRgb kArrow = 0xff2f6fb2;
constexpr double kArrowWidth = 8;
constexpr double kArrowHeight = 5;
constexpr double kArrowGap = 3;  // to the section's edge

}  // namespace

GridHeader::GridHeader(const GridModel& model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), model_(model) {
  setSectionsClickable(true);
  setHighlightSections(false);
}

int GridHeader::lineHeight() const {
  return fontMetrics().height() + kPadding;
}

QSize GridHeader::sizeHint() const {
  const auto lines = static_cast<int>(std::max<std::size_t>(model_.grid().headerRows(), 1));
  return {QHeaderView::sizeHint().width(), lines * lineHeight()};
}

void GridHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  painter->save();
  painter->setClipRect(rect);
  for (std::size_t row = 0; row < model_.grid().headerRows(); ++row) {
    paintCell(*painter, row, static_cast<std::size_t>(section));
  }
  if (sort_ && static_cast<int>(sort_->column) == section) paintArrow(*painter, rect);
  painter->restore();
}

void GridHeader::showSort(std::optional<GridSort> sort) {
  sort_ = sort;
  viewport()->update();
}

/// At the right of the lowest line, upwards where the smallest come first.
void GridHeader::paintArrow(QPainter& painter, const QRect& section) const {
  const double right = section.right() - kArrowGap;
  const double middle = section.bottom() - lineHeight() / 2.0;
  const double tip = sort_->descending ? middle + kArrowHeight / 2 : middle - kArrowHeight / 2;
  const double base = sort_->descending ? middle - kArrowHeight / 2 : middle + kArrowHeight / 2;
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(kArrow));
  const QPointF corners[] = {{right - kArrowWidth, base}, {right, base}, {right - kArrowWidth / 2, tip}};
  painter.drawPolygon(corners, static_cast<int>(std::size(corners)));
}

/// A merged cell is painted whole for each section that it covers; the clip leaves that section's part.
void GridHeader::paintCell(QPainter& painter, std::size_t row, std::size_t column) const {
  const TextGrid& grid = model_.grid();
  const CellSpan span = mergedCells(grid, row, column, 0, grid.headerRows() - 1);
  const int left = sectionViewportPosition(static_cast<int>(span.firstColumn));
  int width = 0;
  for (std::size_t i = span.firstColumn; i <= span.lastColumn; ++i) width += sectionSize(static_cast<int>(i));
  const int lines = static_cast<int>(span.lastRow - span.firstRow + 1);
  const QRect cell(left, static_cast<int>(span.firstRow) * lineHeight(), width, lines * lineHeight());
  painter.fillRect(cell, QColor::fromRgb(kGround));
  painter.setPen(QColor::fromRgb(kLine));
  painter.drawLine(cell.topRight(), cell.bottomRight());
  painter.drawLine(cell.bottomLeft(), cell.bottomRight());
  painter.setPen(palette().color(QPalette::WindowText));
  QFont font = painter.font();
  font.setBold(grid.bold(row, column));
  painter.setFont(font);
  painter.drawText(cell.adjusted(4, 0, -4, 0), Qt::AlignCenter, toQt(grid.text(row, column)));
}

}  // namespace zelkor
