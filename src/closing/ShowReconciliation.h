#pragma once

#include "startup/RunContext.h"

namespace zelkor {

/// Tells the module's totals of the open month beside the ledger's, which are not read and stand as 0.00.
/// Writes nothing and stops nothing.
void ShowReconciliation(RunContext& run);

}  // namespace zelkor
