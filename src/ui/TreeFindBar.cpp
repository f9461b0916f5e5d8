#include "ui/TreeFindBar.h"

#include <QKeyEvent>
#include <QTreeWidget>
#include <utility>

namespace zelkor {

TreeFindBar::TreeFindBar(QTreeWidget& tree, const QString& hint, std::function<void()> take, QWidget* form)
    : FindBar(tree, hint, form), tree_(tree), take_(std::move(take)) {
  tree.installEventFilter(this);
}

/// An entry that matches already stays the current one.
QString TreeFindBar::search(const QString& text) {
  if (text.isEmpty()) return {};
  const TreeSearch sought{text, TreeSearch::ByCodeOrName};
  if (tree_.currentItem() && matches(*tree_.currentItem(), sought)) return {};
  QTreeWidgetItem* const found = firstMatch(tree_, sought);
  if (!found) return "没有找到";
  tree_.setCurrentItem(found);
  return {};
}

void TreeFindBar::step(int direction) {
  if (QTreeWidgetItem* item = nextMatch(tree_, {text(), TreeSearch::ByCodeOrName}, direction)) {
    tree_.setCurrentItem(item);
  }
}

/// What does not match has not been found.
void TreeFindBar::take() {
  const QTreeWidgetItem* const item = tree_.currentItem();
  if (item && (text().isEmpty() || matches(*item, {text(), TreeSearch::ByCodeOrName}))) take_();
}

bool TreeFindBar::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &tree_ || event->type() != QEvent::KeyPress) return FindBar::eventFilter(watched, event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  const bool isCommand = key.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  if (isCommand || key.text().isEmpty() || !key.text().at(0).isLetterOrNumber()) return false;
  searchFor(key.text());
  return true;
}

}  // namespace zelkor
