#include "cards/FrmAddCardsPaper.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <QPainter>
#include <QScreen>
#include <QScrollArea>

#include "ui/Texts.h"

namespace zelkor {
namespace {

constexpr int kTopUnits = 58;
constexpr int kRowUnits = 19;
constexpr int kRightUnits = 640;
constexpr std::array kCaptionLefts = {71, 261, 451};  // after the values of the column before
constexpr int kMargin = 28;
constexpr int kNarrowMargin = 5;
constexpr int kNarrowScreen = 970;  // less than the card takes with its usual margins
constexpr int kBottomMargin = 18;
constexpr int kRowPixels = 28;
constexpr int kUnderlineRise = 4;
constexpr int kTitleHeight = 64;
constexpr int kTitlePixels = 22;

constexpr QRgb kEdge = 0xffc6cfd8;
constexpr QRgb kFrame = 0xff7d8fa3;
constexpr QRgb kRule = 0xffd5dbe1;
constexpr QRgb kCaptionFill = 0xffeef3f8;
constexpr QRgb kLockedFill = 0xfff6f7f9;
constexpr QRgb kPickedFill = 0xffeaf2fb;  // filled by a picker alone
constexpr QRgb kTitleInk = 0xff34568b;
constexpr QRgb kCurrentInk = 0xff2f6fb2;
constexpr QRgb kNoteInk = 0xff8793a1;
constexpr QRgb kRequiredInk = 0xffb23b3b;

int across(int units) {
  return (units - kCaptionLefts.front()) * 3 / 2;
}

int down(int units) {
  return kTitleHeight + (units - kTopUnits) * kRowPixels / kRowUnits;
}

/// Where the cell of a value ends: at the next caption's, if that is as good as there.
int cellEnd(const QRect& value, int margin) {
  constexpr int kNearly = 3;
  const int end = value.left() + value.width();
  for (const int units : kCaptionLefts) {
    const int caption = margin + across(units);
    if (std::abs(caption - end) <= kNearly) return caption;
  }
  return end;
}

void paintTitle(QPainter& painter, int width) {
  QFont font = painter.font();
  font.setPixelSize(kTitlePixels);
  font.setBold(true);
  font.setLetterSpacing(QFont::AbsoluteSpacing, 6);
  painter.save();
  painter.setFont(font);
  painter.setPen(QColor::fromRgb(kTitleInk));
  const QString title = "固定资产卡片";
  const int length = painter.fontMetrics().horizontalAdvance(title);
  painter.drawText(QRect(0, 8, width, 34), Qt::AlignCenter, title);
  const int left = (width - length) / 2 - 12;
  for (const int y : {46, 49}) painter.drawLine(left, y, left + length + 18, y);
  painter.restore();
}

}  // namespace

CardPaper::CardPaper(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
}

void CardPaper::setPlaces(std::vector<CardFieldPlace> places, std::vector<CardField> required) {
  places_ = std::move(places);
  required_ = std::move(required);
  int bottom = 0;
  lastRow_ = 0;
  for (const CardFieldPlace& place : places_) {
    bottom = std::max(bottom, valueRect(place).bottom());
    lastRow_ = std::max(lastRow_, place.row);
  }
  setFixedSize(across(kRightUnits) + 2 * margin(), bottom + kBottomMargin);
  update();
}

const CardFieldPlace* CardPaper::find(CardField field) const {
  const auto found = std::ranges::find(places_, field, &CardFieldPlace::field);
  return found == places_.end() ? nullptr : &*found;
}

/// Where the card is larger than its window it moves along.
void CardPaper::setCurrent(std::optional<CardField> field) {
  current_ = field;
  update();
  auto* desk = qobject_cast<QScrollArea*>(parentWidget() ? parentWidget()->parentWidget() : nullptr);
  const CardFieldPlace* place = field ? find(*field) : nullptr;
  if (!desk || !place) return;
  const QRect shown = captionRect(*place).united(valueRect(*place));
  desk->ensureVisible(shown.center().x(), shown.center().y(), shown.width() / 2, shown.height());
}

int CardPaper::margin() const {
  return screen()->availableGeometry().width() < kNarrowScreen ? kNarrowMargin : kMargin;
}

QRect CardPaper::captionRect(const CardFieldPlace& place) const {
  const int left = across(kCaptionLefts[static_cast<std::size_t>(place.column - 1)]);
  return {margin() + left, down(place.top), across(place.left) - left, kRowPixels};
}

QRect CardPaper::valueRect(const CardFieldPlace& place) const {
  const int left = across(place.left);
  return {margin() + left, down(place.top), across(place.left + place.width) - left, kRowPixels};
}

/// Between the signatures: what the marks mean.
void CardPaper::paintNote(QPainter& painter) const {
  const CardFieldPlace* signature = find(CardField::EnteredBy);
  if (!signature) return;
  painter.setPen(QColor::fromRgb(kNoteInk));
  const QRect line = captionRect(*signature);
  painter.drawText(QRect(0, line.top(), width(), line.height()), Qt::AlignCenter, "带 * 的项目必须填写");
}

/// All rows but the first and the last, which are free.
bool CardPaper::inTable(const CardFieldPlace& place) const {
  return place.row > 1 && place.row < lastRow_;
}

QRect CardPaper::tableRect() const {
  QRect table;
  for (const CardFieldPlace& place : places_) {
    if (inTable(place)) table = table.united(captionRect(place)).united(valueRect(place));
  }
  return table;
}

void CardPaper::paintField(QPainter& painter, const CardFieldPlace& place) const {
  const QRect caption = captionRect(place);
  const QRect value = valueRect(place);
  if (inTable(place)) {
    painter.fillRect(caption, QColor::fromRgb(kCaptionFill));
    const CardFieldRow& field = cardField(place.field);
    if (!field.enabled()) painter.fillRect(value, QColor::fromRgb(kLockedFill));
    if (field.isCode()) painter.fillRect(value, QColor::fromRgb(kPickedFill));
    painter.setPen(QColor::fromRgb(kRule));
    for (const int x : {caption.left(), value.left(), cellEnd(value, margin())}) {
      painter.drawLine(x, value.top(), x, value.bottom());
    }
  } else {
    painter.setPen(QColor::fromRgb(kEdge));
    const int y = value.bottom() - kUnderlineRise;
    painter.drawLine(value.left(), y, value.right(), y);
  }
  if (std::ranges::find(required_, place.field) != required_.end()) {
    painter.setPen(QColor::fromRgb(kRequiredInk));
    painter.drawText(caption.adjusted(0, 0, -6, 0), Qt::AlignRight | Qt::AlignVCenter, "*");
  }
}

void CardPaper::paintTable(QPainter& painter) const {
  const QRect table = tableRect();
  painter.setPen(QColor::fromRgb(kRule));
  for (int y = table.top() + kRowPixels; y < table.bottom(); y += kRowPixels) {
    painter.drawLine(table.left(), y, table.right(), y);
  }
  painter.setPen(QPen(QColor::fromRgb(kFrame), 1));
  painter.drawRect(table);
}

void CardPaper::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::white);
  painter.setPen(QColor::fromRgb(kEdge));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
  paintTitle(painter, width());
  for (const CardFieldPlace& place : places_) paintField(painter, place);
  paintTable(painter);
  paintNote(painter);
  if (const CardFieldPlace* place = current_ ? find(*current_) : nullptr) {
    painter.setPen(QPen(QColor::fromRgb(kCurrentInk), 2));
    painter.drawRect(valueRect(*place).adjusted(1, 1, 0, 0));
  }
}

}  // namespace zelkor
