#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "apps/zelkorctl/CallTable.h"
#include "apps/zelkorctl/CommandRun.h"

// Backups of account sets.
namespace zelkor {

/// The calls about them: backup, backups, restore.
std::vector<Call> backupCalls();

/// Backs the account set of the run up into the folder that the job was given, and prints where; without one
/// nothing happens. An error when that fails: the job is not to begin then.
void backUpBefore(const JobRun& job, RunContext& run, const std::string& label, std::ostream& output);

/// Raises WrongCall for a backup before a run type that has none.
void requireBackupFits(const JobRun& job);

}  // namespace zelkor
