#include "base/Conversion.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

constexpr std::size_t kFirstRow = 1;

void writeType(ReportGrid& grid, Database& data, const Recordset& type) {
  const AssetSet assets{.department = {}, .type = type.Text("sNum")};
  const LedgerSums sums = sumLedger(data, assets);
  if (!sums.hasValue()) return;
  const std::size_t row = grid.addRow();
  grid.put(row, 0, type.TextOrEmpty("sName"));
  grid.put(row, 1, countLedger(data, assets));
  grid.put(row, 2, type.TextOrEmpty("sUnit"));
  grid.putAmount(row, 3, sums.yz);
  grid.put(row, 4, "100.00");
}

void writeTotal(ReportGrid& grid) {
  const std::size_t total = grid.addRow();
  grid.put(total, 0, "　合　计");
  grid.put(total, 4, "100.00");
  for (std::size_t row = kFirstRow; row < total; ++row) {
    grid.addPlainToTotal(total, row, 1);
    grid.addToTotal(total, row, 3);
  }
}

}  // namespace

void BuildTypeComposition(RunContext& run, const ReportConditions& /*conditions*/, ReportView& view) {
  view.title = "类别构成分析表";
  for (ConditionLine& line : view.conditionLines) line.visible = false;
  ReportGrid grid(view.grid, {1800, 1800, 1000, 1600, 1600, 1600}, 3);
  grid.addHeader({"资产类别", "数量", "计量单位", "期末原值", "占类别百分比%", "占总值百分比%"});
  Recordset types = firstLevelTypes(run.dbZKData);
  for (; !types.Eof(); types.MoveNext()) writeType(grid, run.dbZKData, types);
  writeTotal(grid);
  // Without any asset the total row divides 0 by 0, which ends the run.
  const std::size_t total = grid.rows() - 1;
  for (std::size_t row = kFirstRow; row <= total; ++row) {
    grid.putAmount(row, 5, divide(grid.amount(row, 3), grid.amount(total, 3)) * 100);
  }
}

}  // namespace zelkor
