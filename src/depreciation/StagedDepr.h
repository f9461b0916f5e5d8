#pragma once

#include <string>

#include "startup/RunContext.h"

namespace zelkor {

/// Replaces the month's staged depreciation entries in `fa_ZWVouchers` by those of the allocation rows: a
/// debit row per department and subject whose amount is not 0, and one credit row of the total, which is
/// written in every case. Rows that a voucher has taken already are replaced like the others.
void stageDepr(RunContext& run);

/// What each of these entries says of a month.
std::string stagedDeprDigest(int month);

}  // namespace zelkor
