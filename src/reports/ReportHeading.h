#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "paper/PaperTable.h"
#include "reports/ReportView.h"
#include "startup/RunContext.h"

namespace zelkor {

inline constexpr std::string_view kAmountUnit = "单位：元";

/// What a sheet of paper or a file tells of the report on it: whose it is, of when, who made it. Texts with
/// their captions, empty where there is nothing to tell.
struct ReportHeading {
  std::string title;
  std::string account;  // number and name of the account set
  std::string unit;
  std::string period;
  std::string conditions;
  std::string preparedBy;
  std::string printed;  // the day

  /// Three texts a line, above the table.
  std::vector<MarginLine> head() const;
  MarginLine foot() const;
};

ReportHeading headingOf(RunContext& run, const ReportView& view);

/// A report as it leaves the program in a file that is looked at.
struct FinishedReport {
  ReportHeading heading;
  ReportView view;
  bool ledger = false;  // which goes on from page to page with running sums
};

FinishedReport finishedReport(RunContext& run, ReportView view);

/// What the view shows as its period, with its caption.
std::string shownPeriod(const ReportView& view);

}  // namespace zelkor
