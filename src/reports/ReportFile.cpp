#include "reports/ReportFile.h"

#include <algorithm>
#include <chrono>
#include <ostream>
#include <utility>

#include "base/LongJob.h"
#include "reports/ReportExport.h"
#include "reports/ReportPaper.h"
#include "reports/ReportWorkbook.h"
#include "store/accountset/FilesOfSet.h"

namespace zelkor {
namespace {

/// Counts from one report to the next.
class ShownProgress {
 public:
  explicit ShownProgress(Dialogs& dialogs) : dialogs_(dialogs) {}

  void operator()(std::size_t done, std::size_t all) {
    if (!job_) job_ = std::make_shared<LongJob>(dialogs_, "正在写出报表", all, pause());
    job_->step();
    if (done == all) job_.reset();
  }

 private:
  using Clock = std::chrono::steady_clock;

  /// What is left of the first second.
  LongJob::Milliseconds pause() const {
    constexpr LongJob::Milliseconds kFirstSecond{1000};
    const auto gone = std::chrono::duration_cast<LongJob::Milliseconds>(Clock::now() - begin_);
    return std::max(LongJob::kUsualPause, kFirstSecond - gone);
  }

  Dialogs& dialogs_;
  Clock::time_point begin_ = Clock::now();
  std::shared_ptr<LongJob> job_;
};

}  // namespace

WritingProgress shownProgress(Dialogs& dialogs) {
  return ShownProgress(dialogs);
}

std::unique_ptr<OutputFile> reportFile(const RunContext& run, const std::filesystem::path& name,
                                       bool replace) {
  for (const std::string& own : {run.gstrZtFile, run.gstrZkSysFile}) {
    if (isFileOfSet(name.string(), own)) cannotWrite(name, "它是账套的数据文件");
  }
  return std::make_unique<OutputFile>(
      name, OutputFile::Options{.replace = replace, .access = accessOf(run.gstrZtFile)});
}

void writeReport(FinishedReport report, const ReportFileOptions& options, std::ostream& out) {
  const std::string title = report.heading.title;
  if (options.format == "pdf") {
    ReportPdf document(out, title, {options.page, options.money, options.progress}, false);
    document.add(std::move(report));
    document.finish();
  } else if (options.format == "xlsx") {
    Workbook book(out, {options.money, options.progress});
    book.add(std::move(report));
    book.finish();
  } else if (options.format == "html") {
    writeHtml(out, std::move(report), options.money);
  } else if (options.format == "csv") {
    writeCsv(out, title, report.view, options.byteOrderMark);
  } else {
    writeText(out, title, report.view);
  }
}

}  // namespace zelkor
