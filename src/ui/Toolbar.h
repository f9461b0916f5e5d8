#pragma once

#include <QToolBar>
#include <string_view>

#include "ui/Command.h"

namespace zelkor {

/// A row of commands with icons, each under its name as a control. Their keys (`CommandKeys`) act wherever
/// the focus is and stand in their tips. What does not fit is behind a button at the end of the row.
class Toolbar final : public QToolBar {
 public:
  explicit Toolbar(QWidget* parent = nullptr);

  /// Adds the command's button, or a separator, and returns it. `Form::setCommands` connects it.
  QAction* add(const Command& command);
  /// The command of that name; error 9 when there is none.
  QAction& button(std::string_view name) const;
  void enable(std::string_view name, bool enabled) { button(name).setEnabled(enabled); }
};

/// The tip of a command that does nothing on its screen.
QString idleTip(const QString& caption);

}  // namespace zelkor
