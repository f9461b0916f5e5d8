#include "base/Conversion.h"
#include "base/Format.h"
#include "reports/CardLines.h"
#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportRoutines.h"
#include "reports/ReportView.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

std::string sumQuery(const LedgerFilter& filter) {
  constexpr std::string_view sums = "select sum(dblInputValue) as yz,sum(dblDeprT1) as ytzj";
  const auto& [department, type] = filter;
  if (department.empty() && type.empty()) return sql(sums, " From fa_DeprTransactions");
  const std::string ofCards =
      sql(sums, " From fa_DeprTransactions where sCardNum in (select distinct sCardNum");
  if (type.empty()) return sql(ofCards, " from fa_cards where sDeptNum like '", department, "*')");
  if (department.empty()) return sql(ofCards, " from fa_cards where sTypeNum like '", type, "*')");
  return sql(ofCards, " from fa_cards where sTypeNum like '", type, "*' and ", "sDeptNum like '", department,
             "*')");
}

/// Without a value on one side alone the net value cannot be computed: error 13.
void writeRow(ReportGrid& grid, const std::string& label, const std::string& value,
              const std::string& depreciation) {
  const std::size_t row = grid.addRow();
  grid.put(row, 0, label);
  for (const std::size_t column : {1, 3}) grid.put(row, column, value);
  for (const std::size_t column : {5, 6}) grid.put(row, column, depreciation);
  grid.putNumber(row, 7, CDbl(value) - CDbl(depreciation));
}

void setCaptions(const ReportConditions& conditions, ReportView& view) {
  view.title = "固定资产总账";
  view.periodCaption.clear();
  view.periodListVisible = false;
  view.conditionLines[0].text = "资产类别：" + conditions.type.name;
  view.conditionLines[1].text = "使用部门：" + conditions.department.name;
}

}  // namespace

/// The one period shown is the month of the run.
void BuildGeneralLedger(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  setCaptions(conditions, view);
  ReportGrid grid(view.grid, {750, 1200, 1200, 1200, 1200, 1200, 1200, 1200}, 1);
  grid.addHeader({"期间", "原值", "原值", "原值", "累计折旧", "累计折旧", "累计折旧", "净值"});
  grid.addHeader({"期间", "借方", "贷方", "余额", "借方", "贷方", "余额", "净值"});
  const Recordset sums =
      run.dbZKData.OpenRecordset(sumQuery({conditions.department.code, conditions.type.code}));
  const Value value = sums.Fields("yz");
  const Value depreciation = sums.Fields("ytzj");
  if (value.isNull() && depreciation.isNull()) return;
  const std::string period =
      sql(run.gdOpDate.year(), ".", Format(static_cast<std::int32_t>(run.gdOpDate.month()), "00"));
  writeRow(grid, period, value.textOrEmpty(), depreciation.textOrEmpty());
  writeRow(grid, "合计", value.textOrEmpty(), depreciation.textOrEmpty());
}

}  // namespace zelkor
