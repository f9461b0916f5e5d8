#pragma once

#include "apps/zelkorctl/Asked.h"
#include "apps/zelkorctl/CommandRun.h"

namespace zelkor {

/// The run of a job that is asked for: by its argument string, or by an account set with the run type. Error
/// 5 when the account set does not say what an argument string needs, or the string cannot carry it.
JobRun jobOf(const Asked& asked, int runType);

}  // namespace zelkor
