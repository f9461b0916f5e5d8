#include "base/Conversion.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::size_t kColumns = 12;
constexpr std::size_t kSubHeader = 1;

std::vector<std::string> subHeader() {
  std::vector<std::string> captions(kColumns);
  for (std::size_t column = 1; column < kColumns; ++column) {
    captions[column] = column % 2 == 1 ? "年初数" : "期末数";
  }
  return captions;
}

Value difference(const Value& from, const Value& what) {
  return from.isNull() || what.isNull() ? Value() : from.number() - what.number();
}

/// A category without assets has a row, too, with empty amounts.
void writeType(ReportGrid& grid, Database& data, const Recordset& type) {
  const std::string code = type.Text("sNum");
  const std::size_t row = grid.addRow();
  grid.put(row, 0, type.TextOrEmpty("sName") + "(" + code + ")");
  const Recordset sums = data.OpenRecordset(
      sql("select sum(dblPeriodValue) as yzs,sum(dblMonthValue0) as yze,sum(dblPeriodDeprTotal) as zjs,",
          "sum(dblDeprT1) as zje,sum(dblDepr1) as zjc From fa_DeprTransactions", " where sCardNum in (",
          "select distinct sCardNum from fa_Cards where", " sTypeNum like '", code, "*')"));
  grid.putAmount(row, 1, sums.Fields("yzs"));
  grid.putAmount(row, 2, sums.Fields("yze"));
  grid.putAmount(row, 7, difference(sums.Fields("yzs"), sums.Fields("zjs")));
  grid.putAmount(row, 8, difference(sums.Fields("yze"), sums.Fields("zje")));
  grid.putAmount(row, 9, sums.Fields("zjs"));
  grid.putAmount(row, 10, sums.Fields("zje"));
  grid.putAmount(row, 11, sums.Fields("zjc"));
}

/// The label goes into the first amount's cell in every pass, so that neither the label nor a sum is left
/// there, but the last category's value. The sub-header counts as 0.
void writeTotal(ReportGrid& grid) {
  const std::size_t total = grid.addRow();
  for (std::size_t row = kSubHeader; row < total; ++row) {
    grid.put(total, 1, "　合　计");
    grid.put(total, 1, textOfDouble(grid.amount(total, 1) + grid.amount(row, 1)));
    for (const std::size_t column : {2, 7, 8, 9, 10, 11}) grid.addToTotal(total, row, column);
  }
}

}  // namespace

void BuildAssetDeprTable1(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.title = "固定资产统计表";  // not its own
  view.conditionLines[0].text = conditions.departmentRange.captioned("汇总部门：");
  view.conditionLines[1].visible = false;
  ReportGrid grid(view.grid, {1800, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000}, 1,
                  Align::Center);
  grid.addHeader({"资产类别", "原值", "原值", "累计计提减值准备", "累计计提减值准备", "累计转回减值准备",
                  "累计转回减值准备", "可回收市值", "可回收市值", "累计折旧", "累计折旧", "本月折旧"});
  grid.addHeader(subHeader());
  Recordset types = firstLevelTypes(run.dbZKData);
  for (; !types.Eof(); types.MoveNext()) writeType(grid, run.dbZKData, types);
  writeTotal(grid);
}

}  // namespace zelkor
