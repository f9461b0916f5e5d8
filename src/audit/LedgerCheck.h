#pragma once

#include "audit/BookCheck.h"
#include "audit/CheckPeriod.h"
#include "audit/ReadBooks.h"

namespace zelkor {

/// Reconciles the two subjects of the options, with everything below them, with the register (L01 to L03):
/// what each month of the year has added to both, with the cards and vouchers that make up a difference, and
/// the opening balances where the ledger has them.
void checkLedger(ReadBooks& books, const CheckPeriod& period, CheckResult& result);

}  // namespace zelkor
