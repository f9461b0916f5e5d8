#include "apps/zelkorctl/RunCalls.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "apps/zelkorctl/BackupCommands.h"
#include "apps/zelkorctl/CallChecks.h"
#include "apps/zelkorctl/Commands.h"
#include "apps/zelkorctl/JobArguments.h"
#include "apps/zelkorctl/JobParameters.h"
#include "apps/zelkorctl/PlanCommands.h"
#include "base/Text.h"

namespace zelkor {
namespace {

TerminalDialogs::Options dialogsOf(const Asked& asked) {
  TerminalDialogs::Options options;
  options.yesToAll = asked.yes;
  if (asked.answers.empty()) return options;
  options.answers.emplace();
  for (const std::string& word : Split(asked.answers, ',')) options.answers->push_back(*answerFromWord(word));
  return options;
}

TableOptions tablesOf(const Asked& asked) {
  return {.format = asked.format, .file = asked.out, .force = asked.force};
}

int run(const Asked& asked, std::ostream& output, std::ostream& problems) {
  JobRun job = jobOf(asked, asked.runType);
  requireBackupFits(job);
  if (asked.preview) return previewCommand(job, tablesOf(asked), output, problems);
  job.dialogs = dialogsOf(asked);
  return runCommand(job, output);
}

int plan(const Asked& asked, std::ostream& output, std::ostream& problems) {
  return planCommand(jobOf(asked, 8),
                     {.months = static_cast<std::size_t>(asked.months),
                      .changes = asked.with,
                      .by = asked.by,
                      .tables = tablesOf(asked)},
                     output, problems);
}

/// How tables are written, in one of these forms.
Parameters tableParameters(std::vector<std::string_view> forms, std::string_view needs) {
  return {{.name = "--format",
           .field = &Asked::format,
           .text = "形式",
           .value = "FORMAT",
           .words = std::move(forms),
           .needs = needs},
          {.name = "--out",
           .field = &Asked::out,
           .text = "写入的文件；xlsx 必需",
           .value = "FILE",
           .needs = needs},
          {.name = "--force", .field = &Asked::force, .text = "替换已有的文件", .needs = "--out"}};
}

Parameters joined(Parameters first, Parameters last) {
  std::ranges::move(last, std::back_inserter(first));
  return first;
}

Call runCall() {
  const Parameters own{{.name = "RUNTYPE",
                        .field = &Asked::runType,
                        .text = "运行类型，与 --set 一起用",
                        .check = runTypeProblem,
                        .with = With::Set},
                       {.name = "--answers",
                        .field = &Asked::answers,
                        .text = "依次的回答：y 是，n 否，o 确定，c 取消",
                        .value = "WORDS",
                        .check = answersProblem},
                       {.name = "--yes", .field = &Asked::yes, .text = "其余问题一律回答“是”"},
                       {.name = "--preview",
                        .field = &Asked::preview,
                        .text = "只预览 8 计提折旧将记什么，与上月比较，什么也不写入"}};
  return {.name = "run",
          .text = "在终端中执行批处理运行类型：8 计提折旧，20 月末结账，21 对账，23 重新初始化",
          .parameters = jobAfterBackup(joined(own, tableParameters({"text", "csv", "xlsx"}, "--preview"))),
          .example = "zelkorctl run 8 --set books --answers y,y,n",
          .run = run};
}

Call planCall() {
  const Parameters own{
      {.name = "--months",
       .field = &Asked::months,
       .text = "月数",
       .value = "NUMBER",
       .check = monthsProblem},
      {.name = "--with",
       .field = &Asked::with,
       .text = "计划的增加和减少：UTF-8 编码的 CSV 文件，列为业务（增加或减少）、日期、卡片编号和卡片项目",
       .value = "FILE"},
      {.name = "--by",
       .field = &Asked::by,
       .text = "只列一种汇总，或逐张卡片；不给出时为前三种汇总",
       .value = "WORD",
       .words = {"department", "category", "subject", "card"}}};
  return {.name = "plan",
          .text = "逐月列出今后的折旧，到净残值为止：第一个月与当月计提相同，以后是推算；什么也不写入",
          .parameters = jobParameters(joined(own, tableParameters({"text", "csv", "xlsx", "json"}, ""))),
          .example = "zelkorctl plan --set books --months 36 --by category",
          .run = plan};
}

}  // namespace

std::vector<Call> runCalls() {
  return {runCall(), planCall()};
}

}  // namespace zelkor
