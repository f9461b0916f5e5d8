#include "base/Conversion.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

constexpr int kMonthsPerYear = 12;

struct Columns : ReportColumns<Columns> {
  Column department = add({"部门名称", 1800});
  Column type = add({"资产类别", 1800});
  Column quantity = add({"数量", 600, Left, Number});
  Column life = add({"使用年限", 1000});
  Column unit = add({"计量单位", 1000});
  Column value = add({"原值", 1000, Right, Amount});
  Column depreciation = add({"累计折旧", 1000, Right, Amount});
  Column netValue = add({"净值", 1000, Right, Amount});
  Column newness = add({"新旧程度%", 1000, Right});
  Column residual = add({"净残值", 1000, Right, Amount});
  // Nothing is written into those that follow.
  Column monthDepreciation = add({"本月折旧", 1000, Right});
  Column totalWork = add({"工作总量", 1000, Right});
  Column workDone = add({"累计用量", 1000, Right});
  Column floorArea = add({"建筑面积", 1000, Right});
  Column buildings = add({"建筑数", 1000, Right});
  Column motors = add({"电机数", 1000, Right});
  Column motorPower = add({"电机功率", 1000, Right});
};
constexpr Columns kColumns;

using Grid = ReportGrid<Columns>;

struct Layout {
  std::vector<Columns::Column> hidden;
  bool departments;
  bool types;
  Columns::Column labelled;  // bears the total's label; rows with a text there feed the total
};

Layout layoutOf(StatisticsLayout layout) {
  switch (layout) {
    case StatisticsLayout::ByDepartment:
      return {{kColumns.type, kColumns.life, kColumns.unit}, true, false, kColumns.department};
    case StatisticsLayout::ByType:
      return {{kColumns.department}, false, true, kColumns.type};
    case StatisticsLayout::ByDepartmentAndType:
      break;
  }
  return {{}, true, true, kColumns.department};
}

/// A row with the figures of some assets; none when they are worth nothing.
bool writeFigures(Grid& grid, const LedgerFigures& sums) {
  if (!sums.hasValue()) return false;
  const std::size_t row = grid.addRow();
  grid.put(row, kColumns.quantity, sums.quantity);
  grid.putAmount(row, kColumns.value, sums.value);
  grid.putAmount(row, kColumns.depreciation, sums.depreciation);
  grid.putAmount(row, kColumns.netValue, sums.netValue());
  grid.putAmount(row, kColumns.residual, sums.residual);
  grid.putAmount(row, kColumns.newness, sums.netValue().number() * 100 / sums.value.number());
  return true;
}

void writeTypes(Grid& grid, const std::deque<TypeFigures>& types) {
  for (const TypeFigures& type : types) {
    if (!writeFigures(grid, type.figures)) continue;
    const std::size_t row = grid.rows() - 1;
    grid.put(row, kColumns.type, type.name);
    grid.put(row, kColumns.life, textOfDouble(type.months / kMonthsPerYear) + "年");
    grid.put(row, kColumns.unit, type.unit);
  }
}

void writeDepartments(Grid& grid, const std::deque<DepartmentFigures>& departments) {
  for (const DepartmentFigures& department : departments) {
    if (writeFigures(grid, department.figures)) {
      grid.put(grid.rows() - 1, kColumns.department, department.name);
    }
    writeTypes(grid, department.types);
  }
}

void writeTotal(Grid& grid, Columns::Column labelled) {
  const std::size_t total = grid.addTotal();
  for (std::size_t row = grid.firstRow(); row < total; ++row) {
    grid.put(total, labelled, "　合　计");
    if (!grid.text(row, labelled).empty()) grid.addToTotals(total, row);
  }
  const double value = grid.amount(total, kColumns.value);
  const double netValue = value - grid.amount(total, kColumns.depreciation);
  if (value != 0) grid.putAmount(total, kColumns.newness, netValue * 100 / value);
}

void setCaptions(const ReportConditions& conditions, ReportView& view) {
  view.conditionLines[0].text = "部门级次：" + conditions.departmentLevel;
  view.conditionLines[1].text = "类别级次：" + conditions.typeLevel;
  if (conditions.statisticsLayout == StatisticsLayout::ByDepartment) view.conditionLines[1].visible = false;
  if (conditions.statisticsLayout == StatisticsLayout::ByType) {
    view.conditionLines[0].visible = false;
    view.secondLineMovedUp = true;
  }
}

}  // namespace

void BuildAssetStatistics(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  setCaptions(conditions, view);
  Grid grid(view.grid, kColumns);
  const Layout layout = layoutOf(conditions.statisticsLayout);
  for (const Columns::Column column : layout.hidden) grid.hide(column);
  if (layout.departments) {
    writeDepartments(grid, departmentFigures(run.dbZKData, layout.types));
  } else {
    writeTypes(grid, typeFigures(run.dbZKData));
  }
  writeTotal(grid, layout.labelled);
}

}  // namespace zelkor
