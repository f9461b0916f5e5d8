#include "base/Conversion.h"
#include "reports/LedgerSums.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"

namespace zelkor {
namespace {

constexpr std::size_t kFirstRow = 1;
constexpr int kMonthsPerYear = 12;

/// Column 0 holds departments, column 1 categories.
struct Layout {
  std::vector<std::size_t> hiddenColumns;
  bool departments;
  bool types;
  std::size_t totalColumn;  // bears the total's label; rows with a text there feed the total
};

Layout layoutOf(StatisticsLayout layout) {
  switch (layout) {
    case StatisticsLayout::ByDepartment:
      return {{1, 3, 4}, true, false, 0};
    case StatisticsLayout::ByType:
      return {{0}, false, true, 1};
    case StatisticsLayout::ByDepartmentAndType:
      break;
  }
  return {{}, true, true, 0};
}

/// A row with the figures of these assets; none when they are worth nothing.
bool writeFigures(ReportGrid& grid, Database& data, const AssetSet& assets) {
  const LedgerSums sums = sumLedger(data, assets);
  if (!sums.hasValue()) return false;
  const std::size_t row = grid.addRow();
  grid.put(row, 2, countLedger(data, assets));
  grid.putAmount(row, 5, sums.yz);
  grid.putAmount(row, 6, sums.ytzj);
  grid.putAmount(row, 7, sums.netValue());
  grid.putAmount(row, 9, sums.jcz);
  grid.putAmount(row, 8, sums.netValue().number() * 100 / sums.yz.number());
  return true;
}

void writeTypes(ReportGrid& grid, Database& data, const std::string& department) {
  Recordset types = firstLevelTypes(data);
  for (; !types.Eof(); types.MoveNext()) {
    const std::string type = types.Text("sNum");
    if (!writeFigures(grid, data, {department, type})) continue;
    const std::size_t row = grid.rows() - 1;
    grid.put(row, 1, types.TextOrEmpty("sName"));
    grid.put(row, 3, textOfDouble(types.Fields("iLife").numberOrZero() / kMonthsPerYear) + "年");
    grid.put(row, 4, types.TextOrEmpty("sUnit"));
  }
}

void writeDepartments(ReportGrid& grid, Database& data, bool withTypes) {
  Recordset departments = firstLevelDepartments(data);
  for (; !departments.Eof(); departments.MoveNext()) {
    const std::string code = departments.Text("sNum");
    if (writeFigures(grid, data, {code, {}})) {
      grid.put(grid.rows() - 1, 0, departments.TextOrEmpty("sName"));
    }
    if (withTypes) writeTypes(grid, data, code);
  }
}

void writeTotal(ReportGrid& grid, std::size_t labelColumn) {
  const std::size_t total = grid.addRow();
  for (std::size_t row = kFirstRow; row < total; ++row) {
    grid.put(total, labelColumn, "　合　计");
    if (grid.text(row, labelColumn).empty()) continue;
    grid.addPlainToTotal(total, row, 2);
    for (const std::size_t column : {5, 6, 7, 9}) grid.addToTotal(total, row, column);
  }
  const double value = grid.amount(total, 5);
  if (value != 0) grid.putAmount(total, 8, (value - grid.amount(total, 6)) * 100 / value);
}

void setCaptions(const ReportConditions& conditions, ReportView& view) {
  view.title = "固定资产统计表";
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
  ReportGrid grid(
      view.grid,
      {1800, 1800, 600, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000, 1000},
      5);
  grid.addHeader({"部门名称", "资产类别", "数量", "使用年限", "计量单位", "原值", "累计折旧", "净值",
                  "新旧程度%", "净残值", "本月折旧", "工作总量", "累计用量", "建筑面积", "建筑数", "电机数",
                  "电机功率"});
  const Layout layout = layoutOf(conditions.statisticsLayout);
  for (const std::size_t column : layout.hiddenColumns) view.grid.setColumnWidth(column, 0);
  for (const std::size_t column : layout.hiddenColumns) view.grid.setColumnHidden(column, true);
  if (layout.departments) {
    writeDepartments(grid, run.dbZKData, layout.types);
  } else {
    writeTypes(grid, run.dbZKData, "");
  }
  writeTotal(grid, layout.totalColumn);
}

}  // namespace zelkor
