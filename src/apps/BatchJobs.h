#pragma once

#include <functional>
#include <iosfwd>

#include "startup/RunTypes.h"

namespace zelkor {

/// What is done before a job changes anything, while it has the account set's lock.
using BeforeJob = std::function<void(RunContext&)>;

/// The run types that need no screen: monthly run, reconciliation, re-initialisation, department mirror. The
/// monthly run shows its results through the jobs "frmZJQD modal" and "FrmZJFPB modal" where `jobs`, which
/// must outlive the run, holds them. `before` goes before the re-initialisation.
void addBatchJobs(RunTypeJobs& jobs, const BeforeJob& before = {});

/// Month-end without its screen: the progress of the backup goes to `output` line by line. A closing that
/// does not come to its end gives status 1.
void addMonthEnd(RunTypeJobs& jobs, std::ostream& output, const BeforeJob& before = {});

/// Folder of the running program, without a separator at its end.
std::string programFolder();

}  // namespace zelkor
