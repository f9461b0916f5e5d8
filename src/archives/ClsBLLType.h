#pragma once

#include <string_view>

#include "startup/BusinessClass.h"

namespace zelkor {

/// Reads the ways of addition and reduction, node by node.
class ClsBLLType : public BusinessClass {
 public:
  explicit ClsBLLType(DbEngine& engine) : BusinessClass(engine, "ClsBLLType.") {}

  /// The rows of a node (sID, sName, sParentID, lChilds): "根节点" gives the root, "顶层节点" the top node,
  /// an sID the rows below it. A recordset that could not be opened comes back closed.
  Recordset rstGetDepartMent(std::string_view node);
};

}  // namespace zelkor
