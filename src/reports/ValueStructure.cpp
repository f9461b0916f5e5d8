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
  Column depreciation = add({"期末累计折旧", 1600, Right, Amount});
  Column netValue = add({"期末净值", 1600, Right, Amount});
  // Its total adds up the shares of the rows; the one of net value is computed from the sums.
  Column depreciationShare = add({"累计折旧占原值百分比%", 1600, Right, Amount});
  Column netShare = add({"净残值率%", 1600, Right});
};
constexpr Columns kColumns;

using Grid = ReportGrid<Columns>;

void writeType(Grid& grid, const TypeFigures& type) {
  const LedgerFigures& sums = type.figures;
  if (!sums.hasValue()) return;
  const double value = sums.value.number();
  const std::size_t row = grid.addRow();
  grid.put(row, kColumns.type, type.name);
  grid.put(row, kColumns.quantity, sums.quantity);
  grid.put(row, kColumns.unit, type.unit);
  grid.putAmount(row, kColumns.value, sums.value);
  grid.putAmount(row, kColumns.depreciation, sums.depreciation);
  grid.putAmount(row, kColumns.netValue, sums.netValue());
  grid.putAmount(row, kColumns.depreciationShare, sums.depreciation.number() / value * 100);
  grid.putAmount(row, kColumns.netShare, sums.netValue().number() / value * 100);
}

/// Without any category the row is empty.
void writeTotal(Grid& grid) {
  const std::size_t total = grid.addTotalRow(kColumns.type, "");
  if (total == grid.firstRow()) return;
  grid.put(total, kColumns.type, "　合　计");
  const double share = divide(grid.amount(total, kColumns.netValue), grid.amount(total, kColumns.value));
  grid.putAmount(total, kColumns.netShare, share * 100);
}

}  // namespace

void BuildValueStructure(RunContext& run, const ReportConditions& /*conditions*/, ReportView& view) {
  for (ConditionLine& line : view.conditionLines) line.visible = false;
  Grid grid(view.grid, kColumns);
  for (const TypeFigures& type : typeFigures(run.dbZKData)) writeType(grid, type);
  writeTotal(grid);
}

}  // namespace zelkor
