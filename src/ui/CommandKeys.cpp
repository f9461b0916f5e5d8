#include "ui/CommandKeys.h"

#include <algorithm>
#include <QKeyEvent>
#include <QLineEdit>

#include "ui/Texts.h"

namespace zelkor {
namespace {

struct CommandKey {
  const char* caption;
  QKeyCombination key;
};

constexpr QKeyCombination kUndoKey = Qt::CTRL | Qt::Key_Z;

constexpr CommandKey kKeys[] = {
    {"增加", Qt::CTRL | Qt::Key_N},
    {"修改", Qt::CTRL | Qt::Key_E},
    {"删除", Qt::CTRL | Qt::Key_Delete},
    {"保存", Qt::CTRL | Qt::Key_S},
    {"取消", kUndoKey},
    {"恢复", kUndoKey},
    {"刷新", Qt::Key_F5},
    {"退出", Qt::CTRL | Qt::Key_W},
    {"制单", Qt::CTRL | Qt::Key_M},
    {"凭证", Qt::CTRL | Qt::Key_M},
    {"打开", Qt::CTRL | Qt::Key_O},
};

bool takesText(const QLineEdit& field) {
  return field.isEnabled() && !field.isReadOnly();
}

bool wasTypedInto(const QLineEdit& field) {
  return takesText(field) && field.isVisible() && (field.isUndoAvailable() || field.isRedoAvailable());
}

/// One key takes back letters in a field and the whole record on the toolbar: what has been typed anywhere on
/// the screen keeps it from the toolbar.
bool anythingIsTyped(const QWidget& screen) {
  const auto fields = screen.findChildren<QLineEdit*>();
  return std::ranges::any_of(fields, [](const QLineEdit* field) { return wasTypedInto(*field); });
}

}  // namespace

QKeySequence keyOfCommand(const QString& caption) {
  const auto* found =
      std::ranges::find_if(kKeys, [&](const CommandKey& each) { return toQt(each.caption) == caption; });
  return found == std::end(kKeys) ? QKeySequence() : QKeySequence(found->key);
}

bool leavesKeyToCommand(const QLineEdit& field, const QKeyEvent& key) {
  if (key.keyCombination() == kUndoKey) return !anythingIsTyped(*field.window());
  return key.keyCombination() != (Qt::CTRL | Qt::Key_Delete) &&
         std::ranges::find(kKeys, key.keyCombination(), &CommandKey::key) != std::end(kKeys);
}

bool belongsToTyping(const QWidget* focus, const QKeyEvent& key) {
  const auto* field = qobject_cast<const QLineEdit*>(focus);
  return field && takesText(*field) && key.matches(QKeySequence::DeleteEndOfWord);
}

}  // namespace zelkor
