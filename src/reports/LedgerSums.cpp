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

constexpr std::string_view kFirstLevelTypes = "SELECT * FROM fa_AssetTypes WHERE sNum <> '&' and len(sNum)=2";

template <typename Use>
void askLedger(StatementGroup& group, std::string_view figures, const AssetSet& assets, Use use) {
  group.open(sql(figures, " From fa_DeprTransactions", " where sCardNum in (", cardsOf(assets)),
             std::move(use));
}

void askFigures(StatementGroup& group, const AssetSet& assets, LedgerFigures& figures) {
  sumLedger(group, assets, [&group, assets, &figures](const LedgerSums& sums) {
    static_cast<LedgerSums&>(figures) = sums;
    if (!sums.hasValue()) return;
    askLedger(group, "select count(*) as aaa", assets,
              [&figures](const Recordset& count) { figures.quantity = count.Text("aaa"); });
  });
}

void askType(StatementGroup& group, const std::string& department, const Recordset& type,
             std::deque<TypeFigures>& types) {
  TypeFigures& last = types.emplace_back();
  last.name = type.TextOrEmpty("sName");
  last.unit = type.TextOrEmpty("sUnit");
  last.months = type.Fields("iLife").numberOrZero();
  askFigures(group, {department, type.Text("sNum")}, last.figures);
}

}  // namespace

void sumLedger(StatementGroup& group, const AssetSet& assets, UseOfSums use) {
  askLedger(group, "select sum(dblInputValue) as yz,sum(dblDeprT1) as ytzj,sum(dblInputBV) as jcz", assets,
            [use = std::move(use)](const Recordset& sums) {
              use({sums.Fields("yz"), sums.Fields("ytzj"), sums.Fields("jcz")});
            });
}

void sumDepartment(StatementGroup& group, std::string_view department, UseOfSums use) {
  askLedger(group, "select sum(dblInputValue) as yz,sum(dblDeprT1) as ytzj", {std::string(department), {}},
            [use = std::move(use)](const Recordset& sums) {
              use({sums.Fields("yz"), sums.Fields("ytzj"), {}});
            });
}

std::deque<TypeFigures> typeFigures(Database& data) {
  std::deque<TypeFigures> types;
  StatementGroup group(data);
  for (Recordset rows = firstLevelTypes(data); !rows.Eof(); rows.MoveNext()) askType(group, "", rows, types);
  group.run();
  return types;
}

std::deque<DepartmentFigures> departmentFigures(Database& data, bool withTypes) {
  std::deque<DepartmentFigures> departments;
  StatementGroup group(data);
  for (Recordset rows = firstLevelDepartments(data); !rows.Eof(); rows.MoveNext()) {
    DepartmentFigures& last = departments.emplace_back();
    last.name = rows.TextOrEmpty("sName");
    const std::string code = rows.Text("sNum");
    askFigures(group, {code, {}}, last.figures);
    if (!withTypes) continue;
    group.open(kFirstLevelTypes, [&group, code, &types = last.types](Recordset& ofAll) {
      for (; !ofAll.Eof(); ofAll.MoveNext()) askType(group, code, ofAll, types);
    });
  }
  group.run();
  return departments;
}

Recordset firstLevelDepartments(Database& data) {
  return data.OpenRecordset("select * from fa_Departments where len(sNum)=1 and sNum<>'&' order by sNum");
}

Recordset firstLevelTypes(Database& data) {
  return data.OpenRecordset(kFirstLevelTypes);
}

}  // namespace zelkor
