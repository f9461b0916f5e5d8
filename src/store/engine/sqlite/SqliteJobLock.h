#pragma once

#include <string>

#include "store/engine/JobLock.h"

namespace zelkor {

/// Takes the job lock of a data file: a locked file beside it, which says who has it and goes with the lock.
/// (A lock on the data file itself would be lost, and lose those of the engine, with the first descriptor of
/// it that the process closes.) Where no file can be made, the error says why: disk full, read-only, no
/// right.
JobLockAttempt lockFileForJob(const std::string& dataFile, const JobNote& note);
/// What the present holder of that lock has told.
std::optional<JobNote> holderOfFileLock(const std::string& dataFile);

}  // namespace zelkor
