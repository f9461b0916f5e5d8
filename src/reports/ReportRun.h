#pragma once

#include <optional>
#include <string>

#include "base/Dialogs.h"
#include "reports/ReportCatalogue.h"
#include "reports/ReportConditions.h"
#include "reports/ReportView.h"
#include "startup/RunContext.h"

namespace zelkor {

/// Writes the account set's unit and the year's periods into the view. Without a row for the account set the
/// view stays as it is. Periods that are there already stay there too.
void fillViewHeader(RunContext& run, const ReportConditions& conditions, ReportView& view);

/// Whether the system file has the account set's row.
bool isAccountKnown(RunContext& run);

/// The memo that the operation log gets before the report is computed; none for some kinds.
std::optional<std::string> reportMemo(const ReportKind& kind, const ReportConditions& conditions);

enum class ReportOutcome { Computed, NothingToShow };

/// What confirming the conditions of a report does, up to the showing of its view: header, memo, computation,
/// or the box that one kind shows instead. Errors are raised.
ReportOutcome runReport(RunContext& run, const ReportKind& kind, const ReportConditions& conditions,
                        ReportView& view);

}  // namespace zelkor
