#pragma once

#include "startup/RunTypes.h"

namespace zelkor {

/// The run types that need no screen: monthly run, reconciliation, re-initialisation, department mirror. The
/// monthly run shows its results through the jobs "frmZJQD modal" and "FrmZJFPB modal" where `jobs`, which
/// must outlive the run, holds them.
void addBatchJobs(RunTypeJobs& jobs);

/// Folder of the running program, without a separator at its end.
std::string programFolder();

}  // namespace zelkor
