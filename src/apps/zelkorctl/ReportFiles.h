#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "apps/zelkorctl/ReportCommands.h"
#include "base/LongJob.h"
#include "base/OutputFile.h"
#include "reports/ReportHeading.h"
#include "startup/RunContext.h"

namespace zelkor {

/// A file for `name`, not yet open; a file of the account set is refused under every name.
std::unique_ptr<OutputFile> outputFile(const RunContext& run, const std::filesystem::path& name, bool force);

/// Writes one report in the form that was asked for.
void writeReport(RunContext& run, FinishedReport report, const ReportOptions& options, std::ostream& out);

/// Several reports, one after the other, in one file or each in one of its own. No file takes its place
/// before all are whole.
class ReportFiles {
 public:
  virtual ~ReportFiles() = default;
  virtual void add(FinishedReport report) = 0;
  virtual void finish() = 0;
};

/// By the options' format (xlsx or pdf) and by whether the file is a folder.
std::unique_ptr<ReportFiles> reportFiles(RunContext& run, const ReportOptions& options);

}  // namespace zelkor
