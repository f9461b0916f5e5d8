#include "changes/ClsBalanType.h"

#include "base/RuntimeError.h"

namespace zelkor {

Recordset ClsBalanType::rstGetDepartMent() {
  return query("rstGetDepartMent", "SELECT sID,sName FROM fa_Depreciations ");
}

std::vector<TreeRow> balanceTypeTree(ClsBalanType& types) {
  std::vector<TreeRow> tree{{"R", "", "顶层节点"}};
  Recordset methods = types.rstGetDepartMent();
  if (!methods.isOpen()) return tree;
  for (; !methods.Eof(); methods.MoveNext()) {
    const std::string id = methods.TextOrEmpty("sID");
    tree.push_back({"D" + id, "R", methods.TextOrEmpty("sName") + "[" + id + "]", id});
  }
  return tree;
}

}  // namespace zelkor
