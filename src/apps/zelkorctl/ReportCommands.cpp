#include "apps/zelkorctl/ReportCommands.h"

#include <filesystem>
#include <optional>
#include <ostream>

#include "apps/zelkorctl/ReportConditionList.h"
#include "base/OutputFile.h"
#include "base/RuntimeError.h"
#include "reports/ReportExport.h"
#include "reports/ReportRun.h"
#include "store/accountset/FilesOfSet.h"
#ifdef ZELKOR_PAPER
#include "ui/GridPaper.h"
#endif

namespace zelkor {
namespace {

constexpr int kWrongUsage = 2;

using StreamWriter = void (*)(std::ostream& out, const std::string& title, const ReportView& view);

void writePdf([[maybe_unused]] std::ostream& out, [[maybe_unused]] const std::string& title,
              [[maybe_unused]] const ReportView& view) {
#ifdef ZELKOR_PAPER
  printPdf(out, title, captionLines(view), view.grid);
#else
  throw RuntimeError(ErrorNumber::OperationNotSupported, "本程序未含 PDF 输出");
#endif
}

StreamWriter streamWriter(const std::string& format) {
  if (format == "csv") return writeCsv;
  if (format == "html") return writeHtml;
  if (format == "xlsx") return writeXlsx;
  if (format == "pdf") return writePdf;
  return writeText;
}

/// The file that was asked for, none for the output. A file of the account set is refused under every name.
std::optional<OutputFile> outputFileOf(const RunContext& context, const ReportOptions& options) {
  if (options.file.empty()) return std::nullopt;
  for (const std::string& own : {context.gstrZtFile, context.gstrZkSysFile}) {
    if (isFileOfSet(options.file, own)) cannotWrite(options.file, "它是账套的数据文件");
  }
  return std::optional<OutputFile>(
      std::in_place, options.file,
      OutputFile::Options{.replace = options.force, .access = accessOf(context.gstrZtFile)});
}

void listReports(std::ostream& problems, const std::string& name) {
  problems << "没有报表“" << name << "”，只有：\n";
  for (const ReportKind& kind : reportKinds()) problems << "  " << kind.name << "\n";
}

bool needsFile(const std::string& format) {
  return format == "xlsx" || format == "pdf";
}

void writeReport(RunContext& context, const ReportKind& kind, const ReportConditions& conditions,
                 const ReportOptions& options, std::ostream& output, std::ostream& problems) {
  ReportView view;
  const std::string title(kind.name);
  std::optional<OutputFile> file = outputFileOf(context, options);
  if (runReport(context, kind, conditions, view) == ReportOutcome::NothingToShow) {
    problems << "报表“" << kind.name << "”没有内容\n";
    return;
  }
  replaceUnwritable(view);
  streamWriter(options.format)(file ? file->open() : output, title, view);
  if (file) file->finish();
}

/// Without its row the report does not say whose it is.
void nameUnknownAccount(RunContext& context, std::ostream& problems) {
  if (isAccountKnown(context)) return;
  problems << "系统文件的 za_account 中没有账套“" << context.gstrAccountId << "”，报表不含使用单位\n";
}

}  // namespace

int reportCommand(const JobRun& job, const ReportOptions& options, std::ostream& output,
                  std::ostream& problems) {
  const ReportKind* kind = findReport(options.report);
  if (!kind) return listReports(problems, options.report), kWrongUsage;
  if (needsFile(options.format) && options.file.empty()) {
    problems << options.format << " 要用 --out 指定文件\n";
    return kWrongUsage;
  }
  return inPreparedRun(job, output, [&](RunContext& context) {
    try {
      const ReportConditions conditions = readConditions(context, *kind, options.conditions);
      nameUnknownAccount(context, problems);
      writeReport(context, *kind, conditions, options, output, problems);
      return 0;
    } catch (const ConditionRefused& refused) {
      problems << refused.what() << "\n";
      return kWrongUsage;
    }
  });
}

}  // namespace zelkor
