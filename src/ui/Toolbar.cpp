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

void Toolbar::setButtons(std::initializer_list<const char*> captions) {
  for (const QString caption : captions) {
    if (caption.isEmpty()) {
      addSeparator();
      continue;
    }
    QAction* command = addAction(commandIcon(caption), caption);
    command->setObjectName(caption);
    const QKeySequence shortcut = shortcutOf(caption);
    command->setShortcut(shortcut);
    command->setToolTip(
        shortcut.isEmpty() ? caption : caption + " (" + shortcut.toString(QKeySequence::NativeText) + ")");
    connect(command, &QAction::triggered, this, [this, caption] { emit ButtonClick(caption); });
  }
}

QAction& Toolbar::button(std::string_view caption) const {
  auto* command = findChild<QAction*>(toQt(caption), Qt::FindDirectChildrenOnly);
  if (!command) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return *command;
}

}  // namespace zelkor
