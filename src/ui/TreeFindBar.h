#pragma once

#include <functional>

#include "ui/FindBar.h"
#include "ui/TreeSearch.h"

class QTreeWidget;

namespace zelkor {

/// Searches the entries of a tree: goes to the first one whose code begins with what was typed or whose name
/// has it, Up and Down to the others. A letter or digit typed in the tree opens it.
class TreeFindBar final : public FindBar {
 public:
  /// `take` is what Enter does with the entry found.
  TreeFindBar(QTreeWidget& tree, const QString& hint, std::function<void()> take, QWidget* form);

 private:
  QString search(const QString& text) override;
  void step(int direction) override;
  void take() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

  QTreeWidget& tree_;
  std::function<void()> take_;
};

}  // namespace zelkor
