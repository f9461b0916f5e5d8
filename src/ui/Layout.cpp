#include "ui/Layout.h"

#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QSplitter>
#include <QTabWidget>

namespace zelkor::layout {
namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr int kFieldGap = 24;  // between pairs of columns
constexpr int kHandleWidth = 8;

QBoxLayout* filled(QBoxLayout* box, std::initializer_list<Item> items) {
  box->setContentsMargins(0, 0, 0, 0);
  box->setSpacing(kSpacing);
  for (const Item& item : items) item.addTo(*box);
  return box;
}

QLabel* captionFor(const char* text, const Item& item) {
  auto* label = new QLabel(text);
  label->setBuddy(item.buddy());
  return label;
}

QWidget* firstWidget(const QLayout& layout) {
  for (int i = 0; i < layout.count(); ++i) {
    if (QWidget* widget = layout.itemAt(i)->widget()) return widget;
  }
  return nullptr;
}

}  // namespace

void Item::addTo(QBoxLayout& box) const {
  if (widget_) {
    box.addWidget(widget_, stretch_);
  } else if (layout_) {
    box.addLayout(layout_, stretch_);
  } else if (pixels_ > 0) {
    box.addSpacing(pixels_);
  } else {
    box.addStretch(stretch_);
  }
}

void Item::addTo(QGridLayout& grid, int row, int column) const {
  if (widget_) grid.addWidget(widget_, row, column);
  if (layout_) grid.addLayout(layout_, row, column);
}

QWidget* Item::buddy() const {
  if (widget_) return widget_;
  return layout_ ? firstWidget(*layout_) : nullptr;
}

Item stretch(int factor) {
  Item item;
  item.stretch_ = factor;
  return item;
}

Item space(int pixels) {
  Item item;
  item.pixels_ = pixels;
  return item;
}

Item wide(QWidget* widget) {
  return {widget, 1};
}

Item wide(QLayout* inner) {
  return {inner, 1};
}

QBoxLayout* row(std::initializer_list<Item> items) {
  return filled(new QHBoxLayout, items);
}

QBoxLayout* column(std::initializer_list<Item> items) {
  return filled(new QVBoxLayout, items);
}

QLayout* fields(const std::vector<Field>& list, int columns) {
  auto* grid = new QGridLayout;
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setHorizontalSpacing(kSpacing);
  grid->setVerticalSpacing(kSpacing);
  int index = 0;
  for (const Field& field : list) {
    const int line = index / columns;
    const int first = index % columns * 3;  // caption, field, gap
    QLabel* caption = captionFor(field.caption, field.item);
    caption->setObjectName(field.name);
    grid->addWidget(caption, line, first, Qt::AlignRight | Qt::AlignVCenter);
    field.item.addTo(*grid, line, first + 1);
    grid->setColumnStretch(first + 1, 1);
    if (first > 0) grid->setColumnMinimumWidth(first - 1, kFieldGap);
    ++index;
  }
  return grid;
}

QBoxLayout* captioned(const char* caption, const Item& item) {
  return row({captionFor(caption, item), item});
}

QGroupBox* frame(const char* title, QLayout* inner, const char* name) {
  auto* box = new QGroupBox(title);
  box->setObjectName(name);
  inner->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  box->setLayout(inner);
  return box;
}

QWidget* page(QLayout* inner) {
  auto* widget = new QWidget;
  widget->setLayout(inner);
  return widget;
}

QWidget* note(const QString& text) {
  auto* label = new QLabel(text);
  label->setWordWrap(true);
  label->setProperty("note", true);
  return label;
}

QWidget* rule() {
  auto* line = new QFrame;
  line->setFrameShape(QFrame::HLine);
  line->setProperty("rule", true);
  return line;
}

void fillTabs(QTabWidget& tabs, std::initializer_list<Tab> list) {
  for (const Tab& tab : list) {
    tab.inner->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    tabs.addTab(page(tab.inner), tab.title);
  }
}

QWidget* panes(QWidget* left, int leftWidth, QWidget* right, int rightWidth) {
  auto* split = new QSplitter;
  split->addWidget(left);
  split->addWidget(right);
  split->setStretchFactor(1, 1);
  split->setSizes({leftWidth, rightWidth});
  split->setChildrenCollapsible(false);
  split->setHandleWidth(kHandleWidth);
  return split;
}

void arrange(QWidget* widget, QLayout* outermost) {
  outermost->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  widget->setLayout(outermost);
}

void arrangeScreen(QWidget* screen, QWidget* toolbar, QLayout* body) {
  body->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  auto* outermost = column({toolbar, wide(body)});
  outermost->setSpacing(0);
  screen->setLayout(outermost);
}

}  // namespace zelkor::layout
