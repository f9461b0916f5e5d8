#include "ui/clsDate.h"

namespace zelkor {

QSize clsDate::Create() {
  if (!hwnd_) {
    hwnd_ = new QCalendarWidget(parent_);
    hwnd_->setLocale(QLocale(QLocale::Chinese, QLocale::China));
    hwnd_->setFirstDayOfWeek(Qt::Sunday);
    hwnd_->setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    hwnd_->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  }
  return hwnd_->sizeHint();
}

DateTime clsDate::GetCalendarDate() const {
  const QDate day = hwnd_->selectedDate();
  return DateTime::fromParts(day.year(), day.month(), day.day()).value_or(DateTime());
}

void clsDate::SetCalendDate(DateTime date) {
  hwnd_->setSelectedDate(QDate(date.year(), date.month(), date.day()));
}

}  // namespace zelkor
