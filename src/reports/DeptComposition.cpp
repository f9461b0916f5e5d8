#include "base/Conversion.h"
#include "base/Format.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

constexpr std::size_t kFirstRow = 1;

/// The department's row, unless its assets are worth nothing; answers what they are worth.
LedgerSums writeDepartment(ReportGrid& grid, Database& data, const Recordset& department) {
  const AssetSet assets{.department = department.Text("sNum"), .type = {}};
  LedgerSums sums = sumLedger(data, assets);
  if (!sums.hasValue()) return sums;
  const std::size_t row = grid.addRow();
  grid.put(row, 0, department.TextOrEmpty("sName"));
  grid.putAmount(row, 4, sums.yz);
  grid.put(row, 5, "100.00");
  grid.put(row, 2, countLedger(data, assets));
  return sums;
}

/// A share below one percent shows no digit before the point.
void writeTypes(ReportGrid& grid, Database& data, const std::string& department, double departmentValue) {
  Recordset types = firstLevelTypes(data);
  for (; !types.Eof(); types.MoveNext()) {
    const std::string type = types.Text("sNum");
    const AssetSet assets{department, type};
    const LedgerSums sums = sumLedger(data, assets);
    if (!sums.hasValue()) continue;
    const std::size_t row = grid.addRow();
    grid.put(row, 1, types.TextOrEmpty("sName"));
    grid.put(row, 3, types.TextOrEmpty("sUnit"));
    grid.putAmount(row, 4, sums.yz);
    grid.put(row, 5, Format(divide(sums.yz.number(), departmentValue) * 100, "#.00"));
    grid.put(row, 2, countLedger(data, assets));
  }
}

/// Department rows alone feed the total.
void writeTotal(ReportGrid& grid) {
  const std::size_t total = grid.addRow();
  for (std::size_t row = kFirstRow; row < total; ++row) {
    grid.put(total, 0, "　合　计");
    if (grid.text(row, 0).empty()) continue;
    grid.addPlainToTotal(total, row, 2);
    grid.addToTotal(total, row, 4);
    grid.put(total, 5, "100.00");
    grid.put(total, 6, "100.00");
  }
}

}  // namespace

void BuildDeptComposition(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.title = "部门构成分析表";
  view.conditionLines[0].text =
      conditions.compositionLevel == CompositionLevel::First ? "类别级次：第1级" : "类别级次：明细级";
  ReportGrid grid(view.grid, {1800, 1800, 600, 1000, 1600, 1600, 1600}, 4);
  grid.addHeader({"使用部门", "资产类别", "数量", "计量单位", "期末原值", "占部门百分比%", "占总值百分比%"});
  double departmentValue = 0;
  Recordset departments = firstLevelDepartments(run.dbZKData);
  for (; !departments.Eof(); departments.MoveNext()) {
    const LedgerSums sums = writeDepartment(grid, run.dbZKData, departments);
    if (sums.hasValue()) departmentValue = sums.yz.number();
    writeTypes(grid, run.dbZKData, departments.Text("sNum"), departmentValue);
  }
  writeTotal(grid);
  const std::size_t total = grid.rows() - 1;
  for (std::size_t row = kFirstRow; row < total; ++row) {
    grid.putAmount(row, 6, divide(grid.amount(row, 4), grid.amount(total, 4)) * 100);
  }
}

}  // namespace zelkor
