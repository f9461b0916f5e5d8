#include "ui/TreeSearch.h"

#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <vector>

#include "ui/TreeLoader.h"

namespace zelkor {
namespace {

/// The entry's text without a code in front.
QString nameOf(const QTreeWidgetItem& item, const QString& code) {
  const QString text = item.text(0);
  return text.startsWith(code + ' ') ? text.mid(code.size() + 1) : text;
}

}  // namespace

bool matches(const QTreeWidgetItem& item, const TreeSearch& search) {
  const QString code = tagOf(item);
  if (code.isEmpty()) return false;
  if (search.by == TreeSearch::ByCode) return code.startsWith(search.text, Qt::CaseInsensitive);
  return nameOf(item, code).contains(search.text, Qt::CaseInsensitive);
}

QTreeWidgetItem* firstMatch(const QTreeWidget& tree, const TreeSearch& search) {
  for (QTreeWidgetItemIterator it(const_cast<QTreeWidget*>(&tree)); *it; ++it) {
    if (matches(**it, search)) return *it;
  }
  return nullptr;
}

QTreeWidgetItem* nextMatch(const QTreeWidget& tree, const TreeSearch& search, int direction) {
  std::vector<QTreeWidgetItem*> before;
  std::vector<QTreeWidgetItem*> behind;
  bool passed = false;
  for (QTreeWidgetItemIterator it(const_cast<QTreeWidget*>(&tree)); *it; ++it) {
    if (*it == tree.currentItem()) {
      passed = true;
    } else if (matches(**it, search)) {
      (passed ? behind : before).push_back(*it);
    }
  }
  if (direction < 0) {
    if (!before.empty()) return before.back();
    return behind.empty() ? nullptr : behind.back();
  }
  // Without a current entry nothing has been passed: the first match is the next one.
  if (!behind.empty()) return behind.front();
  return before.empty() ? nullptr : before.front();
}

}  // namespace zelkor
