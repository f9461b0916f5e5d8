#include "base/Text.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

struct Columns : ReportColumns<Columns> {
  Column way = add({"项目", 4000});
  Column value = add({"原值", 1800, Right});
  Column depreciation = add({"累计折旧", 1800, Right});
};
constexpr Columns kColumns;

std::string labelOf(const std::string& id, const std::string& name) {
  if (id == "1") return "本年增加固定资产：";
  if (id == "2") return "本年减少固定资产：";
  return "      " + name + "(" + id + ")";
}

/// Asks what was added or taken off in this way and those below it.
std::string sumOfWay(const std::string& id, const std::string& type) {
  const bool addition = Left(id, 1) == "1";
  const std::string ofType = type.empty() ? "" : sql(" and sTypeNum like '", type, "*'");
  return sql("select sum(dblValue) as yz,sum(dblDecDeprT) as ytzj",
             addition ? " From fa_Cards where iOptType=2 and sOrgAddID like '"
                      : " From fa_Cards where iOptType=3 and sOrgDisposeID like '",
             id, "*'", ofType);
}

void writeSums(ReportGrid<Columns>& grid, std::size_t row, const LedgerSums& sums) {
  if (!sums.hasValue()) return;
  grid.putAmount(row, kColumns.value, sums.value);
  grid.putAmount(row, kColumns.depreciation, sums.depreciation);
}

}  // namespace

void BuildAssetDeprTable2(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.conditionLines[0].text = conditions.departmentRange.captioned("汇总部门：");
  view.conditionLines[1].text.clear();
  ReportGrid grid(view.grid, kColumns);
  StatementGroup group(run.dbZKData);
  Recordset ways = run.dbZKData.OpenRecordset("select * from fa_Origins where iType<>-1 order by sID");
  for (; !ways.Eof(); ways.MoveNext()) {
    const std::string id = ways.Text("sID");
    const std::size_t row = grid.addRow();
    grid.put(row, kColumns.way, labelOf(id, ways.TextOrEmpty("sName")));
    group.open(sumOfWay(id, conditions.type.code), [&grid, row](const Recordset& sums) {
      writeSums(grid, row, {sums.Fields("yz"), sums.Fields("ytzj"), {}});
    });
  }
  group.run();
}

}  // namespace zelkor
