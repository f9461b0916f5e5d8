#pragma once

#include <QKeySequence>

class QKeyEvent;
class QLineEdit;
class QWidget;

namespace zelkor {

/// The key of the commands of that caption, the same on every screen; empty for a caption that has none.
QKeySequence keyOfCommand(const QString& caption);

/// Whether a field lets the key go to a command, though it has a use of its own for it. Called as the window
/// system asks which of the two it is for.
bool leavesKeyToCommand(const QLineEdit& field, const QKeyEvent& key);
/// Whether the key edits the text that is being typed, and no command may take it.
bool belongsToTyping(const QWidget* focus, const QKeyEvent& key);

}  // namespace zelkor
