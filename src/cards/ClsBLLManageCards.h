#pragma once

#include <string_view>

#include "startup/BusinessClass.h"
#include "store/engine/Foresight.h"

namespace zelkor {

/// What the card list reads: the rows of its trees and the cards. A recordset that could not be opened comes
/// back closed.
class ClsBLLManageCards : public BusinessClass {
 public:
  explicit ClsBLLManageCards(DbEngine& engine) : BusinessClass(engine, "ClsBLLManageCards.") {}

  /// Rows with sNum, sParentNum, sName and lChilds. The kinds "部门根节点名称" and "类别根节点名称" give the
  /// root, "按部门查询" and "按类别查询" what hangs below `parent` (below the root when it is empty); any
  /// other kind gives a closed recordset.
  Recordset rstGetDepartMent(std::string_view kind, std::string_view parent = {});

  /// Has the rows of the root and of what hangs below it, by their kinds, read together where each would be a
  /// wait, until the result goes, with the columns of what a list of cards is read from.
  [[nodiscard]] Foresight foreseeTree(std::string_view root, std::string_view kind);

  /// Every version of every card without a condition, each card's newest first. With a condition of the
  /// dialect the versions that meet it and bear the highest sCardID of some card, compared as text.
  Recordset rstGetCards(std::string_view condition);
};

}  // namespace zelkor
