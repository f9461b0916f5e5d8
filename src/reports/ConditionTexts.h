#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include "reports/ReportCatalogue.h"
#include "reports/ReportConditions.h"
#include "startup/RunContext.h"

namespace zelkor {

/// A key that the report does not have, or a value that its list or archive does not hold; the text says
/// which there are.
class ConditionRefused : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Sets the conditions of "key=value" texts as a person would in the dialog. Raises ConditionRefused.
ReportConditions readConditions(RunContext& run, const ReportKind& kind,
                                const std::vector<std::string>& assignments);

/// The texts by which readConditions sets what these conditions say of the report.
std::vector<std::string> conditionTexts(const ReportKind& kind, const ReportConditions& conditions);

/// The conditions of one of all reports of a month: every period is that of the run's date unless "period"
/// tells another; a condition that other reports have is passed over.
ReportConditions readMonthConditions(RunContext& run, const ReportKind& kind,
                                     const std::vector<std::string>& assignments);

}  // namespace zelkor
