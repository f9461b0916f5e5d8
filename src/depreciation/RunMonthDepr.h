#pragma once

#include <functional>

#include "startup/RunContext.h"

namespace zelkor {

/// What the monthly run shows besides its messages; each call returns when the person has closed it.
struct MonthDeprScreens {
  std::function<void()> depreciationList;
  std::function<void()> allocationTable;
};

/// Computes the open month's depreciation of every card that was in service before the month began, replaces
/// the month's staged depreciation entries, clears the option `bNeedDepr`, and shows the results. May be
/// repeated at any time before the month is closed. No transaction: a failure leaves what went before.
///
/// Throws EndProgram when there is no card to compute.
void RunMonthDepr(RunContext& run, const MonthDeprScreens& screens);

}  // namespace zelkor
