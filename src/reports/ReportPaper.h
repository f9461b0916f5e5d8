#pragma once

#include <functional>
#include <iosfwd>
#include <string>

#include "paper/PaperTable.h"
#include "paper/PdfDocument.h"
#include "reports/ReportHeading.h"

namespace zelkor {

struct PaperOptions {
  PageForm form;
  bool money = false;  // amounts with two decimals and separated thousands
  /// Called as pages are written, with their number so far and in all.
  std::function<void(std::size_t done, std::size_t all)> progress = nullptr;
};

/// The report as a table for paper, dressed and with what ledgers carry over.
PaperTable paperTable(FinishedReport report, bool money);

/// A PDF document of reports, each on pages numbered for itself. What the stream refuses is reported by the
/// stream.
class ReportPdf {
 public:
  /// With an outline the document has an entry for each report.
  ReportPdf(std::ostream& out, const std::string& title, PaperOptions options, bool outline);

  void add(FinishedReport report);
  void finish() { document_.finish(); }

 private:
  PdfDocument document_;
  PaperOptions options_;
  bool outline_;
};

}  // namespace zelkor
