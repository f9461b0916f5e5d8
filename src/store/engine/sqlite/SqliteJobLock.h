#pragma once

#include <string>

#include "store/engine/JobLock.h"

namespace zelkor {

/// Takes the job lock of a data file: a locked file beside it, which says who has it and goes with the lock.
/// (A lock on the data file itself would be lost, and lose those of the engine, with the first descriptor of
/// it that the process closes.) Error 57 where no file can be made.
JobLockAttempt lockFileForJob(const std::string& dataFile, const JobNote& note);

}  // namespace zelkor
