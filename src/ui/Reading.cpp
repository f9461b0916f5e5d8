#include "ui/Reading.h"

#include <algorithm>
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLayout>
#include <QRegularExpression>
#include <QScrollArea>
#include <QSplitter>
#include <QTabBar>
#include <QTabWidget>
#include <tuple>
#include <vector>

namespace zelkor {
namespace {

constexpr const char* kByLabel = "namedByLabel";
constexpr const char* kPickCaption = "…";

using Widgets = std::vector<QWidget*>;

bool takesTab(const QWidget& widget) {
  return (widget.focusPolicy() & Qt::TabFocus) != 0;
}

QRect placeOf(const QWidget& widget) {
  return {widget.mapTo(widget.window(), QPoint()), widget.size()};
}

/// Without the mark of its key and the colon after it.
QString plainCaption(QString caption) {
  static const QRegularExpression key("\\(&.\\)");
  return caption.remove(key).remove('&').remove(QChar(u'：')).trimmed();
}

bool overlapsLines(const QRect& one, const QRect& other) {
  return one.top() <= other.center().y() && other.center().y() <= one.bottom();
}

bool overlapsColumns(const QRect& one, const QRect& other) {
  return one.left() < other.right() && other.left() < one.right();
}

/// How far off the label is; what is in the same line goes before what is above. Negative where it is
/// neither.
int distance(const QRect& label, const QRect& control) {
  constexpr int kAnotherLine = 10000;
  if (label.right() <= control.left() && overlapsLines(control, label)) return control.left() - label.right();
  if (label.bottom() <= control.top() && overlapsColumns(label, control))
    return kAnotherLine + control.top() - label.bottom();
  return -1;
}

/// The label that leads to the control, or the nearest one.
const QLabel* labelOf(const QWidget& control) {
  const QRect place = placeOf(control);
  const QLabel* nearest = nullptr;
  int least = 0;
  for (const auto* label : control.window()->findChildren<QLabel*>()) {
    if (label->buddy() == &control) return label;
    if (!label->isVisible() || plainCaption(label->text()).isEmpty()) continue;
    const int off = distance(placeOf(*label), place);
    if (off < 0 || (nearest && off >= least)) continue;
    nearest = label;
    least = off;
  }
  return nearest;
}

QString nameOf(const QWidget& control) {
  const auto* button = qobject_cast<const QAbstractButton*>(&control);
  const bool picks = button && button->text() == kPickCaption;
  if (button && !picks && !button->text().isEmpty()) return plainCaption(button->text());
  const QString caption = control.window()->windowTitle();
  if (qobject_cast<const QAbstractItemView*>(&control) || qobject_cast<const QTabBar*>(&control))
    return caption;
  const QLabel* label = labelOf(control);
  const QString name = label ? plainCaption(label->text()) : caption;
  return picks ? name + "参照" : name;
}

// A cell of a layout knows its place only by way of the layout.
Widgets inOrder(const QLayout& layout);

void add(Widgets& order, const Widgets& more) {
  order.insert(order.end(), more.begin(), more.end());
}

Widgets childrenOf(const QWidget& widget) {
  Widgets children;
  for (QObject* child : widget.children()) {
    auto* part = qobject_cast<QWidget*>(child);
    if (part && !part->isWindow()) children.push_back(part);
  }
  return children;
}

/// The parts of a widget that shows others, in their order.
Widgets partsOf(const QWidget& widget) {
  Widgets parts;
  if (const auto* tabs = qobject_cast<const QTabWidget*>(&widget)) {
    parts.push_back(tabs->tabBar());
    parts.push_back(tabs->cornerWidget());
    for (int i = 0; i < tabs->count(); ++i) parts.push_back(tabs->widget(i));
  } else if (const auto* split = qobject_cast<const QSplitter*>(&widget)) {
    for (int i = 0; i < split->count(); ++i) parts.push_back(split->widget(i));
  } else if (const auto* area = qobject_cast<const QScrollArea*>(&widget)) {
    parts.push_back(area->widget());
  } else {
    const auto* view = qobject_cast<const QAbstractItemView*>(&widget);
    parts = childrenOf(view ? *view->viewport() : widget);
  }
  return parts;
}

/// The control itself and what lies in it.
Widgets inOrder(QWidget& widget) {
  Widgets order;
  const bool isTabs = qobject_cast<QTabWidget*>(&widget);  // its bar takes the key for it
  if (takesTab(widget) && !isTabs && !widget.focusProxy()) order.push_back(&widget);
  if (widget.layout()) {
    add(order, inOrder(*widget.layout()));
  } else if (!widget.focusProxy() || isTabs) {
    for (QWidget* part : partsOf(widget)) {
      if (part) add(order, inOrder(*part));
    }
  }
  return order;
}

Widgets inOrder(const QLayout& layout) {
  std::vector<std::tuple<int, int, int>> cells;  // row, column, index
  const auto* grid = qobject_cast<const QGridLayout*>(&layout);
  for (int i = 0; i < layout.count(); ++i) {
    int row = 0;
    int column = 0;
    int rows = 0;
    int columns = 0;
    if (grid) grid->getItemPosition(i, &row, &column, &rows, &columns);
    cells.emplace_back(row, column, i);
  }
  std::ranges::sort(cells);
  Widgets order;
  for (const auto& [row, column, i] : cells) {
    QLayoutItem* item = layout.itemAt(i);
    if (QWidget* widget = item->widget()) add(order, inOrder(*widget));
    if (const QLayout* inner = item->layout()) add(order, inOrder(*inner));
  }
  return order;
}

}  // namespace

void nameControl(QWidget& control) {
  if (!control.accessibleName().isEmpty() && !control.property(kByLabel).toBool()) return;
  control.setProperty(kByLabel, true);
  const QString name = nameOf(control);
  if (control.accessibleName() != name) control.setAccessibleName(name);
}

void nameControls(QWidget& window) {
  for (auto* control : window.findChildren<QWidget*>()) {
    if (control->window() == &window && control->focusPolicy() != Qt::NoFocus) nameControl(*control);
  }
}

void tabAsOneReads(QWidget& window) {
  if (!window.layout()) return;
  Widgets order = inOrder(*window.layout());
  for (QWidget* over : childrenOf(window)) {  // what lies over the layout
    if (takesTab(*over) && std::ranges::find(order, over) == order.end()) order.push_back(over);
  }
  // From the window on, or the last control and the first one would pass for neighbours in their order. What
  // takes no focus has no place in it.
  const Qt::FocusPolicy policy = window.focusPolicy();
  window.setFocusPolicy(Qt::TabFocus);
  QWidget* before = &window;
  for (QWidget* control : order) {
    QWidget::setTabOrder(before, control);
    before = control;
  }
  window.setFocusPolicy(policy);
}

}  // namespace zelkor
