#include "store/catalogue/CatalogueNotation.h"

// The depreciation ledgers, the rows of a run, and the monthly totals. A month is a column; month-end writes
// the month after the closed one, so that December reaches column 13.

namespace zelkor::catalogue {

std::vector<TableDef> depreciationTables() {
  constexpr std::string_view allocation = R"(
        lOptID iPeriod sDeptNum(255) sDeptName(255) sTypeNum(20) sTypeName(100) sProjectNum(40)
        sProjectName(100) sSubjectNum(40) sSubjectName(100) dblDebit dblCredit sLockedBy)";
  return {
      withZeroNumbers(moduleTable("fa_DeprTransactions", R"(
        sCardNum(20) sDeprAssetNum(40) iInputPeriod dblInputValue dblInputDeprTotal dblInputBV dblInputBVRate
        lInputLife lInputDeprMonths dblMonthValue dblMonthDeprTotal dblMonthBV dblMonthBVRate sMonthStatusID(20)
        dblPeriodValue dblPeriodDeprTotal dblDepr[1..12] dblDeprRate[0..12] dblDeprT[1..13]
        dblMonthValue[0..12] lDeprMonths[1..13] lUsedMonths[1..13] dblDeprThisYear sLockedBy)",
                                  {"sCardNum"})),
      withZeroNumbers(moduleTable("fa_DeprTransactions_Detail", R"(
        sID:counter sCardNum(20) sDeptNum(255) dblDepr[1..12] dblDeprT[1..13] dblMonthValue[1..13]
        dblDeprThisYear)",
                                  {"sCardNum sDeptNum"})),
      withZeroNumbers(
          moduleTable("fa_WorkLoad", "sCardNum(20) dblWork[1..12] dblWorkT[1..12] sLockedBy", {"sCardNum"})),
      withZeroNumbers(moduleTable("fa_WorkLoad_Detail", R"(
        sCardNum(20) sDeptNum(255)
        dblWork1 dblWorkT1 dblWork2 dblWorkT2 dblWork3 dblWorkT3 dblWork4 dblWorkT4 dblWork5 dblWorkT5
        dblWork6 dblWorkT6 dblWork7 dblWorkT7 dblWork8 dblWorkT8 dblWork9 dblWorkT9 dblWork10 dblWorkT10
        dblWork11 dblWorkT11 dblWork12 dblWorkT12 dblDeprWorkThisYear)",
                                  {"sCardNum sDeptNum"})),
      moduleTable("fa_DeprVouchers", allocation),
      moduleTable("fa_DeprVouchers_pre", allocation),
      // No key: a repeated run adds the same row again.
      moduleTable("fa_DeprVoucherMain", "lOptID sNum(20) iMaxPeriod iMinPeriod iStyle"),
      moduleTable("fa_DeprList", "iPeriod dDate sLockedBy"),
      // Month-end adds rows of one department, category and period again and again: they are no key.
      moduleTable("fa_Total", R"(
        sDeptNum(20) sTypeNum(20) iPeriod lCount lMonthCount dblValue dblDeprTotal dblMonthValue
        dblMonthDeprTotal dblYearValue dblYearDeprTotal dblAccrualValue dblDepr dblAddValue dblDecValue dblWork
        dblWorkT dblLastAccrualValue dblLastDepr dblLastAddValue dblLastDecValue dblLastWork dblLastWorkTotal
        dblTransOutDeprTotal)",
                  {"sDeptNum sTypeNum iPeriod"}),
  };
}

}  // namespace zelkor::catalogue
