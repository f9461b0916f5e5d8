#include "apps/zelkorctl/ImportCalls.h"

#include "apps/zelkorctl/Commands.h"
#include "apps/zelkorctl/JobArguments.h"
#include "apps/zelkorctl/JobParameters.h"
#include "apps/zelkorctl/PreviewCommands.h"

namespace zelkor {
namespace {

ImportOptions importOf(const Asked& asked) {
  return {.file = asked.file, .charset = asked.charset, .refused = asked.refused};
}

JobRun importRunOf(const Asked& asked, int runType) {
  JobRun job = jobOf(asked, runType);
  job.progress = asked.progress;
  return job;
}

int importRegister(const Asked& asked, std::ostream& output, std::ostream& problems) {
  const JobRun job = importRunOf(asked, asked.newType == 1 ? 5 : 6);
  if (asked.preview) return previewCardsCommand(job, importOf(asked), asked.newType, output);
  return importCardsCommand(job, importOf(asked), asked.newType, output, problems);
}

int importChanges(const Asked& asked, std::ostream& output, std::ostream&) {
  const JobRun job = importRunOf(asked, 24);
  if (asked.preview) return previewSheetsCommand(job, importOf(asked), output);
  return importSheetsCommand(job, importOf(asked), output);
}

int importWork(const Asked& asked, std::ostream& output, std::ostream& problems) {
  return importWorkloadCommand(importRunOf(asked, 8), importOf(asked), output, problems);
}

int dispose(const Asked& asked, std::ostream& output, std::ostream& problems) {
  return disposeCommand(jobOf(asked, 22), importOf(asked), output, problems);
}

/// What the calls take that read a table from a file.
Parameters tableFile(std::string_view text) {
  return {{.name = "FILE", .field = &Asked::file, .text = text},
          {.name = "--charset",
           .field = &Asked::charset,
           .text = "CSV 文件的字符集；不给出时 UTF-8 和 GB18030 自动识别",
           .value = "NAME"}};
}

/// Those of an import that leaves bad rows out.
Parameters importedFile(std::string_view text) {
  Parameters parameters = tableFile(text);
  parameters.push_back({.name = "--refused",
                        .field = &Asked::refused,
                        .text = "把拒绝的行连同原因写入这个新的 CSV 文件，改正后可以再导入",
                        .value = "FILE"});
  parameters.push_back(
      {.name = "--progress", .field = &Asked::progress, .text = "标准错误输出不是终端也显示进度"});
  return parameters;
}

Parameters withPreview(Parameters parameters) {
  parameters.push_back({.name = "--preview",
                        .field = &Asked::preview,
                        .text = "只检查：各列当作什么，缺少哪些列，哪些行有问题；不保存"});
  return parameters;
}

Parameters withNewType(Parameters parameters) {
  parameters.push_back({.name = "--new-type",
                        .field = &Asked::newType,
                        .text = "1 原始卡片，2 本月新增",
                        .value = "TYPE",
                        .words = {"1", "2"}});
  return parameters;
}

}  // namespace

std::vector<Call> importCalls() {
  return {{.name = "cards import",
           .text = "导入固定资产卡片",
           .parameters =
               jobAfterBackup(withPreview(withNewType(importedFile("CSV 或 xlsx 文件，列名为卡片项目")))),
           .example = "zelkorctl cards import register.csv --set books",
           .run = importRegister},
          {.name = "sheets import",
           .text = "成批保存变动单",
           .parameters = jobAfterBackup(withPreview(
               importedFile("CSV 或 xlsx 文件：变动类型,卡片编号,变动后内容,变动后地点,变动原因"))),
           .example = "zelkorctl sheets import changes.csv --set books",
           .run = importChanges},
          {.name = "workload import",
           .text = "录入工作量法资产的本月工作量",
           .parameters = jobAfterBackup(importedFile("CSV 或 xlsx 文件：卡片编号,本月工作量")),
           .example = "zelkorctl workload import work.csv --set books",
           .run = importWork},
          {.name = "dispose",
           .text = "减少资产",
           .parameters = jobAfterBackup(
               tableFile("CSV 或 xlsx 文件：卡片编号,减少日期,减少方式,清理收入,清理费用,清理原因")),
           .example = "zelkorctl dispose disposals.csv --set books",
           .run = dispose}};
}

}  // namespace zelkor
