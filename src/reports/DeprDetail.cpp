#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

// Nothing is written below the captions of the last month.
struct Columns : ReportColumns<Columns> {
  Column type = add({"资产类别", 2000});
  Column lastValue = add({"原值", 1600, Center, None, "上月计提"});
  Column lastDepreciation = add({"折旧额", 1600, Center, None, "上月计提"});
  Column lastIncrease = add({"增加", 1600, Center, None, "上月原值"});
  Column lastDecrease = add({"减少", 1600, Center, None, "上月原值"});
  Column value = add({"原值", 1600, Center, Amount, "本月计提"});
  Column depreciation = add({"折旧额", 1600, Center, Amount, "本月计提"});
};
constexpr Columns kColumns;

/// Only a card's version as it was entered selects the card, and only in the department itself, not in those
/// below it.
std::string sumOfType(const std::string& type, const std::string& department) {
  const std::string inDepartment = department.empty() ? "" : sql(" and sDeptNum='", department, "'");
  return sql("select sum(dblInputValue) as yz,sum(dblDeprT1) as ytzj", " From fa_DeprTransactions",
             " where sCardNum in (select distinct sCardNum", " from fa_Cards where sTypeNum like '", type,
             "*'", inDepartment, " and iOptType=1)");
}

void writeType(ReportGrid<Columns>& grid, const std::string& name, const LedgerSums& sums) {
  if (!sums.hasValue()) return;
  const std::size_t row = grid.addRow();
  grid.put(row, kColumns.type, name);
  grid.putAmount(row, kColumns.value, sums.value);
  grid.putAmount(row, kColumns.depreciation, sums.depreciation);
}

void writeTypes(ReportGrid<Columns>& grid, Database& data, const std::string& department) {
  Recordset types = data.OpenRecordset(
      "select * from fa_AssetTypes"
      " where len(sNum)=2 and sNum<>'&' order by sNum");
  StatementGroup group(data);
  for (; !types.Eof(); types.MoveNext()) {
    group.open(sumOfType(types.Text("sNum"), department),
               [&grid, name = types.TextOrEmpty("sName")](const Recordset& sums) {
                 writeType(grid, name, {sums.Fields("yz"), sums.Fields("ytzj"), {}});
               });
  }
  group.run();
}

}  // namespace

void BuildDeprDetail(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.conditionLines[0].text = "使用部门：" + conditions.department.name;
  view.conditionLines[1].text = conditions.typeRange.captioned("汇总类别");
  ReportGrid grid(view.grid, kColumns);
  writeTypes(grid, run.dbZKData, conditions.department.code);
  grid.addTotalRow(kColumns.type, "　总计");
}

}  // namespace zelkor
