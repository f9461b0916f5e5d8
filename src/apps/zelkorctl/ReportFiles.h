#pragma once

#include <memory>

#include "reports/ReportFile.h"

namespace zelkor {

/// Several reports, one after the other, in one file or each in one of its own. No file takes its place
/// before all are whole.
class ReportFiles {
 public:
  virtual ~ReportFiles() = default;
  virtual void add(FinishedReport report) = 0;
  virtual void finish() = 0;
};

/// In the file of that name, or in the folder; the format is xlsx or pdf.
std::unique_ptr<ReportFiles> reportFiles(const RunContext& run, const std::string& name, bool replace,
                                         const ReportFileOptions& options);

}  // namespace zelkor
