#include "ui/clsDate.h"

#include <QBoxLayout>
#include <QToolButton>
#include <utility>

namespace zelkor {
namespace {

constexpr QSize kSmallest(330, 250);  // six weeks in full

/// The year stands before the month, and the arrows look like the others.
void dressNavigation(QCalendarWidget& calendar) {
  auto* month = calendar.findChild<QToolButton*>("qt_calendar_monthbutton");
  auto* bar = calendar.findChild<QWidget*>("qt_calendar_navigationbar");
  auto* line = bar ? qobject_cast<QBoxLayout*>(bar->layout()) : nullptr;
  if (month && line) {
    line->removeWidget(month);
    line->insertWidget(line->count() - 2, month);
  }
  for (const auto& [name, arrow] : {std::pair("qt_calendar_prevmonth", Qt::LeftArrow),
                                    std::pair("qt_calendar_nextmonth", Qt::RightArrow)}) {
    auto* button = calendar.findChild<QToolButton*>(name);
    if (!button) continue;
    button->setIcon(QIcon());
    button->setArrowType(arrow);
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
