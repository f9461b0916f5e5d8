#pragma once

#include "startup/RunContext.h"

namespace zelkor {

/// Carries the depreciation ledgers of every card version that no change sheet made into the columns of the
/// month after the open one; December goes into column 13. A ledger row's opening total comes from the
/// ledgers by department.
///
/// Error 3075 or 3144 where a figure to be carried is Null; the cards before it stay carried.
void carryLedgersForward(RunContext& run);

/// Adds the next period's rows of `fa_Total`, which bear period 6 whatever month is closed.
void rollTotalsForward(RunContext& run);

}  // namespace zelkor
