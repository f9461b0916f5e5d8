#pragma once

#include <QSize>

class QWidget;

namespace zelkor {

/// The window in front, over which the next one opens; nullptr when none is shown.
QWidget* frontWindow();

/// Makes the window no larger than its screen. What does not fit in there scrolls, a toolbar stays above it.
void fitToScreen(QWidget& window);
/// The same for room of that size.
void fitInto(QWidget& window, QSize room);

/// Scrolls a control into view where it lies in something that scrolls and is not larger than that.
void bringIntoView(QWidget& control);

/// Puts a window that has not been shown yet over the middle of another one, which it stays in front of.
void placeOver(QWidget& window, QWidget& below);

/// Makes a window a dialog, which can be neither minimised nor maximised.
void makeDialog(QWidget& window);

}  // namespace zelkor
