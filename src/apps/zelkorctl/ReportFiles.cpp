#include "apps/zelkorctl/ReportFiles.h"

#include <chrono>
#include <ostream>
#include <utility>

#include "reports/ReportExport.h"
#include "reports/ReportPaper.h"
#include "reports/ReportWorkbook.h"
#include "store/accountset/FilesOfSet.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds kFirstSecond{1000};

/// Shows how the writing of a report comes on. Counts from one report to the next.
class WritingProgress {
 public:
  explicit WritingProgress(Dialogs& dialogs) : dialogs_(dialogs) {}

  void operator()(std::size_t done, std::size_t all) {
    if (!job_) job_ = std::make_shared<LongJob>(dialogs_, "正在写出报表", all, kFirstSecond);
    job_->step();
    if (done == all) job_.reset();
  }

 private:
  Dialogs& dialogs_;
  std::shared_ptr<LongJob> job_;
};

PageForm pageForm(const std::string& words) {
  return {.paper = words.starts_with("a3") ? Paper::A3 : Paper::A4,
          .landscape = words.ends_with("landscape")};
}

PaperOptions paperOptions(RunContext& run, const ReportOptions& options) {
  return {.form = pageForm(options.page), .money = options.money, .progress = WritingProgress(run.dialogs)};
}

WorkbookOptions workbookOptions(RunContext& run, const ReportOptions& options) {
  return {.money = options.money, .progress = WritingProgress(run.dialogs)};
}

/// "2020.05": what documents of a month are titled after.
std::string documentTitle(const RunContext& run) {
  return "固定资产报表 " + std::to_string(run.gdOpDate.year()) + "年" + std::to_string(run.gdOpDate.month()) +
         "月";
}

class OnePdf final : public ReportFiles {
 public:
  OnePdf(RunContext& run, const ReportOptions& options)
      : file_(outputFile(run, options.file, options.force)),
        document_(file_->open(), documentTitle(run), paperOptions(run, options), true) {}

  void add(FinishedReport report) override { document_.add(std::move(report)); }
  void finish() override {
    document_.finish();
    file_->finish();
  }

 private:
  std::unique_ptr<OutputFile> file_;
  ReportPdf document_;
};

class OneWorkbook final : public ReportFiles {
 public:
  OneWorkbook(RunContext& run, const ReportOptions& options)
      : file_(outputFile(run, options.file, options.force)),
        book_(file_->open(), workbookOptions(run, options)) {}

  void add(FinishedReport report) override { book_.add(std::move(report)); }
  void finish() override {
    book_.finish();
    file_->finish();
  }

 private:
  std::unique_ptr<OutputFile> file_;
  Workbook book_;
};

class Folder final : public ReportFiles {
 public:
  Folder(RunContext& run, const ReportOptions& options) : run_(run), options_(options) {}

  void add(FinishedReport report) override {
    const fs::path name = fs::path(options_.file) / (report.heading.title + "." + options_.format);
    files_.push_back(outputFile(run_, name, options_.force));
    writeReport(run_, std::move(report), options_, files_.back()->open());
  }
  void finish() override {
    for (const auto& file : files_) file->finish();
  }

 private:
  RunContext& run_;
  const ReportOptions& options_;
  std::vector<std::unique_ptr<OutputFile>> files_;
};

}  // namespace

std::unique_ptr<OutputFile> outputFile(const RunContext& run, const fs::path& name, bool force) {
  for (const std::string& own : {run.gstrZtFile, run.gstrZkSysFile}) {
    if (isFileOfSet(name.string(), own)) cannotWrite(name, "它是账套的数据文件");
  }
  return std::make_unique<OutputFile>(
      name, OutputFile::Options{.replace = force, .access = accessOf(run.gstrZtFile)});
}

void writeReport(RunContext& run, FinishedReport report, const ReportOptions& options, std::ostream& out) {
  const std::string title = report.heading.title;
  if (options.format == "pdf") {
    ReportPdf document(out, title, paperOptions(run, options), false);
    document.add(std::move(report));
    document.finish();
  } else if (options.format == "xlsx") {
    Workbook book(out, workbookOptions(run, options));
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

std::unique_ptr<ReportFiles> reportFiles(RunContext& run, const ReportOptions& options) {
  std::error_code ignored;
  if (fs::is_directory(options.file, ignored)) return std::make_unique<Folder>(run, options);
  if (options.format == "pdf") return std::make_unique<OnePdf>(run, options);
  return std::make_unique<OneWorkbook>(run, options);
}

}  // namespace zelkor
