#include "ui/GridPaper.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <ostream>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QIODevice>
#include <QPainter>
#include <QPdfWriter>

#include "base/GridSpans.h"
#include "ui/Texts.h"

namespace zelkor {
namespace {

constexpr double kMargin = 12;        // millimetres
constexpr double kFontSize = 9;       // points
constexpr double kSmallestFont = 4;   // points; below it nothing can be read
constexpr double kTitleScale = 1.7;   // of the font
constexpr double kLineScale = 1.45;   // a row's height to the font's
constexpr double kCellPadding = 0.4;  // on each side, of the font's height
constexpr int kDotsPerInch = 600;
constexpr double kTwipsPerInch = 1440;

QFont boldOf(QFont font) {
  font.setBold(true);
  return font;
}

/// Draws pages from top to bottom.
class Paper {
 public:
  Paper(QPdfWriter& writer, const TextGrid& grid) : writer_(writer), painter_(&writer), grid_(grid) {
    for (std::size_t column = 0; column < grid_.columns(); ++column) {
      if (!grid_.columnHidden(column)) columns_.push_back(column);
    }
    fitFont();
    bodyRows_.reserve(grid_.rows());
    for (std::size_t row = grid_.headerRows(); row < grid_.rows(); ++row) {
      if (!grid_.rowHidden(row)) bodyRows_.push_back(row);
    }
  }

  void print(const std::string& title, const std::vector<std::string>& captions) {
    const double heading = headingHeight(captions);
    pages_ = countPages(heading);
    drawHeading(title, captions);
    drawHeader();
    for (const std::size_t row : bodyRows_) {
      if (y_ + lineHeight_ > bottom()) turnPage();
      drawRow(row);
    }
    drawPageNumber();
  }

 private:
  double width() const { return writer_.width(); }
  double bottom() const { return writer_.height() - 1.5 * lineHeight_; }  // room for the page's number
  double headerHeight() const { return static_cast<double>(grid_.headerRows()) * lineHeight_; }
  double headingHeight(const std::vector<std::string>& captions) const {
    return lineHeight_ * (kTitleScale * 1.4 + static_cast<double>(captions.size()) + 0.5);
  }

  double tableWidth() const { return std::accumulate(widths_.begin(), widths_.end(), 0.0); }

  /// The largest letters with which all columns fit; the table in the middle of the page.
  void fitFont() {
    setFont(kFontSize);
    if (tableWidth() > width()) setFont(std::max(kSmallestFont, kFontSize * width() / tableWidth()));
    const double total = tableWidth();
    if (total > width()) {
      for (double& columnWidth : widths_) columnWidth *= width() / total;
    } else {
      widenColumns(width() - total);
    }
    left_ = (width() - tableWidth()) / 2;
  }

  /// Towards the widths that the grid's columns have, as far as there is room.
  void widenColumns(double room) {
    std::vector<double> missing;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const double told = grid_.columnWidth(columns_[i]) * kDotsPerInch / kTwipsPerInch;
      missing.push_back(std::max(0.0, told - widths_[i]));
    }
    const double wanted = std::accumulate(missing.begin(), missing.end(), 0.0);
    if (wanted <= 0) return;
    const double share = std::min(1.0, room / wanted);
    for (std::size_t i = 0; i < missing.size(); ++i) widths_[i] += missing[i] * share;
  }

  void setFont(double points) {
    font_ = painter_.font();
    font_.setPointSizeF(points);
    painter_.setFont(font_);
    const QFontMetricsF metrics(font_, &writer_);
    lineHeight_ = metrics.height() * kLineScale;
    padding_ = metrics.height() * kCellPadding;
    widths_.clear();
    const QFontMetricsF bold(boldOf(font_), &writer_);
    for (const std::size_t column : columns_) {
      widths_.push_back(std::max(captionWidth(bold, column), textWidth(metrics, bold, column)) +
                        2 * padding_);
    }
  }

  /// A caption over several columns shares their width.
  double captionWidth(const QFontMetricsF& metrics, std::size_t column) const {
    double widest = 0;
    for (std::size_t row = 0; row < grid_.headerRows(); ++row) {
      const CellSpan span = mergedCells(grid_, row, column, 0, grid_.headerRows() - 1);
      const auto columns = static_cast<double>(span.lastColumn - span.firstColumn + 1);
      widest = std::max(widest, metrics.horizontalAdvance(toQt(grid_.text(row, column))) / columns);
    }
    return widest;
  }

  double textWidth(const QFontMetricsF& plain, const QFontMetricsF& bold, std::size_t column) const {
    double widest = 0;
    for (std::size_t row = grid_.headerRows(); row < grid_.rows(); ++row) {
      const std::string& text = grid_.text(row, column);
      const QFontMetricsF& metrics = grid_.isTotal(row) ? bold : plain;
      if (!text.empty()) widest = std::max(widest, metrics.horizontalAdvance(toQt(text)));
    }
    return widest;
  }

  int countPages(double heading) const {
    const double room = bottom() - headerHeight();
    const auto onFirst = static_cast<long>(std::max(0.0, (room - heading) / lineHeight_));
    const auto onOthers = std::max(1L, static_cast<long>(room / lineHeight_));
    const long rest = std::max(0L, static_cast<long>(bodyRows_.size()) - onFirst);
    return static_cast<int>(1 + (rest + onOthers - 1) / onOthers);
  }

