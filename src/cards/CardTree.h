#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cards/ClsBLLManageCards.h"

namespace zelkor {

/// By what the card list is queried, in the order in which the screen offers it.
enum class CardQuery : int { ByDepartment, ByCategory, Custom };

std::string_view cardQueryName(CardQuery query);

/// A department, a category, or the root of their tree.
struct CardTreeNode {
  CardQuery query = CardQuery::ByDepartment;
  std::string code;  // empty for a root
  std::string name;
  long children = 0;  // as the archive counts them

  bool isRoot() const { return code.empty(); }
  /// "R" for a root, "D" with the code for any other.
  std::string key() const;
  std::string text() const;
};

/// See ClsBLLManageCards::foreseeTree.
[[nodiscard]] Foresight foreseeCardTree(ClsBLLManageCards& cards, CardQuery query);
/// The root of the tree; the query of one's own has nothing else.
CardTreeNode cardTreeRoot(ClsBLLManageCards& cards, CardQuery query);
/// What hangs below `parent` in the order of the codes; nullopt when it cannot be read.
std::optional<std::vector<CardTreeNode>> cardTreeChildren(ClsBLLManageCards& cards,
                                                          const CardTreeNode& parent);

/// The condition by which the node selects cards: empty for a root, which selects all; for a node with
/// children those of its children, not its own. nullopt when the children cannot be read.
std::optional<std::string> cardTreeCondition(ClsBLLManageCards& cards, const CardTreeNode& node);

}  // namespace zelkor
