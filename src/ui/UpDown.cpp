#include "ui/UpDown.h"

#include <algorithm>
#include <QBoxLayout>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>

namespace zelkor {
namespace {

constexpr int kWidth = 18;
constexpr int kBoxWidth = 48;

QToolButton* arrow(Qt::ArrowType type, QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setArrowType(type);
  button->setAutoRepeat(true);
  button->setFocusPolicy(Qt::NoFocus);
  button->setProperty("spin", true);
  button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  button->setFixedWidth(kWidth);
  return button;
}

}  // namespace

UpDown::UpDown(QWidget* parent)
    : QWidget(parent), up_(arrow(Qt::UpArrow, this)), down_(arrow(Qt::DownArrow, this)) {
  auto* box = new QVBoxLayout(this);
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(0);
  box->addWidget(up_);
  box->addWidget(down_);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
  connect(up_, &QToolButton::clicked, this, [this] { step(1); });
  connect(down_, &QToolButton::clicked, this, [this] { step(-1); });
}

void UpDown::setBuddy(QLineEdit* box) {
  box_ = box;
  box_->installEventFilter(this);
  connect(box_, &QLineEdit::textChanged, this, [this](const QString& text) { setValue(text.toInt()); });
  showValue();
}

void UpDown::setValue(int value) {
  const int kept = std::clamp(value, minimum_, maximum_);
  const bool changed = kept != value_;
  value_ = kept;
  showValue();
  if (changed) emit valueChanged(value_);
}

void UpDown::setRange(int minimum, int maximum) {
  minimum_ = minimum;
  maximum_ = std::max(minimum, maximum);
  setValue(value_);
}

/// A box that is empty while somebody types stays so.
void UpDown::showValue() {
  if (!box_ || (box_->hasFocus() && box_->text().isEmpty())) return;
  const QString text = QString::number(value_);
  if (box_->text() != text) box_->setText(text);
}

void UpDown::step(int direction) {
  if (box_) box_->setFocus();
  setValue(value_ + direction);
  emit stepped(direction);
}

bool UpDown::eventFilter(QObject* box, QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
      step(key == Qt::Key_Up ? 1 : -1);
      return true;
    }
  }
  if (event->type() == QEvent::FocusOut && box_->text().isEmpty()) box_->setText(QString::number(value_));
  return QWidget::eventFilter(box, event);
}

void numberBox(QLineEdit* box) {
  box->setFixedWidth(kBoxWidth);
  box->setAlignment(Qt::AlignRight);
}

QBoxLayout* spinnerPair(QLineEdit* box, UpDown* spinner) {
  auto* pair = new QHBoxLayout;
  pair->setContentsMargins(0, 0, 0, 0);
  pair->setSpacing(0);
  pair->addWidget(box);
  pair->addWidget(spinner);
  return pair;
}

}  // namespace zelkor
