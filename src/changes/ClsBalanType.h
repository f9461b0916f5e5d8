#pragma once

#include <vector>

#include "base/TreeRow.h"
#include "startup/BusinessClass.h"
#include "startup/RunContext.h"

namespace zelkor {

/// The depreciation methods as FrmBalanType offers them.
class ClsBalanType : public BusinessClass {
 public:
  explicit ClsBalanType(const RunContext& context) : BusinessClass(context.engine, "ClsBalanType.") {}

  /// sID and sName of the methods; closed on failure.
  Recordset rstGetDepartMent();
};

/// The tree under "顶层节点": the root with key "R", a method with "D" and its sID, its sID as tag, its
/// caption the name with the sID in brackets.
std::vector<TreeRow> balanceTypeTree(ClsBalanType& types);

}  // namespace zelkor
