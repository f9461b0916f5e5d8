#include "base/Conversion.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

struct Columns : ReportColumns<Columns> {
  Column type = add({"资产类别", 1800});
  Column quantity = add({"数量", 1800, Left, Number});
  Column unit = add({"计量单位", 1000});
  Column value = add({"期末原值", 1600, Right, Amount});
  Column shareOfType = add({"占类别百分比%", 1600, Right});
  Column shareOfAll = add({"占总值百分比%", 1600, Right});
};
constexpr Columns kColumns;

using Grid = ReportGrid<Columns>;

void writeType(Grid& grid, const TypeFigures& type) {
  if (!type.figures.hasValue()) return;
  const std::size_t row = grid.addRow();
  grid.put(row, kColumns.type, type.name);
  grid.put(row, kColumns.quantity, type.figures.quantity);
  grid.put(row, kColumns.unit, type.unit);
  grid.putAmount(row, kColumns.value, type.figures.value);
  grid.put(row, kColumns.shareOfType, "100.00");
}

}  // namespace

void BuildTypeComposition(RunContext& run, const ReportConditions& /*conditions*/, ReportView& view) {
  for (ConditionLine& line : view.conditionLines) line.visible = false;
  Grid grid(view.grid, kColumns);
  for (const TypeFigures& type : typeFigures(run.dbZKData)) writeType(grid, type);
  const std::size_t total = grid.addTotalRow(kColumns.type, "　合　计");
  grid.put(total, kColumns.shareOfType, "100.00");
  // Without any asset the total row divides 0 by 0, which ends the run.
  const double all = grid.amount(total, kColumns.value);
  for (std::size_t row = grid.firstRow(); row <= total; ++row) {
    grid.putAmount(row, kColumns.shareOfAll, divide(grid.amount(row, kColumns.value), all) * 100);
  }
}

}  // namespace zelkor
