#include "store/catalogue/CatalogueNotation.h"

// Cards and the sheets that change them.

namespace zelkor::catalogue {

std::vector<TableDef> cardTables() {
  return {
      // A version's number is text that counts over all cards. It is no key: a sheet numbers its version
      // after the card's own newest one, and a later card can hold that number already. The second column
      // is one that no version needs, since the method-change sheet copies the columns from the third on.
      // Of the indexes that begin alike the last one made is taken: by sCardNum alone the versions of a
      // card come in the order in which they were written, by sCardNum and sCardID in that of the text,
      // 10 before 9.
      withZeroNumbers(moduleTable("fa_Cards", R"(
        sCardID(20)# sLockedBy sCardNum(20) sAssetNum(40) sAssetName(200) lOptID iOptType=1 iNewType
        sZWVoucherType(20) sZWVoucherNum(20) sDeptNum(255) sTypeNum(20) sOrgID(20) sOrgAddID(20) sStatusID(20)
        sDeprMethodID(20) sCurrency(20) sDeprSubjectNum(40) sDeprSubjectName(100) sProjectNum(40)
        sProjectName(100) sStyle(100) dblBuildArea lBuildNum lMachinNum dblMachinW sSite(200) lLife dStartdate
        dInputDate dTransDate dDisposeDate iInputPeriod iTransPeriod iDisposePeriod dblFCValue dblExchangeRate
        sOperator sDisposer dblNetValueAct lDeprMonthsAct dblCanWorkAct dblLegacy sVoucherNum(20)
        sEvaluateNum(20) dblValue dblDepr dblDecDeprT dblDecDepr dblDeprRate dblDecDeprRate lDecDeprMonths
        dblDecWorkT dblDecPerDepr dblBV dblBVRate dblCanWork dblPerDepr lUsedMonths sWorkUnit(20)
        dblTransInDeprTCard dblTransOutDeprTCard iVouchsNextMonthAct sTransTypeNum(20) sTransDepteNum(255)
        dblDecPreValueT dblRetDecPreValueT bMultiDept sDeptNames(255) dblOffsetTax sOrgDisposeID(20)
        sDisposeReason(255))",
                                  {"sCardID", "sCardNum sCardID", "sCardNum", "sTypeNum sAssetNum sCardNum",
                                   "sDeptNum sTypeNum sCardNum", "sAssetNum", "lOptID"})),
      withZeroNumbers(moduleTable("fa_Cards_Detail", R"(
        sID:counter sCardID(20) sCardNum(20) sDeptNum(255) lOptID dDisposeDate iDisposePeriod dblValue
        dblDecDeprT dblBV dblCanWork dblTransInDeprTCard dblTransOutDeprTCard dblDecPreValueT dblRetDecPreValueT
        dblBuildArea lBuildNum lMachinNum dblMachinW)",
                                  {"sCardID", "sCardNum sCardID"})),
      // The number is given by the transfer, which may repeat one, and left out by a new card.
      withZeroNumbers(moduleTable("fa_DeptScale", R"(
        sID:long sCardNum(20) lOptID sDeptNum(20) dblScale sDeprSubjectNum(40) sDeprSubjectName(100)
        sProjectNum(40) sProjectName(100) cItemclsId(20):text)",
                                  {"sCardNum lOptID", "lOptID", "sID"})),
      moduleTable("fa_AssetAttached", R"(
        lID sCardNum(20) sNum(20) sName(100) sStyle(100) sUnit(20) lQuantity dblValue dDate memRemark sMark(20)
        sLockedBy)",
                  {"sCardNum"}),
  };
}

std::vector<TableDef> changeTables() {
  return {
      moduleTable("fa_Vouchers", R"(
        sNum(20) sCardNum(20) lOptID sVoucherName(40) sVoucherEngName(40) iVoucherType lPreOptID
        sBeforeVoucher(255) sAfterVoucher(255) memReason dTransDate sOperatorVou sSiteAfter(200) iTransPeriod
        sLockedBy)",
                  {"sNum", "sCardNum", "lOptID"}),
      moduleTable("fa_Vouchers_Detail", R"(
        sNum(20) lOptID sCardNum(20) sDeptNum(20) sBeforeVoucher(255) sAfterVoucher(255))"),
      // Numbers repeat once there are ten rows: the next one is counted from the last in the order of text.
      moduleTable("fa_CardsSheets", R"(
        sID(20) sCardNum(20) lSheetNum sNum(20) sVoucherNum(20) sEvaNum(20) dStartDate dEndDate memReason
        memRemark dTransDate sDeptName(255) lDays dblAfterValue dblTransValue sMark(20) sLockedBy)",
                  {"sID", "sCardNum"}),
      moduleTable("fa_Objects", "iObjectnum sName(40) lMaxid"),
      moduleTable("fa_EvaluateMain", "sNum(20) lOptID dDate iPeriod sOperator memReason sLockedBy"),
      moduleTable("fa_EvaluateVouchers", R"(
        sNum(20) lOptID sCardNum(20) dDate iPeriod dblValueBefore dblValue dblDeprTotalBefore dblDeprTotal
        sLockedBy)"),
      moduleTable("fa_EvaluateVouchers_Detail", R"(
        sNum(20) lOptID sCardNum(20) sDeptNum(20) dDate iPeriod dblValueBefore dblValue dblDeprTotalBefore
        dblDeprTotal)"),
  };
}

}  // namespace zelkor::catalogue
