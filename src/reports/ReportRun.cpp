#include "reports/ReportRun.h"

#include "reports/ConditionPages.h"
#include "startup/Logs.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kOverAgeReport = "逾龄资产统计表";

/// The period that every view shows, whatever its own page says.
const std::string& shownPeriod(const ReportConditions& conditions) {
  return conditions.periods.at(ConditionPage::SinglePeriod).from;
}

/// The box that stands in for the report of assets past their life.
MessageBox overAgeBox(const ReportConditions& conditions) {
  return {.text = sql("您已完成查询 [", kOverAgeReport, "]的操作。\r\r会计期间为：", shownPeriod(conditions)),
          .icon = Icon::Information,
          .title = "会计电算化考试专用"};
}

std::size_t positionOf(const std::string& period, const ReportConditions& conditions) {
  std::size_t position = 0;
  while (position + 1 < conditions.months.size() && conditions.months[position] != period) ++position;
  return position;
}

Recordset accountRow(RunContext& run) {
  return run.dbZKSystem.OpenRecordset(
      sql("select * from za_account where cAcc_id='", run.gstrAccountId, "'"));
}

}  // namespace

bool isAccountKnown(RunContext& run) {
  return !accountRow(run).Eof();
}

void fillViewHeader(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  const Recordset account = accountRow(run);
  if (account.Eof()) return;
  view.unitLine = "使用单位：" + account.TextOrEmpty("cUnitName");
  view.periods.insert(view.periods.end(), conditions.months.begin(), conditions.months.end());
  view.selectedPeriod = positionOf(shownPeriod(conditions), conditions);
}

std::optional<std::string> reportMemo(const ReportKind& kind, const ReportConditions& conditions) {
  if (!kind.build || kind.page == ConditionPage::Composition) return std::nullopt;
  // The list that bears the page's number. Beyond the fourth page it is one of another page.
  const std::string& period = periodInList(conditions, numberOf(kind.page));
  const PageConditions& asked = conditionsOf(kind.page);
  std::string memo = sql("固定资产：", kind.name, ",", period);
  if (asked.type) memo += "," + conditions.type.name;
  if (asked.department) memo += "," + conditions.department.name;
  return memo;
}

ReportOutcome runReport(RunContext& run, const ReportKind& kind, const ReportConditions& conditions,
                        ReportView& view) {
  fillViewHeader(run, conditions, view);
  view.title = kind.name;
  if (const auto memo = reportMemo(kind, conditions)) WriteFaLog(run, *memo);
  if (kind.build) {
    kind.build(run, conditions, view);
    return ReportOutcome::Computed;
  }
  if (kind.name == kOverAgeReport) run.dialogs.MsgBox(overAgeBox(conditions));
  return ReportOutcome::NothingToShow;
}

}  // namespace zelkor
