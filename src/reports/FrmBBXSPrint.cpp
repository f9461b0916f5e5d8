#include "reports/FrmBBXSPrint.h"

#include <algorithm>
#include <QPainter>
#include <QPrinter>

#include "paper/PagedTable.h"

namespace zelkor {
namespace {

constexpr double kPointsPerInch = 72;

PageSize sizeOf(const QPrinter& printer) {
  const QSizeF paper = printer.pageLayout().fullRect(QPageLayout::Point).size();
  return {paper.width(), paper.height()};
}

QColor grey(double shade) {
  return QColor::fromRgbF(static_cast<float>(shade), static_cast<float>(shade), static_cast<float>(shade));
}

/// As it is measured: neither hinted nor kerned.
QFont fontOf(const PlacedText& text) {
  QFont font(kPaperFont);
  font.setPointSizeF(text.size);
  font.setBold(text.face == Face::Bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setKerning(false);
  return font;
}

QString drawn(std::string_view text) {
  std::u32string characters;
  eachDrawn(text, [&](char32_t character) { characters += character; });
  return QString::fromStdU32String(characters);
}

/// Draws pages on a device of so many dots per point.
class PageDrawing {
 public:
  PageDrawing(QPainter& painter, double dots) : painter_(painter), dots_(dots) {}

  void draw(const Page& page) {
    painter_.setPen(QPen(grey(kRuleShade), kRuleWidth * dots_));
    painter_.setBrush(grey(kBoxShade));
    for (const PlacedBox& box : page.boxes) {
      painter_.drawRect(QRectF(at(box.x, box.y), QSizeF(box.width, box.height) * dots_));
    }
    for (const PlacedLine& line : page.lines) {
      painter_.drawLine(at(line.fromX, line.fromY), at(line.toX, line.toY));
    }
    painter_.setPen(Qt::black);
    for (const PlacedText& text : page.texts) {
      painter_.setFont(fontOf(text));
      painter_.drawText(at(text.x, text.y), drawn(text.text));
    }
  }

 private:
  QPointF at(double x, double y) const { return QPointF(x, y) * dots_; }

  QPainter& painter_;
  double dots_;
};

}  // namespace

double TablePrinter::advance(char32_t character, Face face) const {
  const PaperFont& font = face == Face::Bold ? bold_ : regular_;
  return font.advance(font.glyph(character));
}

std::size_t TablePrinter::pages(const QPrinter& printer) {
  return PagedTable(table_, sizeOf(printer), widths_).pages();
}

void TablePrinter::print(QPrinter& printer) {
  printer.setFullPage(true);  // the pages have margins of their own
  const PagedTable paged(table_, sizeOf(printer), widths_);
  std::size_t first = 0;
  std::size_t end = paged.pages();
  if (printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0) {
    first = static_cast<std::size_t>(printer.fromPage() - 1);
    end = std::min(end, static_cast<std::size_t>(std::max(printer.fromPage(), printer.toPage())));
  }
  QPainter painter(&printer);
  PageDrawing drawing(painter, printer.resolution() / kPointsPerInch);
  for (std::size_t page = first; page < end; ++page) {
    if (page > first) printer.newPage();
    drawing.draw(paged.page(page));
  }
}

}  // namespace zelkor
