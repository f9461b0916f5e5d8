#include "ui/FindBar.h"

#include <QAbstractItemView>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QShortcut>
#include <QToolButton>

namespace zelkor {
namespace {

constexpr int kFieldWidth = 240;
constexpr int kResultWidth = 84;
constexpr int kSpacing = 6;

}  // namespace

FindBar::FindBar(QAbstractItemView& list, const QString& hint, QWidget* form) : QWidget(form), list_(list) {
  field_->setObjectName("txtFind");
  field_->setPlaceholderText(hint);
  field_->setAccessibleName("查找");
  field_->setMinimumWidth(kFieldWidth);
  field_->installEventFilter(this);
  result_->setObjectName("lblFound");
  result_->setProperty("note", true);
  result_->setMinimumWidth(kResultWidth);
  result_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* line = new QHBoxLayout(this);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(kSpacing);
  auto* caption = new QLabel("查找：", this);
  caption->setBuddy(field_);
  for (QWidget* part :
       {static_cast<QWidget*>(caption), static_cast<QWidget*>(field_), static_cast<QWidget*>(result_)}) {
    line->addWidget(part, part == field_ ? 1 : 0);
  }
  hide();
  connect(field_, &QLineEdit::textChanged, this, &FindBar::searchAgain);
  connect(new QShortcut(QKeySequence::Find, form), &QShortcut::activated, this, &FindBar::open);
}

bool FindBar::searchFor(const QString& text) {
  open();
  field_->setText(text);
  return true;
}

void FindBar::open() {
  show();
  field_->setFocus();
  field_->selectAll();
}

void FindBar::leave() {
  field_->clear();
  hide();
  list_.setFocus();
}

void FindBar::searchAgain() {
  result_->setText(search(text()));
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
  // Enter and Esc are no keys of the form while one searches.
  const bool pressed = event->type() == QEvent::KeyPress;
  if (watched == field_ && pressed && keyPressed(static_cast<QKeyEvent*>(event)->key())) return true;
  return QWidget::eventFilter(watched, event);
}

bool FindBar::keyPressed(int key) {
  switch (key) {
    case Qt::Key_Escape:
      leave();
      return true;
    case Qt::Key_Up:
      step(-1);
      return true;
    case Qt::Key_Down:
      step(1);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      take();
      return true;
    default:
      return false;
  }
}

}  // namespace zelkor
