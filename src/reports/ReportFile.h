#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <memory>
#include <string>

#include "base/OutputFile.h"
#include "paper/PaperTable.h"
#include "reports/ReportHeading.h"
#include "startup/RunContext.h"

namespace zelkor {

/// Called as pages or rows are written, with their number so far and in all.
using WritingProgress = std::function<void(std::size_t done, std::size_t all)>;

struct ReportFileOptions {
  std::string format = "text";  // text, csv, html, xlsx or pdf
  PageForm page = {};           // of a PDF document
  bool money = false;           // amounts with two decimals and separated thousands
  bool byteOrderMark = false;   // before a CSV file
  WritingProgress progress = nullptr;
};

/// Shows how the writing of reports comes on, from the second second of the job on that begins with this
/// call.
WritingProgress shownProgress(Dialogs& dialogs);

/// A file for `name`, not yet open; a file of the account set is refused under every name (error 57).
std::unique_ptr<OutputFile> reportFile(const RunContext& run, const std::filesystem::path& name,
                                       bool replace);

/// Writes one report.
void writeReport(FinishedReport report, const ReportFileOptions& options, std::ostream& out);

}  // namespace zelkor
