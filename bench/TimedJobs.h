#pragma once

#include "LargeAccountSet.h"

namespace zelkor::bench {

/// Seconds of the monthly run on a fresh copy of the account set, until its rows are forced to disk.
double secondsOfMonthlyRun(const LargeAccountSet& original);

/// Seconds of the closing of the month, likewise. Raises std::runtime_error when the month does not close.
double secondsOfMonthEnd(const LargeAccountSet& original);

}  // namespace zelkor::bench
