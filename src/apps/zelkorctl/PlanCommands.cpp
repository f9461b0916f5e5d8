#include "apps/zelkorctl/PlanCommands.h"

#include <ostream>
#include <vector>

#include "apps/zelkorctl/PlanJson.h"
#include "base/FileContent.h"
#include "base/Format.h"
#include "depreciation/BooksMonth.h"
#include "depreciation/DeprPlan.h"
#include "depreciation/RunPreview.h"

namespace zelkor {
namespace {

constexpr int kNotDone = 1;
constexpr int kWrongUsage = 2;
constexpr int kMonthlyRun = 8;

int refused(const std::vector<std::string>& reasons, int status, std::ostream& problems) {
  for (const std::string& reason : reasons) problems << reason << '\n';
  return status;
}

std::optional<OpenPeriod> openPeriodOf(RunContext& run) {
  return openPeriod(run.dbZKData, run.dbZKSystem, run.gstrAccountId);
}

std::vector<DeprTable> tablesOf(const DeprPlan& plan, const std::string& by) {
  std::vector<DeprTable> tables;
  if (by.empty()) return planTables(plan);
  if (by == "card") tables.push_back(planCardTable(plan));
  if (by == "department") tables.push_back(planTable(plan, "部门", plan.departments));
  if (by == "category") tables.push_back(planTable(plan, "类别", plan.categories));
  if (by == "subject") tables.push_back(planTable(plan, "科目", plan.subjects));
  return tables;
}

void write(RunContext& run, const DeprPlan& plan, const PlanOptions& options, std::ostream& out) {
  if (options.tables.format == "json") return writePlanJson(plan, options.by, out);
  const DateTime last = DateAdd("m", static_cast<std::int64_t>(plan.months) - 1, plan.month);
  writeTables(run, {Format(plan.month, "yyyy.mm") + "—" + Format(last, "yyyy.mm"), plan.remarks},
              tablesOf(plan, options.by), options.tables, out);
}

}  // namespace

int planCommand(const JobRun& job, const PlanOptions& options, std::ostream& output, std::ostream& problems) {
  if (const std::string problem = tableProblem(options.tables); !problem.empty())
    return refused({problem}, kWrongUsage, problems);
  const std::string csv = options.changes.empty() ? std::string() : contentOf(options.changes);
  return inReadingRun(job, output, problems, [&](RunContext& run) {
    const auto file = tableFile(run, options.tables);
    std::vector<std::string> found;
    PlannedChanges changes;
    if (!options.changes.empty())
      changes = readPlannedChanges(run.dbZKData, firstOfMonth(run.gdOpDate), csv, found);
    if (!found.empty()) return refused(found, kNotDone, problems);
    const DeprPlan plan = planDepr(run.dbZKData, run.gdOpDate, options.months, changes, openPeriodOf(run));
    if (!plan.problems.empty()) return refused(plan.problems, kNotDone, problems);
    write(run, plan, options, file ? file->open() : output);
    if (file) file->finish();
    return 0;
  });
}

int previewCommand(const JobRun& job, const TableOptions& options, std::ostream& output,
                   std::ostream& problems) {
  if (const std::string problem = tableProblem(options); !problem.empty())
    return refused({problem}, kWrongUsage, problems);
  return inReadingRun(job, output, problems, [&](RunContext& run) {
    if (run.giRunType != kMonthlyRun)
      return refused({"--preview 只用于运行类型 8 计提折旧"}, kWrongUsage, problems);
    const auto file = tableFile(run, options);
    const RunPreview preview = previewMonthDepr(run.dbZKData, run.gdOpDate, openPeriodOf(run));
    if (!preview.problems.empty()) return refused(preview.problems, kNotDone, problems);
    writeTables(run, {Format(preview.month, "yyyy.mm"), preview.remarks}, previewTables(preview), options,
                file ? file->open() : output);
    if (file) file->finish();
    return 0;
  });
}

}  // namespace zelkor
