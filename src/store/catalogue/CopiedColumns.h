#pragma once

#include <string_view>

// The columns by which a table is copied, where a statement names them: into a month's backup and back from a
// template.
namespace zelkor::copied {

constexpr std::string_view AccInformation =
    "cSysID, cID, cName, cCaption, cType, cValue, cDefault, bVisible, bEnable";
constexpr std::string_view fa_AssetAttached =
    "lID, sCardNum, sNum, sName, sStyle, sUnit, lQuantity, dblValue, dDate, memRemark, sMark, sLockedBy";
constexpr std::string_view fa_ItemsOfQuery = "iQuerysType, sName";
constexpr std::string_view fa_ItemsOfModel =
    "sModelID, iSheetID, sItemID, lItemRow, lItemStartCol, lItemEndCol, lInputCol, bSameCaption, sLockedBy";
constexpr std::string_view fa_CardsSheets =
    "sID, sCardNum, lSheetNum, sNum, sVoucherNum, sEvaNum, dStartDate, dEndDate, memReason, memRemark, "
    "dTransDate, sDeptName, lDays, dblAfterValue, dblTransValue, sMark, sLockedBy";
/// fa_DeprVouchers and fa_DeprVouchers_pre.
constexpr std::string_view kAllocationRows =
    "lOptID, iPeriod, sDeptNum, sDeptName, sTypeNum, sTypeName, sProjectNum, sProjectName, sSubjectNum, "
    "sSubjectName, dblDebit, dblCredit, sLockedBy";
constexpr std::string_view fa_QueryFilters =
    "sQueryID, sItemID, sItemType, sAndOr, sLeftBracket, sComparison, sWordValue, sRightBracket, sLockedBy";

}  // namespace zelkor::copied
