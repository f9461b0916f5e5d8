#pragma once

#include "startup/RunTypes.h"
#include "ui/FormHost.h"

namespace zelkor {

/// The run types that open a screen. `host` must outlive the run.
void addScreens(RunTypeJobs& jobs, FormHost& host);

}  // namespace zelkor
