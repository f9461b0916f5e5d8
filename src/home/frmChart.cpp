#include "home/frmChart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <QBuffer>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QPainterPath>

#include "base/Csv.h"
#include "base/Format.h"
#include "home/frmSavedText.h"
#include "ui/Texts.h"

namespace zelkor {
namespace {

constexpr QRgb kInk = 0xff1f2933;
constexpr QRgb kFaint = 0xff5b6773;
constexpr QRgb kTitle = 0xff34568b;
constexpr QRgb kBar = 0xff6f9bd1;
constexpr QRgb kNegative = 0xffd08a1e;
constexpr QRgb kAxis = 0xffd5dbe1;
constexpr int kMargin = 10;
constexpr int kGap = 8;
constexpr int kRowHeight = 22;
constexpr double kBarShare = 0.55;    // of a row
constexpr int kMost = 8;              // bars
constexpr double kManyLabels = 0.38;  // of the width, at most

QColor color(QRgb rgb) {
  return QColor::fromRgb(rgb);
}

double highest(const std::vector<frmChart::Point>& points) {
  double most = 0;
  for (const frmChart::Point& point : points) most = std::max(most, std::abs(point.amount.value_or(0)));
  return most;
}

/// The largest ones, and what the others come to.
std::vector<frmChart::Point> shownBars(const std::vector<frmChart::Point>& points, int room) {
  const auto most = static_cast<std::size_t>(std::clamp(room, 1, kMost));
  if (points.size() <= most) return points;
  std::vector<frmChart::Point> shown(points.begin(), points.begin() + static_cast<std::ptrdiff_t>(most) - 1);
  double rest = 0;
  for (std::size_t i = most - 1; i < points.size(); ++i) rest += points[i].amount.value_or(0);
  shown.push_back({"其余", rest});
  return shown;
}

}  // namespace

QString shortAmount(double amount) {
  constexpr double kTenThousand = 10'000;
  constexpr double kFrom = 1'000'000;
  constexpr double kHundredMillion = 100'000'000;
  if (std::abs(amount) >= kHundredMillion) return toQt(Format(amount / kHundredMillion, "#,##0.00")) + "亿";
  if (std::abs(amount) >= kFrom) return toQt(Format(amount / kTenThousand, "#,##0.0")) + "万";
  return toQt(Format(amount, "#,##0"));
}

void frmChart::show(Kind kind, std::vector<Point> points) {
  kind_ = kind;
  points_ = std::move(points);
  known_ = true;
  tell();
  update();
}

void frmChart::forget() {
  points_.clear();
  known_ = false;
  tell();
  update();
}

QString frmChart::emptyText() const {
  return known_ ? emptyText_ : QString("正在读取…");
}

bool frmChart::isEmpty() const {
  return highest(points_) == 0;
}

/// What is drawn is told in words, too.
void frmChart::tell() {
  QStringList lines;
  for (const Point& point : points_)
    if (point.amount) lines << point.label + " " + toQt(Format(*point.amount, "#,##0.00"));
  setAccessibleName(title_);
  setAccessibleDescription(isEmpty() ? emptyText() : lines.join("，"));
  if (isEmpty()) lines.clear();
  if (opened_) lines << "单击打开“" + openedWhat_ + "”，右键保存";
  setToolTip(lines.join('\n'));
}

void frmChart::onOpened(const QString& what, std::function<void()> listener) {
  openedWhat_ = what;
  opened_ = std::move(listener);
  setCursor(Qt::PointingHandCursor);
  tell();
}

QString frmChart::csv() const {
  QString text = QString(QChar(0xFEFF)) + toQt(spreadsheetField(fromQt(title_))) + ",金额\n";
  for (const Point& point : points_)
    if (point.amount)
      text += toQt(spreadsheetField(fromQt(point.label))) + "," + toQt(Format(*point.amount, "0.00")) + "\n";
  return text;
}

void frmChart::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(hasFocus() ? color(kTitle) : color(kAxis));
  painter.setBrush(Qt::white);
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 4, 4);
  const QRect inside = rect().adjusted(kMargin, kGap, -kMargin, -kGap);
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(color(kTitle));
  const int titleHeight = painter.fontMetrics().height();
  painter.drawText(QRect(inside.left(), inside.top(), inside.width(), titleHeight), Qt::AlignLeft, title_);
  painter.setFont(font());
  const QRect room = inside.adjusted(0, titleHeight + kGap / 2, 0, 0);
  if (isEmpty()) {
    painter.setPen(color(kFaint));
    painter.drawText(room, Qt::AlignCenter, emptyText());
  } else if (kind_ == Kind::Bars) {
    paintBars(painter, room);
  } else {
    paintLine(painter, room);
  }
}

