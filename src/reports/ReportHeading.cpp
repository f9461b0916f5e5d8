#include "reports/ReportHeading.h"

#include <utility>

#include "base/Characters.h"
#include "base/Format.h"
#include "base/Text.h"
#include "reports/ReportCatalogue.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kLedgers = "N4";
constexpr std::string_view kGap = "　";

std::string accountText(RunContext& run) {
  const Recordset account = run.dbZKSystem.OpenRecordset(
      sql("select cAcc_Name from za_account where cAcc_id='", run.gstrAccountId, "'"));
  const std::string name = account.Eof() ? "" : Trim(account.TextOrEmpty("cAcc_Name"));
  return writable("账套：[" + run.gstrAccountId + "]" + (name.empty() ? "" : " " + name));
}

/// "2020.01": a report that names no period is one of the run's month.
std::string monthOf(const RunContext& run) {
  return Format(run.gdOpDate, "yyyy.mm");
}

std::string joinedConditions(const ReportView& view) {
  std::string all = view.subject;
  for (const ConditionLine& line : view.conditionLines) {
    if (!line.visible || line.text.empty()) continue;
    all += (all.empty() ? "" : std::string(kGap)) + line.text;
    if (line.text.ends_with("：")) all += "全部";  // nothing was chosen
  }
  return all;
}

}  // namespace

std::string shownPeriod(const ReportView& view) {
  std::string period = view.periodCaption;
  if (view.periodListVisible && view.selectedPeriod < view.periods.size()) {
    period += view.periods[view.selectedPeriod];
  }
  return period;
}

std::vector<MarginLine> ReportHeading::head() const {
  return {{account, period, std::string(kAmountUnit)}, {unit, "", conditions}};
}

MarginLine ReportHeading::foot() const {
  return {preparedBy, "", printed};
}

ReportHeading headingOf(RunContext& run, const ReportView& view) {
  ReportHeading heading;
  heading.title = view.title;
  heading.account = accountText(run);
  if (view.unitLine != kUnitLineAsDrawn) heading.unit = writable(view.unitLine);
  heading.period = shownPeriod(view);
  if (heading.period.empty()) heading.period = "期间：" + monthOf(run);
  heading.conditions = writable(joinedConditions(view));
  heading.preparedBy = writable("制表人：" + run.gstrUser);
  heading.printed = "打印日期：" + Format(run.clock.now(), "yyyy-mm-dd");
  return heading;
}

FinishedReport finishedReport(RunContext& run, ReportView view) {
  ReportHeading heading = headingOf(run, view);
  const ReportKind* kind = findReport(view.title);
  return {std::move(heading), std::move(view), kind && kind->folder() == kLedgers};
}

}  // namespace zelkor
