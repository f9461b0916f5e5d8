#include "forms/Walk.h"

#include <map>
#include <QAccessible>
#include <QScreen>

namespace zelkor::test {
namespace {

/// Where the keyboard goes with Tab, from the first control to the last one.
std::vector<QWidget*> tabStops(const QWidget& form) {
  std::vector<QWidget*> stops;
  for (QWidget* next = form.nextInFocusChain(); next != &form; next = next->nextInFocusChain()) {
    const bool isStop = next->isVisibleTo(&form) && next->isEnabled() && !next->focusProxy() &&
                        (next->focusPolicy() & Qt::TabFocus) && next->window() == &form;
    if (isStop && !next->visibleRegion().isEmpty()) stops.push_back(next);
  }
  return stops;
}

std::string nameOf(QWidget& control) {
  return QAccessible::queryAccessibleInterface(&control)->text(QAccessible::Name).toStdString();
}

std::string labelOf(const QWidget& control) {
  return control.metaObject()->className() + (" " + control.objectName().toStdString());
}

std::vector<const QWidget*> lineage(const QWidget& widget) {
  std::vector<const QWidget*> above;
  for (const QWidget* each = &widget; each; each = each->isWindow() ? nullptr : each->parentWidget())
    above.insert(above.begin(), each);
  return above;
}

QRect placeIn(const QWidget& part, const QWidget& window) {
  return {part.mapTo(&window, QPoint()), part.size()};
}

/// Whether one reads `first` before `second`: the parts of the screen that hold them are compared.
bool isReadBefore(const QWidget& first, const QWidget& second) {
  const auto one = lineage(first);
  const auto other = lineage(second);
  std::size_t at = 0;
  while (at < one.size() && at < other.size() && one[at] == other[at]) ++at;
  if (at == one.size() || at == other.size()) return true;  // one lies in the other
  const QRect a = placeIn(*one[at], *one.front());
  const QRect b = placeIn(*other[at], *one.front());
  if (a.bottom() < b.top()) return true;
  if (b.bottom() < a.top()) return false;
  return a.left() <= b.left();
}

/// A key of two commands would press neither.
void expectKeysOfTheirOwn(const QWidget& form) {
  std::map<QString, std::string> commands;
  for (const QAction* action : form.findChildren<QAction*>()) {
    const QString key = action->shortcut().toString();
    if (key.isEmpty()) continue;
    const auto [other, isFirst] = commands.emplace(key, action->text().toStdString());
    EXPECT_TRUE(isFirst) << key.toStdString() << " is for " << other->second << " and "
                         << action->text().toStdString();
  }
}

}  // namespace

void expectReadable(const QWidget& form) {
  expectKeysOfTheirOwn(form);
  const QSize screen = form.screen()->availableSize();
  EXPECT_TRUE(form.width() <= screen.width() && form.height() <= screen.height()) << "larger than the screen";
  const QWidget* before = nullptr;
  for (QWidget* stop : tabStops(form)) {
    const std::string name = nameOf(*stop);
    EXPECT_FALSE(name.empty() || name == "…") << labelOf(*stop) << " has no name";
    if (before && !isReadBefore(*before, *stop))
      ADD_FAILURE() << labelOf(*before) << " comes before " << labelOf(*stop);
    before = stop;
  }
}

Lines namesOf(const QWidget& form) {
  Lines names;
  for (QWidget* stop : tabStops(form)) names.push_back(nameOf(*stop));
  return names;
}

}  // namespace zelkor::test
