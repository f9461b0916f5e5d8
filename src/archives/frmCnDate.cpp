#include "archives/frmCnDate.h"

#include <QAbstractItemView>
#include <QKeyEvent>

#include "ui/Layout.h"

namespace zelkor {

using namespace layout;

frmCnDate::frmCnDate(FormHost& host) : Form(host, "frmCnDate", "选择日期", Unload::Plain) {
  calendar_.setParent(this);
  const QSize needed = calendar_.Create();
  calendar_.hwnd()->setMinimumSize(needed);
  Label1[0]->setText("所选日期：");
  arrange(this, column({wide(calendar_.hwnd()), rule(), row({Label1[0], Label1[1], stretch()}), rule(),
                        row({stretch(), cmdOk, cmdExit})}));
  setTabOrder(calendar_.hwnd(), cmdOk);
  calendar_.hwnd()->setFocus();
  on(calendar_.hwnd(), &QCalendarWidget::selectionChanged, &frmCnDate::showDate);
  on(calendar_.hwnd(), &QCalendarWidget::activated, &frmCnDate::cmdOk_Click);
  on(cmdOk, &QPushButton::clicked, &frmCnDate::cmdOk_Click);
  on(cmdExit, &QPushButton::clicked, &frmCnDate::cmdExit_Click);
  SetCurDate(run().clock.now());
}

/// The calendar takes the date that is typed on it.
bool frmCnDate::beginSearch(const QString& text) {
  auto* days = calendar_.hwnd()->findChild<QAbstractItemView*>();
  QKeyEvent key(QEvent::KeyPress, text.front().unicode(), Qt::NoModifier, text);
  QApplication::sendEvent(days, &key);
  return true;
}

void frmCnDate::SetCurDate(DateTime date) {
  calendar_.SetCalendDate(date);
  showDate();
}

void frmCnDate::showDate() {
  Label1[1]->setText(toQt(CurDate().toText()));
}

void frmCnDate::cmdOk_Click() {
  gbCnDateCancel_ = false;
  close();
}

void frmCnDate::cmdExit_Click() {
  gbCnDateCancel_ = true;
  close();
}

std::optional<DateTime> askForDate(FormHost& host, DateTime current) {
  frmCnDate form(host);
  form.SetCurDate(current);
  host.showModal(form);
  if (form.gbCnDateCancel()) return std::nullopt;
  return form.CurDate();
}

}  // namespace zelkor
