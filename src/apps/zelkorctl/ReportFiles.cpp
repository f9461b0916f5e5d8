#include "apps/zelkorctl/ReportFiles.h"

#include <utility>
#include <vector>

#include "reports/ReportPaper.h"
#include "reports/ReportWorkbook.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

using File = std::unique_ptr<OutputFile>;

/// What documents of a month are titled after.
std::string documentTitle(const RunContext& run) {
  return "固定资产报表 " + std::to_string(run.gdOpDate.year()) + "年" + std::to_string(run.gdOpDate.month()) +
         "月";
}

class OnePdf final : public ReportFiles {
 public:
  OnePdf(File file, const std::string& title, const ReportFileOptions& options)
      : file_(std::move(file)),
        document_(file_->open(), title, {options.page, options.money, options.progress}, true) {}

  void add(FinishedReport report) override { document_.add(std::move(report)); }
  void finish() override {
    document_.finish();
    file_->finish();
  }

 private:
  File file_;
  ReportPdf document_;
};

class OneWorkbook final : public ReportFiles {
 public:
  OneWorkbook(File file, const ReportFileOptions& options)
      : file_(std::move(file)), book_(file_->open(), {options.money, options.progress}) {}

  void add(FinishedReport report) override { book_.add(std::move(report)); }
  void finish() override {
    book_.finish();
    file_->finish();
  }

 private:
  File file_;
  Workbook book_;
};

class Folder final : public ReportFiles {
 public:
  Folder(const RunContext& run, fs::path folder, bool replace, const ReportFileOptions& options)
      : run_(run), folder_(std::move(folder)), replace_(replace), options_(options) {}

  void add(FinishedReport report) override {
    files_.push_back(reportFile(run_, folder_ / (report.heading.title + "." + options_.format), replace_));
    writeReport(std::move(report), options_, files_.back()->open());
    files_.back()->complete();
  }
  void finish() override {
    for (const File& file : files_) file->finish();
  }

 private:
  const RunContext& run_;
  fs::path folder_;
  bool replace_;
  ReportFileOptions options_;
  std::vector<File> files_;
};

}  // namespace

std::unique_ptr<ReportFiles> reportFiles(const RunContext& run, const std::string& name, bool replace,
                                         const ReportFileOptions& options) {
  std::error_code ignored;
  if (fs::is_directory(name, ignored)) return std::make_unique<Folder>(run, name, replace, options);
  File file = reportFile(run, name, replace);
  if (options.format == "pdf") return std::make_unique<OnePdf>(std::move(file), documentTitle(run), options);
  return std::make_unique<OneWorkbook>(std::move(file), options);
}

}  // namespace zelkor
