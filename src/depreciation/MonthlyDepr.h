#pragma once

#include <string>

#include "base/Currency.h"
#include "base/Value.h"

namespace zelkor {

/// What the depreciation of a month is computed from, as the card holds it; any of it may be Null.
struct DeprBasis {
  Value sDeprMethodID;
  Value lLife;        // months
  Value lUsedMonths;  // months
  Value dblValue;     // original value
  Value dblBV;        // residual value
  Value dblBVRate;    // residual rate as a fraction
};

struct MonthlyDepr {
  Currency rate;
  Currency amount;
};

/// Monthly rate and amount by the card's method: straight line for "2", "3" and "6", sum of the years' digits
/// for "5", nothing for any other. The rate is rounded to four decimals first and the amount taken from the
/// rounded rate.
///
/// Errors: 94 where Null enters the computation, 11 where method "5" meets a life that rounds to no year, 6
/// where a figure leaves its range.
MonthlyDepr monthlyDepr(const DeprBasis& basis);

/// The amount as the ledger keeps it: two decimals, a half away from zero.
Currency ledgerAmount(Currency amount);

/// Whether the months used enter the method's formula: otherwise every month comes to the same.
bool countsUsedMonths(const DeprBasis& basis);

}  // namespace zelkor
