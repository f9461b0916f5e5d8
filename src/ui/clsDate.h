#pragma once

#include <QCalendarWidget>
#include <QPointer>
#include <QSize>

#include "base/DateTime.h"

namespace zelkor {

/// A month calendar inside a form, in Chinese.
class clsDate {
 public:
  /// The calendar itself, whose `selectionChanged` signals another date; nullptr before `Create`.
  QCalendarWidget* hwnd() const { return hwnd_; }
  void setHwnd(QCalendarWidget* calendar) { hwnd_ = calendar; }
  /// Makes the calendar inside `Parent` unless there is one; gives the width and height that it needs.
  QSize Create();
  QWidget* Parent() const { return parent_; }
  void setParent(QWidget* parent) { parent_ = parent; }

  /// The selected day.
  DateTime GetCalendarDate() const;
  /// Selects the day of that date.
  void SetCalendDate(DateTime date);

 private:
  QPointer<QCalendarWidget> hwnd_;
  QPointer<QWidget> parent_;
};

}  // namespace zelkor
