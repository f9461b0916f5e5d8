#include "base/Conversion.h"
#include "base/Text.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

/// Each category adds further columns like the last three.
struct Columns : ReportColumns<Columns> {
  Column department = add({"部门名称", 3000});
  Column value = add({"原值", 1800, Right, Amount, "合计"});
  Column depreciation = add({"累计折旧", 1800, Right, Amount, "合计"});
  Column netValue = add({"净值", 1800, Right, Amount, "合计"});
};
constexpr Columns kColumns;

using Grid = ReportGrid<Columns>;

/// The departments of the chosen levels: the first alone, all, or all but the first.
Recordset chosenDepartments(Database& data, const ReportConditions& conditions) {
  const auto& [from, to] = conditions.departmentRange;
  if (to == "1") return firstLevelDepartments(data);
  if (to == "2" && from == "1") {
    return data.OpenRecordset("select * from fa_Departments where  sNum<>'&' order by sNum");
  }
  return data.OpenRecordset(
      "select * from fa_Departments"
      " where sParentNum is not null and sParentNum<>'' and  sNum<>'&' order by sNum");
}

/// The amounts go so many columns after those of the sum of all categories.
void writeAmounts(Grid& grid, std::size_t row, std::size_t distance, const LedgerSums& sums) {
  grid.putAmount(row, kColumns.value.behind(distance), sums.value);
  grid.putAmount(row, kColumns.depreciation.behind(distance), sums.depreciation);
  grid.putAmount(row, kColumns.netValue.behind(distance), sums.netValue());
}

void writeDepartments(Grid& grid, Database& data, Recordset departments) {
  StatementGroup group(data);
  for (; !departments.Eof(); departments.MoveNext()) {
    const std::string code = departments.Text("sNum");
    const std::string label = departments.TextOrEmpty("sName") + "(" + code + ")";
    sumDepartment(group, code, [&grid, label](const LedgerSums& sums) {
      if (!sums.hasValue()) return;
      const std::size_t row = grid.addRow();
      grid.put(row, kColumns.department, label);
      writeAmounts(grid, row, 0, sums);
    });
  }
  group.run();
}

/// The code is what stands behind the label's first bracket, without its last character.
std::string departmentOfLabel(const std::string& label) {
  const std::string behind = label.substr(std::min(label.find('(') + 1, label.size()));
  return behind.substr(0, behind.size() - std::min<std::size_t>(behind.size(), 1));
}

void addType(Grid& grid, StatementGroup& group, const Recordset& type) {
  const std::string code = type.Text("sNum");
  const std::size_t distance = grid.repeat(kColumns.value, kColumns.netValue, type.TextOrEmpty("sName"));
  for (std::size_t row = grid.firstRow(); row < grid.rows(); ++row) {
    const std::string department = departmentOfLabel(grid.text(row, kColumns.department));
    sumLedger(group, {department, code}, [&grid, row, distance](const LedgerSums& sums) {
      if (sums.hasValue()) writeAmounts(grid, row, distance, sums);
    });
  }
}

}  // namespace

void BuildValueOverview(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  view.conditionLines[0].text = conditions.departmentRange.captioned("汇总部门：");
  view.conditionLines[1].text.clear();
  Grid grid(view.grid, kColumns);
  writeDepartments(grid, run.dbZKData, chosenDepartments(run.dbZKData, conditions));
  Recordset types = firstLevelTypes(run.dbZKData);
  StatementGroup group(run.dbZKData);
  for (; !types.Eof(); types.MoveNext()) addType(grid, group, types);
  group.run();
  // Parents and children that are listed together count twice.
  grid.addTotalRow(kColumns.department, "　合计");
}

}  // namespace zelkor
