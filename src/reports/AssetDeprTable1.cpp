#include "base/Conversion.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kAtStart = "年初数";
constexpr std::string_view kAtEnd = "期末数";

// There are no data for the impairment.
struct Columns : ReportColumns<Columns> {
  Column type = add({"", 1800, Left, None, "资产类别"});
  Column startValue = add({kAtStart, 1000, Center, None, "原值"});
  Column endValue = add({kAtEnd, 1000, Center, Amount, "原值"});
  Column startImpairment = add({kAtStart, 1000, Center, None, "累计计提减值准备"});
  Column endImpairment = add({kAtEnd, 1000, Center, None, "累计计提减值准备"});
  Column startReversal = add({kAtStart, 1000, Center, None, "累计转回减值准备"});
  Column endReversal = add({kAtEnd, 1000, Center, None, "累计转回减值准备"});
  Column startNetValue = add({kAtStart, 1000, Center, Amount, "可回收市值"});
  Column endNetValue = add({kAtEnd, 1000, Center, Amount, "可回收市值"});
  Column startDepreciation = add({kAtStart, 1000, Center, Amount, "累计折旧"});
  Column endDepreciation = add({kAtEnd, 1000, Center, Amount, "累计折旧"});
  Column monthDepreciation = add({kAtStart, 1000, Center, Amount, "本月折旧"});
};
constexpr Columns kColumns;

using Grid = ReportGrid<Columns>;

Value difference(const Value& from, const Value& what) {
  return from.isNull() || what.isNull() ? Value() : from.number() - what.number();
}

void writeSums(Grid& grid, std::size_t row, const Recordset& sums) {
  grid.putAmount(row, kColumns.startValue, sums.Fields("yzs"));
  grid.putAmount(row, kColumns.endValue, sums.Fields("yze"));
  grid.putAmount(row, kColumns.startNetValue, difference(sums.Fields("yzs"), sums.Fields("zjs")));
  grid.putAmount(row, kColumns.endNetValue, difference(sums.Fields("yze"), sums.Fields("zje")));
  grid.putAmount(row, kColumns.startDepreciation, sums.Fields("zjs"));
  grid.putAmount(row, kColumns.endDepreciation, sums.Fields("zje"));
  grid.putAmount(row, kColumns.monthDepreciation, sums.Fields("zjc"));
}

/// A category without assets has a row, too, with empty amounts.
void writeType(Grid& grid, StatementGroup& group, const Recordset& type) {
  const std::string code = type.Text("sNum");
  const std::size_t row = grid.addRow();
  grid.put(row, kColumns.type, type.TextOrEmpty("sName") + "(" + code + ")");
  group.open(
      sql("select sum(dblPeriodValue) as yzs,sum(dblMonthValue0) as yze,sum(dblPeriodDeprTotal) as zjs,",
          "sum(dblDeprT1) as zje,sum(dblDepr1) as zjc From fa_DeprTransactions", " where sCardNum in (",
          "select distinct sCardNum from fa_Cards where", " sTypeNum like '", code, "*')"),
      [&grid, row](const Recordset& sums) { writeSums(grid, row, sums); });
}

/// The totals begin at the sub-header, which counts as 0. The first amount is no sum but the last category's
/// value, and the row has no label.
void writeTotal(Grid& grid) {
  const std::size_t subHeader = grid.firstRow() - 1;
  const std::size_t total = grid.addTotal();
  for (std::size_t row = subHeader; row < total; ++row) grid.addToTotals(total, row);
  grid.putNumber(total, kColumns.startValue, grid.amount(total - 1, kColumns.startValue));
}

}  // namespace

void BuildAssetDeprTable1(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.conditionLines[0].text = conditions.departmentRange.captioned("汇总部门：");
  view.conditionLines[1].visible = false;
  Grid grid(view.grid, kColumns);
  StatementGroup group(run.dbZKData);
  Recordset types = firstLevelTypes(run.dbZKData);
  for (; !types.Eof(); types.MoveNext()) writeType(grid, group, types);
  group.run();
  writeTotal(grid);
}

}  // namespace zelkor
