#include "ui/WindowPlace.h"

#include <algorithm>
#include <QApplication>
#include <QBoxLayout>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QToolBar>
#include <QWindow>

namespace zelkor {
namespace {

/// What the frame takes where no window shows how wide it is.
constexpr QMargins kUsualFrame(4, 32, 4, 4);

constexpr const char* kScrollName = "screenScroll";

QMargins frameMargins() {
  const QWidget* front = frontWindow();
  const QMargins known = front && front->windowHandle() ? front->windowHandle()->frameMargins() : QMargins();
  return known.isNull() ? kUsualFrame : known;
}

QRect roomOn(const QWidget& window) {
  return window.screen()->availableGeometry().marginsRemoved(frameMargins());
}

bool fits(QSize size, QSize room) {
  return size.width() <= room.width() && size.height() <= room.height();
}

/// The layout's own minimum, and that which the window was given.
QSize smallest(const QWidget& window) {
  return window.minimumSizeHint().expandedTo(window.minimumSize());
}

/// What lies below the toolbar, or all, as a widget of its own. What lies over its controls goes with them.
QWidget* takeBody(QWidget& window) {
  auto* body = new QWidget;
  auto* box = qobject_cast<QBoxLayout*>(window.layout());
  const bool hasToolbar = box && box->count() > 1 && qobject_cast<QToolBar*>(box->itemAt(0)->widget());
  if (hasToolbar) {
    QLayout* inner = box->takeAt(1)->layout();
    inner->setParent(nullptr);
    body->setLayout(inner);
  } else {
    body->setLayout(window.layout());
  }
  for (auto* child : window.findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    const bool stays = child == body || child->isWindow() || qobject_cast<QToolBar*>(child) ||
                       qobject_cast<QMenuBar*>(child);
    if (!stays) child->setParent(body);
  }
  return body;
}

/// The control that has the focus, which may be the one that ends nothing, keeps it.
void letScroll(QWidget& window) {
  if (!window.layout() || window.findChild<QScrollArea*>(kScrollName)) return;
  QWidget* held = window.focusWidget();
  auto* area = new QScrollArea;
  area->setObjectName(kScrollName);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setWidgetResizable(true);
  area->setWidget(takeBody(window));
  if (!window.layout()) {
    auto* all = new QVBoxLayout(&window);
    all->setContentsMargins(0, 0, 0, 0);
  }
  window.setMinimumSize(0, 0);
  window.setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
  static_cast<QBoxLayout*>(window.layout())->addWidget(area, 1);
  if (held) held->setFocus();
}

}  // namespace

QWidget* frontWindow() {
  if (QWidget* modal = QApplication::activeModalWidget()) return modal;
  if (QWidget* active = QApplication::activeWindow()) return active;
  const QWidgetList windows = QApplication::topLevelWidgets();
  const auto shown = std::ranges::find_if(windows, [](const QWidget* window) {
    return window->isVisible() && (window->windowType() == Qt::Window || window->windowType() == Qt::Dialog);
  });
  return shown == windows.end() ? nullptr : *shown;
}

void fitInto(QWidget& window, QSize room) {
  window.ensurePolished();
  if (!window.testAttribute(Qt::WA_Resized)) window.adjustSize();
  QSize size = window.size().expandedTo(smallest(window));
  if (!fits(smallest(window), room)) {
    letScroll(window);
    size.rwidth() += window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  }
  if (window.size() != size.boundedTo(room)) window.resize(size.boundedTo(room));
}

void fitToScreen(QWidget& window) {
  fitInto(window, roomOn(window).size());
}

void bringIntoView(QWidget& control) {
  for (QWidget* above = control.parentWidget(); above; above = above->parentWidget()) {
    auto* area = qobject_cast<QScrollArea*>(above);
    if (area && fits(control.size(), area->viewport()->size())) area->ensureWidgetVisible(&control);
  }
}

void placeOver(QWidget& window, QWidget& below) {
  const QRect room = roomOn(below);
  QRect place(QPoint(), window.size());
  place.moveCenter(below.geometry().center());
  place.moveRight(std::min(place.right(), room.right()));
  place.moveBottom(std::min(place.bottom(), room.bottom()));
  place.moveLeft(std::max(place.left(), room.left()));
  place.moveTop(std::max(place.top(), room.top()));
  const QMargins frame = frameMargins();
  window.move(place.topLeft() - QPoint(frame.left(), frame.top()));
  window.winId();  // the window system's window, which is put in front of the other one
  below.winId();
  window.windowHandle()->setTransientParent(below.windowHandle());
}

void makeDialog(QWidget& window) {
  window.setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                        Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint);
}

}  // namespace zelkor
