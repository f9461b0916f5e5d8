#pragma once

#include <functional>
#include <optional>
#include <string>

#include "closing/BackInfo.h"
#include "startup/RunContext.h"

namespace zelkor {

/// What month-end shows besides its messages.
struct MonthEndScreens {
  ShowPercent backup;  // called for the first time before the backup begins
  std::function<void(const std::optional<std::string>& failure)> backupEnded;  // as BackInfo gives it
  // Before all else, while nobody else can begin to close; when it raises an error nothing has been done.
  std::function<void()> before = {};
};

/// Closes the open month: backs the account set up, reports the reconciliation, carries the ledgers and
/// totals into the next month, puts options back and asks the person to log in again. Goes through whatever
/// state the month is in. No transaction: what was done before a failure stays.
///
/// Throws EndProgram when the month is closed; returns when a step failed, which only the error log is told.
void closeMonth(RunContext& run, const MonthEndScreens& screens);

}  // namespace zelkor