  void drawHeading(const std::string& title, const std::vector<std::string>& captions) {
    QFont large = boldOf(font_);
    large.setPointSizeF(font_.pointSizeF() * kTitleScale);
    painter_.setFont(large);
    painter_.drawText(QRectF(0, y_, width(), lineHeight_ * kTitleScale), Qt::AlignCenter, toQt(title));
    y_ += lineHeight_ * kTitleScale * 1.4;
    painter_.setFont(font_);
    for (const std::string& line : captions) {
      painter_.drawText(QRectF(left_, y_, width() - left_, lineHeight_), Qt::AlignLeft | Qt::AlignVCenter,
                        toQt(line));
      y_ += lineHeight_;
    }
    y_ += 0.5 * lineHeight_;
  }

  void turnPage() {
    drawPageNumber();
    writer_.newPage();
    ++page_;
    y_ = 0;
    drawHeader();
  }

  void drawPageNumber() {
    const QRectF foot(0, writer_.height() - lineHeight_, width(), lineHeight_);
    painter_.drawText(foot, Qt::AlignCenter, QString("第 %1 页 共 %2 页").arg(page_).arg(pages_));
  }

  void drawHeader() {
    painter_.setFont(boldOf(font_));
    for (std::size_t row = 0; row < grid_.headerRows(); ++row) {
      for (std::size_t i = 0; i < columns_.size(); ++i) drawHeaderCell(row, i);
    }
    painter_.setFont(font_);
    y_ += headerHeight();
  }

  void drawHeaderCell(std::size_t row, std::size_t place) {
    const CellSpan span = mergedCells(grid_, row, columns_[place], 0, grid_.headerRows() - 1);
    const bool begins = place == 0 || columns_[place - 1] < span.firstColumn;
    if (span.firstRow != row || !begins) return;
    double cellWidth = 0;
    for (std::size_t i = place; i < columns_.size() && columns_[i] <= span.lastColumn; ++i) {
      cellWidth += widths_[i];
    }
    const QRectF cell(leftOf(place), y_ + static_cast<double>(row) * lineHeight_, cellWidth,
                      static_cast<double>(span.lastRow - row + 1) * lineHeight_);
    painter_.fillRect(cell, QColor(0xee, 0xf1, 0xf4));
    painter_.drawRect(cell);
    painter_.drawText(cell, Qt::AlignCenter, toQt(grid_.text(row, columns_[place])));
  }

  void drawRow(std::size_t row) {
    static constexpr Qt::AlignmentFlag kAlignments[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    if (grid_.isTotal(row)) painter_.setFont(boldOf(font_));
    double left = left_;
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      const QRectF cell(left, y_, widths_[i], lineHeight_);
      painter_.drawRect(cell);
      const auto align = kAlignments[static_cast<int>(grid_.alignment(columns_[i]))];
      painter_.drawText(cell.adjusted(padding_, 0, -padding_, 0), align | Qt::AlignVCenter,
                        toQt(grid_.text(row, columns_[i])));
      left += widths_[i];
    }
    painter_.setFont(font_);
    y_ += lineHeight_;
  }

  double leftOf(std::size_t place) const {
    return std::accumulate(widths_.begin(), widths_.begin() + static_cast<std::ptrdiff_t>(place), left_);
  }

  QPdfWriter& writer_;
  QPainter painter_;
  const TextGrid& grid_;
  std::vector<std::size_t> columns_;   // that are shown
  std::vector<double> widths_;         // theirs, in dots
  std::vector<std::size_t> bodyRows_;  // that are shown
  QFont font_;
  double lineHeight_ = 0;
  double padding_ = 0;
  double left_ = 0;  // of the table
  double y_ = 0;
  int page_ = 1;
  int pages_ = 1;
};

/// Fonts need an application object, but no window system.
std::unique_ptr<QGuiApplication> applicationForFonts() {
  if (QCoreApplication::instance() != nullptr) return nullptr;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // Remarks on the session's folders are of no use to who prints.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  static int argc = 1;
  static char name[] = "zelkorctl";
  static char* argv[] = {name, nullptr};
  return std::make_unique<QGuiApplication>(argc, argv);
}

/// What Qt writes, on its way into a stream.
class StreamDevice final : public QIODevice {
 public:
  explicit StreamDevice(std::ostream& out) : out_(out) { open(QIODevice::WriteOnly | QIODevice::Unbuffered); }
  bool isSequential() const override { return true; }

 protected:
  qint64 readData(char*, qint64) override { return -1; }
  qint64 writeData(const char* bytes, qint64 count) override {
    out_.write(bytes, count);
    return out_ ? count : -1;
  }

 private:
  std::ostream& out_;
};

}  // namespace

void printPdf(std::ostream& out, const std::string& title, const std::vector<std::string>& captions,
              const TextGrid& grid) {
  const auto application = applicationForFonts();
  StreamDevice device(out);
  QPdfWriter writer(&device);
  writer.setResolution(kDotsPerInch);
  writer.setPageSize(QPageSize(QPageSize::A4));
  writer.setPageOrientation(QPageLayout::Landscape);
  writer.setPageMargins(QMarginsF(kMargin, kMargin, kMargin, kMargin), QPageLayout::Millimeter);
  writer.setTitle(toQt(title));
  Paper(writer, grid).print(title, captions);
}

}  // namespace zelkor
