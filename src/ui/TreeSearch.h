#pragma once

#include <QString>

class QTreeWidget;
class QTreeWidgetItem;

namespace zelkor {

/// What the search field of a picker looks for: a text at the beginning of the entries' codes (their tags) or
/// anywhere in their names (their texts without a code and a blank in front), without regard to case. The
/// empty text is in every entry. Heads, which have no tag, are not found.
struct TreeSearch {
  enum By { ByCode, ByName };

  QString text;
  By by = ByName;
};

bool matches(const QTreeWidgetItem& item, const TreeSearch& search);

QTreeWidgetItem* firstMatch(const QTreeWidget& tree, const TreeSearch& search);

/// The match behind the current entry (before it for a negative direction), going round at the ends; nullptr
/// when nothing matches.
QTreeWidgetItem* nextMatch(const QTreeWidget& tree, const TreeSearch& search, int direction);

}  // namespace zelkor
