#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::size_t kFirstRow = 2;

/// Only a card's version as it was entered selects the card, and only in the department itself, not in those
/// below it.
LedgerSums sumType(Database& data, const std::string& type, const std::string& department) {
  const std::string inDepartment = department.empty() ? "" : sql(" and sDeptNum='", department, "'");
  const Recordset sums = data.OpenRecordset(
      sql("select sum(dblInputValue) as yz,sum(dblDeprT1) as ytzj", " From fa_DeprTransactions",
          " where sCardNum in (select distinct sCardNum", " from fa_Cards where sTypeNum like '", type, "*'",
          inDepartment, " and iOptType=1)"));
  return {sums.Fields("yz"), sums.Fields("ytzj"), {}};
}

void writeTypes(ReportGrid& grid, Database& data, const std::string& department) {
  Recordset types = data.OpenRecordset(
      "select * from fa_AssetTypes"
      " where len(sNum)=2 and sNum<>'&' order by sNum");
  for (; !types.Eof(); types.MoveNext()) {
    const LedgerSums sums = sumType(data, types.Text("sNum"), department);
    if (!sums.hasValue()) continue;
    const std::size_t row = grid.addRow();
    grid.put(row, 0, types.TextOrEmpty("sName"));
    grid.putAmount(row, 5, sums.yz);
    grid.putAmount(row, 6, sums.ytzj);
  }
}

void writeTotal(ReportGrid& grid) {
  const std::size_t total = grid.addRow();
  grid.put(total, 0, "　总计");
  for (std::size_t row = kFirstRow; row < total; ++row) {
    for (const std::size_t column : {5, 6}) grid.addToTotal(total, row, column);
  }
}

}  // namespace

void BuildDeprDetail(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.title = "固定资产折旧计算明细表";
  view.conditionLines[0].text = "使用部门：" + conditions.department.name;
  view.conditionLines[1].text = conditions.typeRange.captioned("汇总类别");
  ReportGrid grid(view.grid, {2000, 1600, 1600, 1600, 1600, 1600, 1600}, 1, Align::Center);
  grid.addHeader({"资产类别", "上月计提", "上月计提", "上月原值", "上月原值", "本月计提", "本月计提"});
  grid.addHeader({"资产类别", "原值", "折旧额", "增加", "减少", "原值", "折旧额"});
  writeTypes(grid, run.dbZKData, conditions.department.code);
  writeTotal(grid);
}

}  // namespace zelkor
