#include "cards/ClsBLLManageCards.h"

#include <string>

#include "store/engine/Statement.h"

namespace zelkor {
namespace {

std::string rootStatement(std::string_view table) {
  return sql("Select sNum, sParentNum, sName,lChilds  from ", table, " where sNum= '&' ");
}

std::string childrenStatement(std::string_view table, std::string_view parent) {
  const std::string list = sql("Select  sNum, sParentNum, sName, lChilds from ", table, " ");
  if (!parent.empty()) return sql(list, "where sParentNum= '", parent, "' Order By sNum");
  return sql(list, " where ((sParentNum is Null) OR sParentNum= '') AND sNum<>'&' Order By sNum");
}

std::string treeStatement(std::string_view kind, std::string_view parent) {
  if (kind == "部门根节点名称") return rootStatement("fa_Departments");
  if (kind == "按部门查询") return childrenStatement("fa_Departments", parent);
  if (kind == "类别根节点名称") return rootStatement("fa_AssetTypes");
  if (kind == "按类别查询") return childrenStatement("fa_AssetTypes", parent);
  return {};
}

}  // namespace

Recordset ClsBLLManageCards::rstGetDepartMent(std::string_view kind, std::string_view parent) {
  const std::string statement = treeStatement(kind, parent);
  return statement.empty() ? Recordset() : query("rstGetDepartMent", statement);
}

Foresight ClsBLLManageCards::foreseeTree(std::string_view root, std::string_view kind) {
  return attempt("foreseeTree", Foresight(), [&] {
    return Foresight(zkData(), {treeStatement(root, {}), treeStatement(kind, {}), "fa_cards",
                                "fa_departments", "fa_assettypes", "fa_deprtransactions"});
  });
}

Recordset ClsBLLManageCards::rstGetCards(std::string_view condition) {
  const std::string newest =
      condition.empty()
          ? std::string()
          : sql("  WHERE fa_Cards.sCardID in (select max(a.sCardID) from fa_Cards as a GROUP BY "
                "a.sCardNum) and  ",
                condition);
  const std::string list =
      sql("Select (fa_Cards.sCardID) as sCardID,"
          "(fa_cards.sCardNum) as sCardNum,'1'"
          "as sTempField ,  (fa_Cards.sCardNum) as [卡片编号] ,"
          "fa_Cards.dStartdate as [开始使用日期],"
          "fa_Cards.lLife/12  as [使用年限],"
          "(fa_Cards.dblValue) as [原值], (fa_Cards.sAssetNum) as [固定资产编号] ,"
          " fa_Cards.dblBVRate  as [净残值率],"
          "(fa_Cards.sOperator) as [录入人] ,fa_Cards.sCardNum as sCardNum1"
          "  FROM fa_Cards  ",
          newest, " order by scardnum,clng(sCardID) desc");
  return attempt("rstGetCards", Recordset(), [&] {
    const Foresight all(zkData(), {list});  // who shows them goes through all: the first few gain nothing
    return zkData().OpenRecordset(list);
  });
}

}  // namespace zelkor
