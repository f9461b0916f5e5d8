#include "ui/SheetEditor.h"

#include <algorithm>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <utility>

#include "ui/Focus.h"

namespace zelkor {
namespace {

constexpr int kGap = 3;  // between the box and a button

void dress(QWidget& value, bool entry, bool picked) {
  value.setProperty("entry", entry);
  value.setProperty("picked", entry && picked);
  value.style()->unpolish(&value);
  value.style()->polish(&value);
}

}  // namespace

SheetEditor::SheetEditor(QLineEdit* box) : QObject(box), box_(box) {
  box_->setProperty("over", true);
  box_->hide();
  box_->installEventFilter(this);
}

void SheetEditor::add(QLabel* value, QPushButton* button, Entry entry, const SheetInput& input) {
  places_.push_back({value, button, entry, input});
  value->installEventFilter(this);
}

void SheetEditor::setActive(bool active) {
  if (!active) cancel();
  active_ = active;
  for (const Place& place : places_) {
    dress(*place.value, active, place.entry == Entry::Picked);
    if (place.button) place.button->setVisible(active);
  }
}

void SheetEditor::begin() {
  if (active_ && !places_.empty()) openAt(0);
}

void SheetEditor::open(const QLabel* value) {
  const auto place = std::ranges::find(places_, value, &Place::value);
  if (active_ && place != places_.end()) openAt(static_cast<std::size_t>(place - places_.begin()));
}

void SheetEditor::openBehind(const QLabel* value) {
  const auto place = std::ranges::find(places_, value, &Place::value);
  if (!active_ || place == places_.end()) return;
  at_ = static_cast<std::size_t>(place - places_.begin());
  openBeside(1);
}

bool SheetEditor::openFirstEmpty() {
  const auto place =
      std::ranges::find_if(places_, [](const Place& each) { return each.value->text().isEmpty(); });
  if (!active_ || place == places_.end()) return false;
  openAt(static_cast<std::size_t>(place - places_.begin()));
  return true;
}

void SheetEditor::resume() {
  if (active_ && !open_ && at_ < places_.size()) openAt(at_);
}

/// What was refused, or what is there, or what the value begins with.
QString SheetEditor::offeredIn(const Place& place, const QString& refused) const {
  if (!refused.isEmpty()) return refused;
  return before_.isEmpty() && place.input.offered ? place.input.offered() : before_;
}

void SheetEditor::openAt(std::size_t index) {
  if (open_) commit();
  const QString refused = std::exchange(again_, {});
  const bool again = index == at_;
  at_ = index;
  const Place& place = places_[at_];
  before_ = place.value->text();
  box_->setValidator(place.input.limit);
  box_->setText(offeredIn(place, again ? refused : QString()));
  box_->setReadOnly(place.entry == Entry::Picked);
  box_->setAlignment(place.value->alignment());
  open_ = true;
  lay();
  box_->show();
  box_->raise();
  box_->setFocus();
  box_->selectAll();
  const auto unit = place.input.unit.isEmpty() ? -1 : box_->text().indexOf(place.input.unit);
  if (unit >= 0) box_->setSelection(0, static_cast<int>(unit));
}

void SheetEditor::lay() {
  const Place& place = places_[at_];
  QRect area(place.value->mapTo(box_->parentWidget(), QPoint()), place.value->size());
  if (place.button) area.setWidth(place.button->x() - kGap);
  box_->setGeometry(area);
}

void SheetEditor::commit() {
  if (!open_) return;
  const QString entered = box_->text();
  leave();
  if (entered != before_) emit committed(places_[at_].value, entered);
}

void SheetEditor::cancel() {
  if (open_) leave();
}

/// The value has the focus then, so that keys open it or the next one, though it has no policy for it: a
/// label with one sets its text a pixel higher than the locked values.
///
/// Closed first: the focus that goes to the value must not end it a second time. It goes before the box is
/// hidden, or the window system would give it to the next control.
void SheetEditor::leave() {
  open_ = false;
  places_[at_].value->setFocus(Qt::OtherFocusReason);
  box_->hide();
}

void SheetEditor::moveBy(int step) {
  goOnAt_ = nullptr;
  commit();
  if (!active_ || open_) return;
  if (goOnAt_) return open(goOnAt_);
  openBeside(step);
}

/// Opens the value `step` places after the last one that was open, if there is one.
void SheetEditor::openBeside(int step) {
  const auto next = static_cast<std::ptrdiff_t>(at_) + step;
  if (next >= 0 && next < std::ssize(places_)) openAt(static_cast<std::size_t>(next));
}

bool SheetEditor::eventFilter(QObject* watched, QEvent* event) {
  auto* value = qobject_cast<QLabel*>(watched);  // none while one is being destroyed
  const bool taken = watched == box_ ? boxEvent(*event) : value && valueEvent(value, *event);
  return taken || QObject::eventFilter(watched, event);
}

bool SheetEditor::boxEvent(QEvent& event) {
  if (event.type() == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent&>(event).reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) commit();
    return false;
  }
  return event.type() == QEvent::KeyPress && keyPressed(static_cast<QKeyEvent&>(event));
}

void SheetEditor::pick(const QString& text) {
  if (!places_[at_].button) return;
  emit seeking(text);
  places_[at_].button->click();
  emit seeking({});
}

bool SheetEditor::keyPressed(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
      moveBy(1);
      return true;
    case Qt::Key_Backtab:
      moveBy(-1);
      return true;
    case Qt::Key_Escape:
      cancel();
      return true;
    case Qt::Key_F2:
      pick({});
      return true;
    default:
      break;
  }
  if (places_[at_].entry != Entry::Picked || !writesText(event)) return false;
  pick(event.text());
  return true;
}

bool SheetEditor::valueEvent(const QLabel* value, QEvent& event) {
  const auto type = event.type();
  if (open_ && value == places_[at_].value && (type == QEvent::Resize || type == QEvent::Move)) lay();
  if (!active_) return false;
  if (type == QEvent::MouseButtonPress) {
    open(value);
    return true;
  }
  if (type != QEvent::KeyPress) return false;
  const int key = static_cast<QKeyEvent&>(event).key();
  if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_F2) {
    open(value);
    return true;
  }
  if (writesText(static_cast<QKeyEvent&>(event))) {
    open(value);
    QApplication::sendEvent(box_, &event);
    return true;
  }
  if (key != Qt::Key_Tab && key != Qt::Key_Backtab) return false;
  openBeside(key == Qt::Key_Tab ? 1 : -1);
  return true;
}

}  // namespace zelkor
