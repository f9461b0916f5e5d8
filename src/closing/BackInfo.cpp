#include "closing/BackInfo.h"

#include <array>
#include <string_view>

#include "base/RuntimeError.h"
#include "startup/Logs.h"
#include "store/catalogue/CopiedColumns.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kBackupPrefix = "ZKFA_BAK";

constexpr std::string_view kCardsDetail =
    "sCardID, sCardNum, sDeptNum, lOptID, dDisposeDate, iDisposePeriod, dblValue, dblDecDeprT, "
    "dblBV, dblCanWork, dblTransInDeprTCard, dblTransOutDeprTCard, dblDecPreValueT, "
    "dblRetDecPreValueT, dblBuildArea, lBuildNum, lMachinNum, dblMachinW, sID";
constexpr std::string_view kDeprTransactionsDetail =
    "sCardNum, sDeptNum, dblDepr1, dblDeprT1, dblDepr2, dblDeprT2, dblDepr3, dblDeprT3, "
    "dblDepr4, dblDeprT4, dblDepr5, dblDeprT5, dblDepr6, dblDeprT6, dblDepr7, dblDeprT7, "
    "dblDepr8, dblDeprT8, dblDepr9, dblDeprT9, dblDepr10, dblDeprT10, dblDepr11, dblDeprT11, "
    "dblDepr12, dblDeprT12, dblDeprT13, dblMonthValue1, dblMonthValue2, dblMonthValue3, "
    "dblMonthValue4, dblMonthValue5, dblMonthValue6, dblMonthValue7, dblMonthValue8, "
    "dblMonthValue9, dblMonthValue10, dblMonthValue11, dblMonthValue12, dblMonthValue13, "
    "dblDeprThisYear, sID";
constexpr std::string_view kWorkLoadDetail =
    "sCardNum, sDeptNum, dblWork1, dblWorkT1, dblWork2, dblWorkT2, dblWork3, dblWorkT3, "
    "dblWork4, dblWorkT4, dblWork5, dblWorkT5, dblWork6, dblWorkT6, dblWork7, dblWorkT7, "
    "dblWork8, dblWorkT8, dblWork9, dblWorkT9, dblWork10, dblWorkT10, dblWork11, dblWorkT11, "
    "dblWork12, dblWorkT12, dblDeprWorkThisYear";
constexpr std::string_view kVouchersDetail =
    "sNum, lOptID, sCardNum, sDeptNum, sBeforeVoucher, sAfterVoucher";
constexpr std::string_view kEvaluateVouchersDetail =
    "sNum, lOptID, sCardNum, sDeptNum, dDate, iPeriod, dblValueBefore, dblValue, dblDeprTotalBefore, "
    "dblDeprTotal";

struct Backup {
  std::string_view table;
  std::string_view columns = "*";
  int percentDone = 0;  // what is shown from here on; 0: as before
};

constexpr std::array kBackups = {
    Backup{"AccInformation", copied::AccInformation},
    Backup{"fa_AssetAttached", copied::fa_AssetAttached},
    Backup{"fa_AssetTypes"},
    Backup{"fa_Depreciations"},
    Backup{"fa_Origins"},
    Backup{"fa_Status"},
    Backup{"fa_Items", "*", 30},
    Backup{"fa_ItemsManual"},
    Backup{"fa_ItemsOfQuery", copied::fa_ItemsOfQuery},
    Backup{"fa_ItemsOfModel", copied::fa_ItemsOfModel},
    Backup{"fa_Models"},
    Backup{"fa_Cards"},
    Backup{"fa_DeptScale", "*", 50},
    Backup{"fa_Cards_Detail", kCardsDetail},
    Backup{"fa_DeprTransactions_Detail", kDeprTransactionsDetail},
    Backup{"fa_WorkLoad_Detail", kWorkLoadDetail},
    Backup{"fa_Vouchers_Detail", kVouchersDetail},
    Backup{"fa_EvaluateVouchers_Detail", kEvaluateVouchersDetail},
    Backup{"fa_CardsSheets", copied::fa_CardsSheets},
    Backup{"fa_Control"},
    Backup{"fa_DeprList"},
    Backup{"fa_DeprTransactions"},
    Backup{"fa_DeprVoucherMain", "*", 89},
    Backup{"fa_DeprVouchers", copied::kAllocationRows},
    Backup{"fa_DeprVouchers_pre", copied::kAllocationRows},
    Backup{"fa_Dictionary"},
    Backup{"fa_EvaluateMain"},
    Backup{"fa_EvaluateVouchers"},
    Backup{"fa_ZWVouchers"},
    Backup{"fa_Objects", "*", 100},
    Backup{"fa_QueryFilters", copied::fa_QueryFilters},
    Backup{"fa_Querys"},
    Backup{"fa_Total"},
    Backup{"fa_Vouchers"},
    Backup{"fa_WorkLoad"},
    Backup{"fa_JKSet"},
    Backup{"fa_JKItemSet"},
};

void DeleteBak(Database& data) {
  for (const std::string& table : data.TableDefs()) {
    if (table.starts_with(kBackupPrefix)) data.Execute(sql("DROP TABLE ", table));
  }
}

void backUp(Database& data, const Backup& backup, int m) {
  const char* condition = backup.table == "AccInformation" ? " WHERE cSysID = 'fa'" : "";
  data.Execute(sql("SELECT ", backup.columns, " INTO ", kBackupPrefix, "_", backup.table, "_", m, " FROM ",
                   backup.table, condition));
  if (backup.table == "fa_ItemsManual") {
    data.Execute(sql("CREATE UNIQUE INDEX sCardNum ON ZKFA_BAK_fa_ItemsManual_", m, " (sCardNum)"));
  }
}

}  // namespace

std::optional<std::string> BackInfo(RunContext& run, const ShowPercent& show) {
  try {
    DeleteBak(run.dbZKData);
    int percent = kBackupBegun;
    for (const Backup& backup : kBackups) {
      backUp(run.dbZKData, backup, run.period());
      if (backup.percentDone > 0) percent = backup.percentDone;
      show(percent);
    }
    return std::nullopt;
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "BackInfo");
    return error.what();
  }
}

}  // namespace zelkor
