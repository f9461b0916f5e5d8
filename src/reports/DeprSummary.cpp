#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

struct Columns : ReportColumns<Columns> {
  Column department = add({"部门名称", 4000});
  Column value = add({"计提原值", 1800, Right, Amount});
  Column depreciation = add({"折旧额", 1800, Right, Amount});
};
constexpr Columns kColumns;

void writeSums(ReportGrid<Columns>& grid, const std::string& department, const LedgerSums& sums) {
  if (!sums.hasValue()) return;
  const std::size_t row = grid.addRow();
  grid.put(row, kColumns.department, department);
  grid.putAmount(row, kColumns.value, sums.value);
  grid.putAmount(row, kColumns.depreciation, sums.depreciation);
}

}  // namespace

/// The amount under "折旧额" is the depreciation accumulated by the end of the first month.
void BuildDeprSummary(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.conditionLines[0].text = conditions.departmentRange.captioned("汇总部门：");
  view.conditionLines[1].visible = false;
  ReportGrid grid(view.grid, kColumns);
  Recordset departments = firstLevelDepartments(run.dbZKData);
  StatementGroup group(run.dbZKData);
  for (; !departments.Eof(); departments.MoveNext()) {
    const auto write = [&grid, name = departments.TextOrEmpty("sName")](const LedgerSums& sums) {
      writeSums(grid, name, sums);
    };
    sumDepartment(group, departments.Text("sNum"), write);
  }
  group.run();
  grid.addTotalRow(kColumns.department, "　合计");
}

}  // namespace zelkor
