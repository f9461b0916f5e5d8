#include "store/catalogue/CatalogueNotation.h"

// The module's own archives, its settings, and what it only keeps for other screens of the suite.

namespace zelkor::catalogue {

std::vector<TableDef> archiveTables() {
  return {
      // One column per level of the longest coding rule.
      moduleTable("fa_departments", R"(
        sNum(20) sName(100) sNum[1..9](20) sParentNum(20) lChilds iLevel iDefinetype sSubjectNum(40)
        sSubjectName(100))",
                  {"unique sNum"}),
      // Adding a category does not ask whether its code is taken.
      moduleTable("fa_AssetTypes", R"(
        sNum(20) sName(100) iLife dblBVRate sUnit(20) iDeprType sDeprMethodNum(20) sModelID(20) sNum[1..4](20)
        iLevel lChilds sID(20) sParentID(20) sParentNum(20) iDefineType)",
                  {"sNum"}),
      moduleTable("fa_Status", R"(
        sID(20) sName(60) sEngName(60) sParentID(20) bNeedDepr lchilds:long Num1(20):text Num2(20):text iLevel
        iDefineType)",
                  {"unique sID"}),
      moduleTable("fa_Depreciations", "sID(20) sName(60)", {"unique sID"}),
      moduleTable("fa_Origins", R"(
        sID(20) sName(60) sParentID(20) lChilds iLevel iType sSubjectNum(40) sSubjectName(100))",
                  {"unique sID"}),
  };
}

std::vector<TableDef> settingTables() {
  return {
      suiteTable("AccInformation", R"(
        cSysID(10) cID(10) cName(60) cCaption(120) cType(20) cValue(255) cDefault(255) bVisible bEnable)",
                 {"cName"}),
      moduleTable("Fa_log", "dDate sOperater mMemo:memo"),
      moduleTable("fa_Models", "sModelID(20) sName(60) sLockedBy"),
      moduleTable("fa_Items", "sItemID(20) sName(60) sType(20) sLockedBy"),
      moduleTable("fa_ItemsManual", "sCardNum(20) sLockedBy", {"unique sCardNum"}),
      moduleTable("fa_ItemsOfModel", R"(
        sModelID(20) iSheetID sItemID(20) lItemRow lItemStartCol lItemEndCol lInputCol bSameCaption sLockedBy)"),
      moduleTable("fa_ItemsOfQuery", "iQuerysType sName(60)"),
      moduleTable("fa_VtsObject", "iMonth sModelId(20) objVtsfile:binary"),
      moduleTable("fa_Querys", "sQueryID(20) sName(60) iQuerysType sLockedBy"),
      moduleTable("fa_QueryFilters", R"(
        sQueryID(20) sItemID(20) sItemType(20) sAndOr(10) sLeftBracket(10) sComparison(10) sWordValue(255)
        sRightBracket(10) sLockedBy)"),
      moduleTable("fa_Control", "sName(60) sValue(255) sLockedBy"),
      moduleTable("fa_Dictionary", "sID(20) sName(60) sValue(255) sLockedBy"),
      moduleTable("fa_JKSet", "sID(20) sName(60) sValue(255)"),
      moduleTable("fa_JKItemSet", "sID(20) sItemID(20) sName(60) sValue(255)"),
  };
}

}  // namespace zelkor::catalogue
