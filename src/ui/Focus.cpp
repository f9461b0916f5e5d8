#include "ui/Focus.h"

#include <algorithm>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <vector>

namespace zelkor {
namespace {

constexpr const char* kEndings[] = {"退出", "取消", "关闭", "放弃", "移出", "删除"};

bool takesFocus(const QWidget& control) {
  return control.focusPolicy() & Qt::TabFocus && control.isEnabled() && control.isVisible() &&
         !control.focusProxy();
}

/// All controls of the window that Tab comes by, in its order, and `control` itself, from the first one on.
std::vector<QWidget*> inReadingOrder(const QWidget& control) {
  std::vector<QWidget*> order;
  QWidget* window = control.window();
  for (QWidget* each = window->nextInFocusChain(); each != window; each = each->nextInFocusChain()) {
    if (each == &control || (takesFocus(*each) && each->window() == window)) order.push_back(each);
  }
  return order;
}

bool isLiable(const QWidget* control) {
  return takesFocus(*control) && !endsOrRemoves(*control);
}

}  // namespace

bool writesText(const QKeyEvent& key) {
  constexpr auto kCommands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
  return !key.text().isEmpty() && key.text().front().isPrint() && !key.text().front().isSpace() &&
         !(key.modifiers() & kCommands);
}

bool endsOrRemoves(const QWidget& control) {
  const auto* button = qobject_cast<const QPushButton*>(&control);
  if (!button) return false;
  const QString caption = button->text().remove('&');
  return std::ranges::any_of(kEndings, [&](const char* ending) { return caption.startsWith(ending); });
}

QWidget* nextBehind(const QWidget& control) {
  const std::vector<QWidget*> order = inReadingOrder(control);
  const auto own = std::ranges::find(order, &control);
  if (own == order.end()) return nullptr;
  const auto next = std::find_if(own + 1, order.end(), isLiable);
  return next == order.end() ? nullptr : *next;
}

QWidget* heirOf(const QWidget& control) {
  const std::vector<QWidget*> order = inReadingOrder(control);
  const auto own = std::ranges::find(order, &control);
  const auto isHeir = [&](const QWidget* each) {
    return each != &control && !control.isAncestorOf(each) && isLiable(each);
  };
  const auto behind = std::find_if(own, order.end(), isHeir);
  if (behind != order.end()) return *behind;
  const auto before = std::find_if(std::make_reverse_iterator(own), order.rend(), isHeir);
  return before == order.rend() ? nullptr : *before;
}

bool onlyButtonsFrom(const QWidget& control) {
  const std::vector<QWidget*> order = inReadingOrder(control);
  return std::all_of(std::ranges::find(order, &control), order.end(),
                     [](const QWidget* each) { return qobject_cast<const QPushButton*>(each); });
}

void returnTo(QWidget& field) {
  field.setFocus(Qt::OtherFocusReason);
  if (auto* box = qobject_cast<QLineEdit*>(&field)) box->selectAll();
}

}  // namespace zelkor
