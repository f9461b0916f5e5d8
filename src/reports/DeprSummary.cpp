#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {

/// The amount under "折旧额" is the depreciation accumulated by the end of the first month.
void BuildDeprSummary(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.title = "(部门)折旧计提汇总表";
  view.conditionLines[0].text = conditions.departmentRange.captioned("汇总部门：");
  view.conditionLines[1].visible = false;
  ReportGrid grid(view.grid, {4000, 1800, 1800}, 1);
  grid.addHeader({"部门名称", "计提原值", "折旧额"});
  const std::size_t firstRow = grid.rows();
  Recordset departments = firstLevelDepartments(run.dbZKData);
  for (; !departments.Eof(); departments.MoveNext()) {
    const LedgerSums sums = sumDepartment(run.dbZKData, departments.Text("sNum"));
    if (!sums.hasValue()) continue;
    const std::size_t row = grid.addRow();
    grid.put(row, 0, departments.TextOrEmpty("sName"));
    grid.putAmount(row, 1, sums.yz);
    grid.putAmount(row, 2, sums.ytzj);
  }
  const std::size_t total = grid.addRow();
  grid.put(total, 0, "　合计");
  for (std::size_t row = firstRow; row < total; ++row) {
    for (const std::size_t column : {1, 2}) grid.addToTotal(total, row, column);
  }
}

}  // namespace zelkor
