#include "ui/clsDate.h"

#include <QBoxLayout>
#include <QPainter>
#include <QPixmap>
#include <QToolButton>
#include <utility>

namespace zelkor {
namespace {

constexpr QSize kSmallest(330, 250);  // six weeks in full

enum class Turn { Back, On };

/// A light arrow for the dark bar; those of the style are dark.
QIcon turnIcon(Turn turn) {
  constexpr int kSize = 16;
  constexpr int kScale = 2;  // drawn for screens of twice the density
  QPixmap pixmap(kSize * kScale, kSize * kScale);
  pixmap.setDevicePixelRatio(kScale);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(Qt::white, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  const double tip = turn == Turn::Back ? 5.5 : 10.5;
  const double open = kSize - tip;
  painter.drawPolyline(QPolygonF({QPointF(open, 3), QPointF(tip, 8), QPointF(open, 13)}));
  return pixmap;
}

/// The year comes before the month, and the arrows can be seen.
void dressNavigation(QCalendarWidget& calendar) {
  auto* month = calendar.findChild<QToolButton*>("qt_calendar_monthbutton");
  auto* bar = calendar.findChild<QWidget*>("qt_calendar_navigationbar");
  auto* line = bar ? qobject_cast<QBoxLayout*>(bar->layout()) : nullptr;
  if (month && line) {
    line->removeWidget(month);
    line->insertWidget(line->count() - 2, month);
    month->setStyleSheet("QToolButton::menu-indicator { image: none; }");
  }
  for (const auto& [name, turn] :
       {std::pair("qt_calendar_prevmonth", Turn::Back), std::pair("qt_calendar_nextmonth", Turn::On)}) {
    if (auto* button = calendar.findChild<QToolButton*>(name)) button->setIcon(turnIcon(turn));
  }
}

}  // namespace

QSize clsDate::Create() {
  if (!hwnd_) {
    hwnd_ = new QCalendarWidget(parent_);
    hwnd_->setLocale(QLocale(QLocale::Chinese, QLocale::China));
    hwnd_->setFirstDayOfWeek(Qt::Sunday);
    hwnd_->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    hwnd_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    dressNavigation(*hwnd_);
  }
  return hwnd_->sizeHint().expandedTo(kSmallest);
}

DateTime clsDate::GetCalendarDate() const {
  const QDate day = hwnd_->selectedDate();
  return DateTime::fromParts(day.year(), day.month(), day.day()).value_or(DateTime());
}

void clsDate::SetCalendDate(DateTime date) {
  hwnd_->setSelectedDate(QDate(date.year(), date.month(), date.day()));
}

}  // namespace zelkor
