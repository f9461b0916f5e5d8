#include "ui/Toolbar.h"

#include <QAction>
#include <utility>

#include "base/RuntimeError.h"
#include "ui/Icons.h"
#include "ui/Texts.h"

namespace zelkor {
namespace {

/// Keys that commands of these captions have on every screen.
constexpr std::pair<const char*, QKeyCombination> kCommonKeys[] = {
    {"刷新", Qt::Key_F5},
    {"保存", Qt::CTRL | Qt::Key_S},
};

QKeySequence keyOf(const Command& command) {
  if (!command.key().isEmpty()) return command.key();
  for (const auto& [caption, key] : kCommonKeys) {
    if (command.text() == caption) return key;
  }
  return {};
}

}  // namespace

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent) {
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setIconSize({20, 20});
  setMovable(false);
}

QAction* Toolbar::add(const Command& command) {
  if (command.isSeparator()) return addSeparator();
  QAction* button = addAction(commandIcon(command.text()), command.text());
  const QKeySequence key = keyOf(command);
  button->setObjectName(command.name());
  button->setShortcut(key);
  button->setToolTip(key.isEmpty() ? command.text()
                                   : command.text() + " (" + key.toString(QKeySequence::NativeText) + ")");
  return button;
}

QAction& Toolbar::button(std::string_view name) const {
  auto* button = findChild<QAction*>(toQt(name), Qt::FindDirectChildrenOnly);
  if (!button) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return *button;
}

}  // namespace zelkor
