#pragma once

#include <QString>
#include <span>

#include "base/TreeRow.h"

class QTreeWidget;
class QTreeWidgetItem;

namespace zelkor {

/// Fills the tree anew. A row whose parent is not there hangs below the first row, a first row without one is
/// the root. The order of the rows is kept; a parent may come behind its children.
void loadTree(QTreeWidget& tree, std::span<const TreeRow> rows);

/// Adds one more entry below `parent`, which looks like a folder from then on.
QTreeWidgetItem* addTreeRow(QTreeWidgetItem& parent, const TreeRow& row);

QString keyOf(const QTreeWidgetItem& item);
QString tagOf(const QTreeWidgetItem& item);

/// The item with that key, without regard to case; nullptr when there is none.
QTreeWidgetItem* findByKey(const QTreeWidget& tree, const QString& key);

/// What is common to the trees of all forms: one column without a header, icons that follow opening.
void dressTree(QTreeWidget& tree);

}  // namespace zelkor
