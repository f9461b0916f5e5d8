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
  const double value = sums.yz.number();
  const std::size_t row = grid.addRow();
  grid.put(row, 0, type.TextOrEmpty("sName"));
  grid.put(row, 1, countLedger(data, assets));
  grid.put(row, 2, type.TextOrEmpty("sUnit"));
  grid.putAmount(row, 3, sums.yz);
  grid.putAmount(row, 4, sums.ytzj);
  grid.putAmount(row, 5, sums.netValue());
  grid.putAmount(row, 6, sums.ytzj.number() / value * 100);
  grid.putAmount(row, 7, sums.netValue().number() / value * 100);
}

/// The share of depreciation is added up like the amounts; the one of net value is computed anew.
void writeTotal(ReportGrid& grid) {
  const std::size_t total = grid.addRow();
  for (std::size_t row = kFirstRow; row < total; ++row) {
    grid.put(total, 0, "　合　计");
    grid.addPlainToTotal(total, row, 1);
    for (const std::size_t column : {3, 4, 5, 6}) grid.addToTotal(total, row, column);
    grid.putAmount(total, 7, divide(grid.amount(total, 5), grid.amount(total, 3)) * 100);
  }
}

}  // namespace

void BuildValueStructure(RunContext& run, const ReportConditions& /*conditions*/, ReportView& view) {
  view.title = "价值结构分析表";
  for (ConditionLine& line : view.conditionLines) line.visible = false;
  ReportGrid grid(view.grid, {1800, 1800, 1000, 1600, 1600, 1600, 1600, 1600}, 3);
  grid.addHeader({"资产类别", "数量", "计量单位", "期末原值", "期末累计折旧", "期末净值",
                  "累计折旧占原值百分比%", "净残值率%"});
  Recordset types = firstLevelTypes(run.dbZKData);
  for (; !types.Eof(); types.MoveNext()) writeType(grid, run.dbZKData, types);
  writeTotal(grid);
}

}  // namespace zelkor
