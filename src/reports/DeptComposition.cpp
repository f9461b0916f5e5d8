#include "base/Conversion.h"
#include "base/Format.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

struct Columns : ReportColumns<Columns> {
  Column department = add({"使用部门", 1800});
  Column type = add({"资产类别", 1800});
  Column quantity = add({"数量", 600, Left, Number});
  Column unit = add({"计量单位", 1000});
  Column value = add({"期末原值", 1600, Right, Amount});
  Column shareOfDepartment = add({"占部门百分比%", 1600, Right});
  Column shareOfAll = add({"占总值百分比%", 1600, Right});
};
constexpr Columns kColumns;

using Grid = ReportGrid<Columns>;

/// The department's row, unless its assets are worth nothing.
void writeDepartment(Grid& grid, const DepartmentFigures& department) {
  if (!department.figures.hasValue()) return;
  const std::size_t row = grid.addRow();
  grid.put(row, kColumns.department, department.name);
  grid.putAmount(row, kColumns.value, department.figures.value);
  grid.put(row, kColumns.shareOfDepartment, "100.00");
  grid.put(row, kColumns.quantity, department.figures.quantity);
}

/// A share below one percent shows no digit before the point.
void writeTypes(Grid& grid, const DepartmentFigures& department) {
  for (const auto& [name, unit, months, figures] : department.types) {
    if (!figures.hasValue()) continue;
    const std::size_t row = grid.addRow();
    grid.put(row, kColumns.type, name);
    grid.put(row, kColumns.unit, unit);
    grid.putAmount(row, kColumns.value, figures.value);
    const double share = divide(figures.value.number(), department.figures.value.numberOrZero()) * 100;
    grid.put(row, kColumns.shareOfDepartment, Format(share, "#.00"));
    grid.put(row, kColumns.quantity, figures.quantity);
  }
}

/// Department rows alone feed the total.
void writeTotal(Grid& grid) {
  const std::size_t total = grid.addTotal();
  for (std::size_t row = grid.firstRow(); row < total; ++row) {
    grid.put(total, kColumns.department, "　合　计");
    if (grid.text(row, kColumns.department).empty()) continue;
    grid.addToTotals(total, row);
    grid.put(total, kColumns.shareOfDepartment, "100.00");
    grid.put(total, kColumns.shareOfAll, "100.00");
  }
}

}  // namespace

void BuildDeptComposition(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.conditionLines[0].text =
      conditions.compositionLevel == CompositionLevel::First ? "类别级次：第1级" : "类别级次：明细级";
  Grid grid(view.grid, kColumns);
  for (const DepartmentFigures& department : departmentFigures(run.dbZKData, true)) {
    writeDepartment(grid, department);
    writeTypes(grid, department);
  }
  writeTotal(grid);
  const std::size_t total = grid.rows() - 1;
  const double all = grid.amount(total, kColumns.value);
  for (std::size_t row = grid.firstRow(); row < total; ++row) {
    grid.putAmount(row, kColumns.shareOfAll, divide(grid.amount(row, kColumns.value), all) * 100);
  }
}

}  // namespace zelkor
