#pragma once

#include "startup/RunContext.h"

namespace zelkor {

/// Rebuilds fa_departments, the module's mirror of the suite's department archive, below its root row. Not
/// one transaction: what fails leaves the mirror as far as it got, and the error reaches the caller.
void SyncDepartments(RunContext& context);

}  // namespace zelkor
