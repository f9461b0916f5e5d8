#include "store/accountset/ReinitialiseAccount.h"

#include <array>
#include <cstddef>

#include "store/catalogue/CopiedColumns.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

/// What is emptied together stays locked until the last table is filled.
constexpr std::size_t kTablesTogether = 5;

/// How a table gets back its first content.
enum class Reset { FromTemplate, DeleteOnly, Recreate };

struct ResetTable {
  std::string_view name;
  Reset reset = Reset::FromTemplate;
  std::string_view columns{};  // what is copied from the template; empty: all columns
};

constexpr std::array kTables = {
    ResetTable{"fa_AssetAttached", Reset::FromTemplate, copied::fa_AssetAttached},
    ResetTable{"fa_AssetTypes"},
    ResetTable{"fa_Depreciations"},
    ResetTable{"fa_Origins"},
    ResetTable{"fa_Status"},
    ResetTable{"fa_Items"},
    ResetTable{"fa_ItemsManual", Reset::Recreate},
    ResetTable{"fa_ItemsOfQuery", Reset::FromTemplate, copied::fa_ItemsOfQuery},
    ResetTable{"fa_VtsObject", Reset::FromTemplate, "iMonth,sModelId,objVtsfile"},
    ResetTable{"fa_ItemsOfModel", Reset::FromTemplate, copied::fa_ItemsOfModel},
    ResetTable{"fa_Models"},
    ResetTable{"fa_Cards"},
    ResetTable{"fa_DeptScale"},
    ResetTable{"fa_Cards_Detail", Reset::DeleteOnly},
    ResetTable{"fa_DeprTransactions_Detail", Reset::DeleteOnly},
    ResetTable{"fa_WorkLoad_Detail", Reset::DeleteOnly},
    ResetTable{"fa_Vouchers_Detail", Reset::DeleteOnly},
    ResetTable{"fa_EvaluateVouchers_Detail", Reset::DeleteOnly},
    ResetTable{"fa_CardsSheets", Reset::FromTemplate, copied::fa_CardsSheets},
    ResetTable{"fa_Control"},
    ResetTable{"fa_DeprList"},
    ResetTable{"fa_DeprTransactions"},
    ResetTable{"fa_DeprVoucherMain"},
    ResetTable{"fa_DeprVouchers", Reset::FromTemplate, copied::kAllocationRows},
    ResetTable{"fa_DeprVouchers_pre", Reset::FromTemplate, copied::kAllocationRows},
    ResetTable{"fa_Dictionary"},
    ResetTable{"fa_EvaluateMain"},
    ResetTable{"fa_EvaluateVouchers"},
    ResetTable{"fa_ZWVouchers", Reset::DeleteOnly},
    ResetTable{"fa_Objects"},
    ResetTable{"fa_QueryFilters", Reset::FromTemplate, copied::fa_QueryFilters},
    ResetTable{"fa_Querys"},
    ResetTable{"fa_Total"},
    ResetTable{"fa_Vouchers"},
    ResetTable{"fa_WorkLoad"},
    ResetTable{"fa_JKSet", Reset::DeleteOnly},
    ResetTable{"fa_JKItemSet", Reset::DeleteOnly},
};

/// Kept together: a job that is killed between dropping and creating could not drop the table again.
void recreateItemsManual(Database& data) {
  const KeptTogether together = data.keepTogether();
  data.Execute("DROP TABLE fa_ItemsManual");
  data.Execute("SELECT * INTO fa_ItemsManual  FROM ZKFA_Model_fa_ItemsManual_Init");
  data.Execute("CREATE UNIQUE INDEX sCardNum ON fa_ItemsManual (sCardNum)");
}

void resetTable(StatementGroup& group, const ResetTable& table) {
  group.execute(sql("DELETE FROM ", table.name));
  if (table.reset == Reset::DeleteOnly) return;
  if (table.columns.empty()) {
    group.execute(sql("INSERT INTO ", table.name, " SELECT * FROM ZKFA_Model_", table.name, "_Init"));
  } else {
    group.execute(sql("INSERT INTO ", table.name, " (", table.columns, ") SELECT ", table.columns,
                      " FROM ZKFA_Model_", table.name, "_Init"));
  }
}

/// Rows 601 to 603 are outside both statements and so keep their values.
void resetOptions(StatementGroup& group) {
  group.execute("delete * from AccInformation where cSysID='fa' and cID NOT IN('601','602','603')");
  group.execute(
      sql("INSERT INTO AccInformation (", copied::AccInformation, ") SELECT ", copied::AccInformation,
          " FROM ZKFA_Model_AccInformation_Init WHERE cSysID = 'fa' AND cID NOT IN('601','602','603')"));
}

void removeUserItems(StatementGroup& group) {
  group.execute("DELETE FROM RPT_ITMDEF WHERE tablename = 'fa_Q_Cards' and fieldname like 'man*'");
  group.execute("DELETE FROM RPT_ITMDEF WHERE tablename = 'fa_ItemManual'");
  group.execute("DELETE FROM Fa_ItemsOfQuery WHERE sName like 'man*'");
}

void keepOptionsInTemplate(StatementGroup& group) {
  group.execute(
      "DELETE FROM ZKFA_Model_AccInformation_Init WHERE cSysID ='FA' AND cID IN('601','602','603')");
  group.execute(sql("INSERT INTO ZKFA_Model_AccInformation_Init (", copied::AccInformation, ") SELECT ",
                    copied::AccInformation,
                    " FROM AccInformation WHERE cSysID ='FA' AND cID IN('601','602','603')"));
}

}  // namespace

void ReinitialiseAccount(DbEngine& engine, const std::string& path, Database& data) {
  data = engine.OpenDatabase(path);
  StatementGroup group(data);
  resetOptions(group);
  std::size_t waiting = 0;
  for (const ResetTable& table : kTables) {
    const bool recreate = table.reset == Reset::Recreate;
    if (recreate || ++waiting > kTablesTogether) {
      group.run();
      waiting = recreate ? 0 : 1;
    }
    recreate ? recreateItemsManual(data) : resetTable(group, table);
  }
  removeUserItems(group);
  group.execute("UPDATE GL_mend SET bflag_FA = 0");
  keepOptionsInTemplate(group);
  group.run();
}

}  // namespace zelkor
