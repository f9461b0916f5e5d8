#include "archives/ClsBLLType.h"

#include "store/engine/Statement.h"

namespace zelkor {

Recordset ClsBLLType::rstGetDepartMent(std::string_view node) {
  constexpr std::string_view routine = "rstGetDepartMent";
  if (node == "根节点") {
    return query(routine, "Select sID, sName, sParentID,lChilds  from fa_Origins where sID= '0' ");
  }
  if (node == "顶层节点") {
    return query(routine, "Select sID, sName, sParentID,lChilds  from fa_Origins where sID= '2' ");
  }
  return query(routine, sql("Select sID, sName, sParentID,lChilds  from fa_Origins  ", "where sParentID= '",
                            node, "'"));
}

}  // namespace zelkor
