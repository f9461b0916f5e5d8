#include "reports/ReportRun.h"

#include <initializer_list>

#include "startup/Logs.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr int kStatusPage = 1;
constexpr std::size_t kViewPeriods = 1;  // the list whose choice every view shows
constexpr std::string_view kOverAgeReport = "逾龄资产统计表";

std::string joined(std::initializer_list<std::string_view> pieces) {
  std::string text;
  for (const std::string_view piece : pieces) {
    if (!text.empty()) text += ',';
    text += piece;
  }
  return text;
}

/// The box that stands in for the report of assets past their life.
MessageBox overAgeBox(const ReportConditions& conditions) {
  return {.text = sql("您已完成查询 [", kOverAgeReport, "]的操作。\r\r会计期间为：", conditions.periods[1]),
          .icon = Icon::Information,
          .title = "会计电算化考试专用"};
}

std::size_t positionOf(const std::string& period, const ReportConditions& conditions) {
  std::size_t position = 0;
  while (position + 1 < conditions.months.size() && conditions.months[position] != period) ++position;
  return position;
}

}  // namespace

void fillViewHeader(RunContext& run, const ReportConditions& conditions, ReportView& view) {
  const Recordset account =
      run.dbZKSystem.OpenRecordset(sql("select * from za_account where cAcc_id='", run.gstrAccountId, "'"));
  if (account.Eof()) return;
  view.unitLine = "使用单位：" + account.TextOrEmpty("cUnitName");
  view.periods.insert(view.periods.end(), conditions.months.begin(), conditions.months.end());
  view.selectedPeriod = positionOf(conditions.periods[kViewPeriods], conditions);
}

std::optional<std::string> reportMemo(const ReportKind& kind, const ReportConditions& conditions) {
  const std::string report = sql("固定资产：", kind.name);
  const auto page = static_cast<std::size_t>(kind.page);
  const std::string& period = conditions.periods[page];
  switch (kind.page) {
    case kStatusPage:
      return kind.build ? std::optional(joined({report, period})) : std::nullopt;
    case 2:
    case 3:
      return joined({report, period});
    case 8:
    case 10:
      return joined({report, period, conditions.types[4].name, conditions.departments[3].name});
    case 9:
      return joined({report, period, conditions.types[3].name, conditions.departments[1].name});
    case 11:
      return joined({report, period, conditions.types[5].name});
    case 12:
      return joined({report, period, conditions.departments[4].name});
    default:
      return std::nullopt;
  }
}

ReportOutcome runReport(RunContext& run, const ReportKind& kind, const ReportConditions& conditions,
                        ReportView& view) {
  fillViewHeader(run, conditions, view);
  if (const auto memo = reportMemo(kind, conditions)) WriteFaLog(run, *memo);
  if (kind.build) {
    kind.build(run, conditions, view);
    return ReportOutcome::Computed;
  }
  if (kind.page == kStatusPage) run.dialogs.MsgBox(overAgeBox(conditions));
  return ReportOutcome::NothingToShow;
}

}  // namespace zelkor
