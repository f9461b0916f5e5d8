#include "ui/TreeLoader.h"

#include <memory>
#include <QHash>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>
#include <vector>

#include "ui/Icons.h"
#include "ui/Texts.h"

namespace zelkor {
namespace {

constexpr int kKeyRole = Qt::UserRole;
constexpr int kTagRole = Qt::UserRole + 1;

using ItemsByKey = QHash<QString, QTreeWidgetItem*>;

std::unique_ptr<QTreeWidgetItem> itemOf(const TreeRow& row) {
  auto item = std::make_unique<QTreeWidgetItem>();
  item->setText(0, toQt(row.text));
  item->setData(0, kKeyRole, toQt(row.key));
  item->setData(0, kTagRole, toQt(row.tag));
  return item;
}

/// Whether `item` hangs below `ancestor`, or is it: such a parent would close a circle.
bool isWithin(const QTreeWidgetItem* item, const QTreeWidgetItem* ancestor) {
  for (; item; item = item->parent()) {
    if (item == ancestor) return true;
  }
  return false;
}

void setIcons(QTreeWidget& tree) {
  const QIcon leaf = leafIcon();
  const QIcon folder = closedFolderIcon();
  for (QTreeWidgetItemIterator it(&tree); *it; ++it) {
    (*it)->setIcon(0, (*it)->childCount() == 0 ? leaf : folder);
  }
}

}  // namespace

void loadTree(QTreeWidget& tree, std::span<const TreeRow> rows) {
  tree.clear();
  ItemsByKey byKey;
  std::vector<std::unique_ptr<QTreeWidgetItem>> items;
  for (const TreeRow& row : rows) {
    items.push_back(itemOf(row));
    byKey.insert(toQt(row.key).toLower(), items.back().get());
  }
  QTreeWidgetItem* root = nullptr;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    QTreeWidgetItem* item = items[i].release();
    QTreeWidgetItem* parent = byKey.value(toQt(rows[i].parentKey).toLower());
    const bool isHead = rows[i].parentKey.empty();
    if (parent && !isHead && !isWithin(parent, item)) {
      parent->addChild(item);
    } else if (root && !isHead) {
      root->addChild(item);
    } else {
      tree.addTopLevelItem(item);
      if (!root) root = item;
    }
  }
  setIcons(tree);
}

QTreeWidgetItem* addTreeRow(QTreeWidgetItem& parent, const TreeRow& row) {
  QTreeWidgetItem* item = itemOf(row).release();
  item->setIcon(0, leafIcon());
  parent.addChild(item);
  const bool isTop = !parent.treeWidget() || &parent == parent.treeWidget()->invisibleRootItem();
  if (!isTop) parent.setIcon(0, parent.isExpanded() ? openFolderIcon() : closedFolderIcon());
  return item;
}

QString keyOf(const QTreeWidgetItem& item) {
  return item.data(0, kKeyRole).toString();
}

QString tagOf(const QTreeWidgetItem& item) {
  return item.data(0, kTagRole).toString();
}

QTreeWidgetItem* findByKey(const QTreeWidget& tree, const QString& key) {
  for (QTreeWidgetItemIterator it(const_cast<QTreeWidget*>(&tree)); *it; ++it) {
    if (keyOf(**it).compare(key, Qt::CaseInsensitive) == 0) return *it;
  }
  return nullptr;
}

void dressTree(QTreeWidget& tree) {
  tree.ensurePolished();  // or rows that are measured before the tree is shown would have another height
  tree.setColumnCount(1);
  tree.setHeaderHidden(true);
  tree.setUniformRowHeights(true);
  tree.setExpandsOnDoubleClick(true);
  QObject::connect(&tree, &QTreeWidget::itemExpanded, &tree, [](QTreeWidgetItem* item) {
    if (item->childCount() > 0) item->setIcon(0, openFolderIcon());
  });
  QObject::connect(&tree, &QTreeWidget::itemCollapsed, &tree, [](QTreeWidgetItem* item) {
    if (item->childCount() > 0) item->setIcon(0, closedFolderIcon());
  });
}

}  // namespace zelkor
