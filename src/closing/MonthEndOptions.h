#pragma once

#include "startup/RunContext.h"

namespace zelkor {

/// Moves the writable date to the month after the open one and puts a fixed list of options back to their
/// standard values, whatever a person had set. A row that is missing stays missing.
void resetOptionsAtMonthEnd(RunContext& run);

}  // namespace zelkor
