#pragma once

#include <functional>
#include <iosfwd>
#include <memory>

#include "reports/ReportHeading.h"

namespace zelkor {

struct WorkbookOptions {
  bool money = false;  // amounts are shown with two decimals and separated thousands
  /// Called as rows are written, with their number so far and in all.
  std::function<void(std::size_t done, std::size_t all)> progress = nullptr;
};

/// A workbook with a sheet for each report: numbers as numbers, dates as dates, all else as text, header rows
/// frozen and on every page. What the stream refuses is reported by the stream; error 57 for a report that is
/// larger than a sheet may be.
class Workbook {
 public:
  Workbook(std::ostream& out, WorkbookOptions options);
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;
  ~Workbook();

  void add(FinishedReport report);
  void finish();

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
  WorkbookOptions options_;
};

}  // namespace zelkor
