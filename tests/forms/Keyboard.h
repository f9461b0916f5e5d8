#pragma once

#include <string>

#include "base/Dialogs.h"

class QWidget;

namespace zelkor::test {

/// Presses the key as a keyboard does, on whatever has the focus: "Ctrl+S", "F2", "9" in Qt's names, or a
/// text in quotes. On a real screen the keys go through the display's server and its window manager, to
/// `window`, which is waited for.
void strike(QWidget& window, const std::string& keys);

/// Waits until the window manager has given the window the keyboard. At once without a real screen.
void awaitKeyboard(QWidget& window);

/// On a real screen shows the box and has the keyboard answer it.
void answerOnScreen(const MessageBox& box, Answer answer);

}  // namespace zelkor::test
