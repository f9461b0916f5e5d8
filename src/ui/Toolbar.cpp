#include "ui/Toolbar.h"

#include <QAction>

#include "base/RuntimeError.h"
#include "ui/Icons.h"
#include "ui/Texts.h"

namespace zelkor {
namespace {

QKeySequence shortcutOf(const QString& caption) {
  if (caption == "刷新") return Qt::Key_F5;
  if (caption == "保存") return Qt::CTRL | Qt::Key_S;
  return {};
}

}  // namespace

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent) {
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setIconSize({20, 20});
  setMovable(false);
}

void Toolbar::setButtons(std::initializer_list<ToolbarButton> buttons) {
  for (const auto& [caption, key] : buttons) {
    if (caption.isEmpty()) {
      addSeparator();
      continue;
    }
    QAction* command = addAction(commandIcon(caption), caption);
    command->setObjectName(key);
    const QKeySequence shortcut = shortcutOf(caption);
    command->setShortcut(shortcut);
    command->setToolTip(
        shortcut.isEmpty() ? caption : caption + " (" + shortcut.toString(QKeySequence::NativeText) + ")");
    connect(command, &QAction::triggered, this, [this, pressed = key] { emit ButtonClick(pressed); });
  }
}

QAction& Toolbar::button(std::string_view key) const {
  auto* command = findChild<QAction*>(toQt(key), Qt::FindDirectChildrenOnly);
  if (!command) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return *command;
}

}  // namespace zelkor
