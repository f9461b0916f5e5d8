#include "apps/zelkorctl/ReportCommands.h"

#include <chrono>
#include <optional>
#include <ostream>
#include <utility>

#include "apps/zelkorctl/ReportFiles.h"
#include "base/LongJob.h"
#include "base/RuntimeError.h"
#include "reports/ConditionTexts.h"
#include "reports/ReportExport.h"
#include "reports/ReportRun.h"

namespace zelkor {
namespace {

constexpr int kPartlyDone = 1;
constexpr int kNothingWritten = 1;
constexpr int kWrongUsage = 2;

void listReports(std::ostream& problems, const std::string& name) {
  problems << "没有报表“" << name << "”，只有：\n";
  for (const ReportKind& kind : reportKinds()) problems << "  " << kind.name << "\n";
}

bool needsFile(const std::string& format) {
  return format == "xlsx" || format == "pdf";
}

/// What is wrong with the call, or nothing.
std::string usageProblem(const ReportOptions& options) {
  if (!options.all && options.report.empty()) return "缺少 NAME（全部报表用 --all）";
  if (options.all && !options.report.empty()) return "--all 与报表名称只能给出一个";
  if (options.all && !needsFile(options.format)) return "--all 的形式只有 xlsx、pdf";
  if (needsFile(options.format) && options.file.empty()) return options.format + " 要用 --out 指定文件";
  return {};
}

/// "a3-portrait"
PageForm pageForm(const std::string& words) {
  return {.paper = words.starts_with("a3") ? Paper::A3 : Paper::A4,
          .landscape = words.ends_with("landscape")};
}

ReportFileOptions fileOptions(RunContext& context, const ReportOptions& options) {
  return {.format = options.format,
          .page = pageForm(options.page),
          .money = options.money,
          .byteOrderMark = options.byteOrderMark,
          .progress = shownProgress(context.dialogs)};
}

/// Nothing for a report that nothing computes.
std::optional<FinishedReport> computed(RunContext& context, const ReportKind& kind,
                                       const ReportConditions& conditions) {
  ReportView view;
  if (runReport(context, kind, conditions, view) == ReportOutcome::NothingToShow) return std::nullopt;
  replaceUnwritable(view);
  return finishedReport(context, std::move(view));
}

int writeOne(RunContext& context, const ReportKind& kind, const ReportOptions& options, std::ostream& output,
             std::ostream& problems) {
  const ReportConditions conditions = readConditions(context, kind, options.conditions);
  const ReportFileOptions form = fileOptions(context, options);
  std::unique_ptr<OutputFile> file;
  if (!options.file.empty()) file = reportFile(context, options.file, options.force);
  std::optional<FinishedReport> report = computed(context, kind, conditions);
  if (!report) {
    problems << "报表“" << kind.name << "”没有内容" << (file ? "，没有写出文件" : "") << "\n";
    return file ? kNothingWritten : 0;
  }
  writeReport(std::move(*report), form, file ? file->open() : output);
  if (file) file->finish();
  return 0;
}

/// Figures of nothing make some reports divide by zero.
bool lacksFigures(const RuntimeError& error) {
  return error.is(ErrorNumber::Overflow) || error.is(ErrorNumber::DivisionByZero);
}

int writeAll(RunContext& context, const ReportOptions& options, std::ostream& problems) {
  std::vector<std::pair<const ReportKind*, ReportConditions>> asked;
  for (const ReportKind& kind : reportKinds()) {
    if (kind.build) asked.emplace_back(&kind, readMonthConditions(context, kind, options.conditions));
  }
  const auto files = reportFiles(context, options.file, options.force, fileOptions(context, options));
  LongJob job(context.dialogs, "正在计算报表", asked.size(), std::chrono::seconds(1));
  std::size_t written = 0;
  for (const auto& [kind, conditions] : asked) {
    job.step();
    std::optional<FinishedReport> report;
    try {
      report = computed(context, *kind, conditions);
    } catch (const RuntimeError& error) {
      if (!lacksFigures(error)) throw;
      problems << "报表“" << kind->name << "”未写出：" << error.what() << "\n";
      continue;
    }
    files->add(std::move(*report));
    ++written;
  }
  if (written == 0) return kPartlyDone;
  files->finish();
  return written == asked.size() ? 0 : kPartlyDone;
}

/// Without its row the report does not say whose it is.
void nameUnknownAccount(RunContext& context, std::ostream& problems) {
  if (isAccountKnown(context)) return;
  problems << "系统文件的 za_account 中没有账套“" << context.gstrAccountId << "”，报表不含使用单位\n";
}

}  // namespace

int reportCommand(const JobRun& job, const ReportOptions& options, std::ostream& output,
                  std::ostream& problems) {
  if (const std::string problem = usageProblem(options); !problem.empty()) {
    problems << problem << "\n";
    return kWrongUsage;
  }
  const ReportKind* kind = findReport(options.report);
  if (!kind && !options.all) return listReports(problems, options.report), kWrongUsage;
  return inPreparedRun(job, output, [&](RunContext& context) {
    try {
      nameUnknownAccount(context, problems);
      return options.all ? writeAll(context, options, problems)
                         : writeOne(context, *kind, options, output, problems);
    } catch (const ConditionRefused& refused) {
      problems << refused.what() << "\n";
      return kWrongUsage;
    }
  });
}

}  // namespace zelkor
