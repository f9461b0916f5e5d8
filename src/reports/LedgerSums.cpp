#include "reports/LedgerSums.h"

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

std::string cardsOf(const AssetSet& assets) {
  if (assets.type.empty()) {
    return sql("select distinct sCardNum from fa_Cards where sDeptNum like '", assets.department, "*')");
  }
  if (assets.department.empty()) {
    return sql("select distinct sCardNum from fa_Cards where", " sTypeNum like '", assets.type, "*')");
  }
  return sql("select distinct sCardNum from fa_Cards where sDeptNum like '", assets.department, "*'",
             " and sTypeNum like '", assets.type, "*')");
}

Recordset askLedger(Database& data, std::string_view figures, const AssetSet& assets) {
  return data.OpenRecordset(
      sql(figures, " From fa_DeprTransactions", " where sCardNum in (", cardsOf(assets)));
}

}  // namespace

LedgerSums sumLedger(Database& data, const AssetSet& assets) {
  const Recordset sums = askLedger(
      data, "select sum(dblInputValue) as yz,sum(dblDeprT1) as ytzj,sum(dblInputBV) as jcz", assets);
  return {sums.Fields("yz"), sums.Fields("ytzj"), sums.Fields("jcz")};
}

LedgerSums sumDepartment(Database& data, std::string_view department) {
  const Recordset sums = askLedger(data, "select sum(dblInputValue) as yz,sum(dblDeprT1) as ytzj",
                                   {std::string(department), {}});
  return {sums.Fields("yz"), sums.Fields("ytzj"), {}};
}

std::string countLedger(Database& data, const AssetSet& assets) {
  return askLedger(data, "select count(*) as aaa", assets).Text("aaa");
}

Recordset firstLevelDepartments(Database& data) {
  return data.OpenRecordset("select * from fa_Departments where len(sNum)=1 and sNum<>'&' order by sNum");
}

Recordset firstLevelTypes(Database& data) {
  return data.OpenRecordset("SELECT * FROM fa_AssetTypes WHERE sNum <> '&' and len(sNum)=2");
}

}  // namespace zelkor
