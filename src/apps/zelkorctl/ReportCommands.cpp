#include "apps/zelkorctl/ReportCommands.h"

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <ostream>

#include "apps/zelkorctl/ReportConditionList.h"
#include "base/RuntimeError.h"
#include "reports/ReportExport.h"
#include "reports/ReportRun.h"
#ifdef ZELKOR_PAPER
#include "ui/GridPaper.h"
#endif

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr int kWrongUsage = 2;

/// A file beside the wanted one that takes its place when it is whole.
class PartFile {
 public:
  explicit PartFile(fs::path file) : file_(std::move(file)), part_(file_.string() + ".part") {
    if (!std::ofstream(part_, std::ios::binary)) cannotWrite(file_, std::strerror(errno));
  }
  PartFile(const PartFile&) = delete;
  PartFile& operator=(const PartFile&) = delete;
  ~PartFile() {
    std::error_code ignored;
    fs::remove(part_, ignored);
  }

  const fs::path& part() const { return part_; }
  void keep() {
    std::error_code error;
    fs::rename(part_, file_, error);
    if (error) cannotWrite(file_, error.message());
  }

 private:
  fs::path file_;
  fs::path part_;
};

using StreamWriter = void (*)(std::ostream& out, const std::string& title, const ReportView& view);

StreamWriter streamWriter(const std::string& format) {
  if (format == "csv") return writeCsv;
  if (format == "html") return writeHtml;
  return writeText;
}

void writeStream(const fs::path& file, const std::string& format, const std::string& title,
                 const ReportView& view) {
  std::ofstream out(file, std::ios::binary);
  if (!out) cannotWrite(file, std::strerror(errno));
  streamWriter(format)(out, title, view);
  if (!out.flush()) cannotWrite(file, std::strerror(errno));
}

void writePdf([[maybe_unused]] const fs::path& file, [[maybe_unused]] const std::string& title,
              [[maybe_unused]] const ReportView& view) {
#ifdef ZELKOR_PAPER
  printPdf(file, title, captionLines(view), view.grid);
#else
  throw RuntimeError(ErrorNumber::OperationNotSupported, "本程序未含 PDF 输出");
#endif
}

void writeFile(const fs::path& file, const std::string& format, const std::string& title,
               const ReportView& view) {
  PartFile written(file);
  if (format == "xlsx") {
    writeXlsx(written.part(), title, view);
  } else if (format == "pdf") {
    writePdf(written.part(), title, view);
  } else {
    writeStream(written.part(), format, title, view);
  }
  written.keep();
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
  if (runReport(context, kind, conditions, view) == ReportOutcome::NothingToShow) {
    problems << "报表“" << kind.name << "”没有内容\n";
  } else if (options.file.empty()) {
    streamWriter(options.format)(output, title, view);
  } else {
    writeFile(options.file, options.format, title, view);
  }
}

/// Without its row the report does not tell whose it is.
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
