#include "ui/Toolbar.h"

#include <QAction>
#include <QToolButton>

#include "base/RuntimeError.h"
#include "ui/CommandKeys.h"
#include "ui/Icons.h"
#include "ui/Texts.h"

namespace zelkor {
namespace {

constexpr int kIconSize = 20;

QString tipOf(const Command& command, const QKeySequence& key) {
  if (!command.hasRoutine()) return idleTip(command.text());
  if (key.isEmpty()) return command.text();
  return QString("%1 (%2)").arg(command.text(), key.toString(QKeySequence::NativeText));
}

/// The window system's own sign that there is more can hardly be seen.
void dressOverflow(const QToolBar& bar) {
  auto* overflow = bar.findChild<QToolButton*>("qt_toolbar_ext_button");
  if (!overflow) return;
  overflow->setIcon(commandIcon("更多"));
  overflow->setToolTip("更多命令");
  overflow->setAccessibleName("更多命令");
}

}  // namespace

Toolbar::Toolbar(QWidget* parent) : QToolBar(parent) {
  setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  setIconSize({kIconSize, kIconSize});
  setMovable(false);
  dressOverflow(*this);
}

QAction* Toolbar::add(const Command& command) {
  if (command.isSeparator()) return addSeparator();
  QAction* button = addAction(commandIcon(command.text()), command.text());
  const QKeySequence key = command.key().isEmpty() ? keyOfCommand(command.text()) : command.key();
  button->setObjectName(command.name());
  button->setToolTip(tipOf(command, key));
  button->setEnabled(command.hasRoutine());
  if (command.hasRoutine()) button->setShortcut(key);
  return button;
}

QString idleTip(const QString& caption) {
  return QString("“%1”在本界面不起作用").arg(caption);
}

QAction& Toolbar::button(std::string_view name) const {
  auto* button = findChild<QAction*>(toQt(name), Qt::FindDirectChildrenOnly);
  if (!button) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  return *button;
}

}  // namespace zelkor
