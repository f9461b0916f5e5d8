#pragma once

#include <QToolBar>
#include <string_view>

#include "ui/Command.h"

namespace zelkor {

/// A row of commands with icons, each under its name as a control. "刷新" answers to F5, "保存" to Ctrl+S
/// wherever the focus is, unless their rows give other keys.
class Toolbar final : public QToolBar {
 public:
  explicit Toolbar(QWidget* parent = nullptr);

  /// Adds the command's button, or a separator, and returns it. `Form::setCommands` connects it.
  QAction* add(const Command& command);
  /// The command of that name; error 9 when there is none.
  QAction& button(std::string_view name) const;
  void enable(std::string_view name, bool enabled) { button(name).setEnabled(enabled); }
};

}  // namespace zelkor