void frmChart::paintBars(QPainter& painter, QRect room) const {
  const std::vector<Point> bars = shownBars(points_, room.height() / kRowHeight);
  const double most = highest(bars);
  int labels = 0;
  int amounts = 0;
  for (const Point& bar : bars) {
    labels = std::max(labels, painter.fontMetrics().horizontalAdvance(bar.label));
    amounts = std::max(amounts, painter.fontMetrics().horizontalAdvance(shortAmount(*bar.amount)));
  }
  labels = std::min(labels, static_cast<int>(room.width() * kManyLabels));
  const int from = room.left() + labels + kGap;
  const int length = room.right() - amounts - kGap - from;
  const int height = std::min(kRowHeight + kGap, room.height() / static_cast<int>(bars.size()));
  QRect line(room.left(), room.top(), room.width(), height);
  for (const Point& bar : bars) {
    const QRect label(line.left(), line.top(), labels, height);
    painter.setPen(color(kInk));
    painter.drawText(label, Qt::AlignVCenter | Qt::AlignLeft,
                     painter.fontMetrics().elidedText(bar.label, Qt::ElideRight, labels));
    const double width = std::max(1.0, length * std::abs(*bar.amount) / most);
    const double thick = height * kBarShare;
    painter.setPen(Qt::NoPen);
    painter.setBrush(color(*bar.amount < 0 ? kNegative : kBar));
    painter.drawRoundedRect(QRectF(from, line.top() + (height - thick) / 2, width, thick), 2, 2);
    painter.setPen(color(kFaint));
    painter.drawText(QRect(line.right() - amounts, line.top(), amounts, height),
                     Qt::AlignVCenter | Qt::AlignRight, shortAmount(*bar.amount));
    line.translate(0, height);
  }
}

int frmChart::widestLabel(const QFontMetrics& metrics) const {
  int widest = 0;
  for (const Point& point : points_) widest = std::max(widest, metrics.horizontalAdvance(point.label));
  return widest;
}

/// One of how many points has its label written, so that they have room.
std::size_t frmChart::labelledEvery(const QFontMetrics& metrics, double step) const {
  const double widest = widestLabel(metrics) + kGap;
  return static_cast<std::size_t>(std::max(1.0, std::ceil(widest / std::max(1.0, step))));
}

void frmChart::paintLine(QPainter& painter, QRect room) const {
  const QFontMetrics metrics = painter.fontMetrics();
  const double most = highest(points_);
  const QString top = shortAmount(most);
  const int halfLabel = widestLabel(metrics) / 2;
  const QRect plot = room.adjusted(std::max(metrics.horizontalAdvance(top) + kGap, halfLabel),
                                   metrics.height() / 2, -std::max(kGap, halfLabel), -metrics.height() - 2);
  painter.setPen(color(kAxis));
  for (const int y : {plot.top(), plot.center().y(), plot.bottom()})
    painter.drawLine(plot.left(), y, plot.right(), y);
  painter.setPen(color(kFaint));
  const auto scale = [&](int y, const QString& text) {
    painter.drawText(
        QRect(room.left(), y - metrics.height() / 2, plot.left() - room.left() - kGap, metrics.height()),
        Qt::AlignRight | Qt::AlignVCenter, text);
  };
  scale(plot.top(), top);
  scale(plot.bottom(), "0");
  const double step = plot.width() / std::max(1.0, static_cast<double>(points_.size()) - 1);
  const std::size_t every = labelledEvery(metrics, step);
  QPolygonF line;
  for (std::size_t i = 0; i < points_.size(); ++i) {
    const double x = plot.left() + step * static_cast<double>(i);
    const int half = static_cast<int>(step * static_cast<double>(every) / 2) + 1;
    if (i % every == 0)
      painter.drawText(QRect(static_cast<int>(x) - half, plot.bottom() + 2, 2 * half, metrics.height()),
                       Qt::AlignHCenter | Qt::AlignTop, points_[i].label);
    if (points_[i].amount)
      line << QPointF(x, plot.bottom() - plot.height() * std::max(0.0, *points_[i].amount) / most);
  }
  painter.setPen(QPen(color(kBar), 2));
  painter.drawPolyline(line);
  painter.setBrush(color(kBar));
  if (every == 1 || line.size() == 1)
    for (const QPointF& point : line) painter.drawEllipse(point, 3, 3);
}

void frmChart::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && opened_) opened_();
}

void frmChart::keyPressEvent(QKeyEvent* event) {
  const bool opens =
      event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
  if (opens && opened_) return opened_();
  QWidget::keyPressEvent(event);
}

void frmChart::contextMenuEvent(QContextMenuEvent* event) {
  if (host_ == nullptr) return;
  QMenu menu(this);
  menu.addAction("保存为图片…", this, [this] { host_->dispatch([this] { savePicture(); }); });
  menu.addAction("保存数字（CSV）…", this, [this] { host_->dispatch([this] { saveNumbers(); }); });
  menu.exec(event->globalPos());
}

std::optional<SavedFile> frmChart::askFor(const FileForm& form) {
  return askWhereToSave(host_->run().dialogs, *this, title_, {&form, 1});
}

void frmChart::savePicture() {
  const auto file = askFor({"png", "图片 (*.png)"});
  QByteArray picture;
  QBuffer bytes(&picture);
  if (file && grab().save(&bytes, "png")) saveText(host_->run().dialogs, file->name, picture.toStdString());
}

void frmChart::saveNumbers() {
  if (const auto file = askFor({"csv", "CSV (*.csv)"}))
    saveText(host_->run().dialogs, file->name, csv().toStdString());
}

}  // namespace zelkor
