#pragma once

#include <functional>
#include <optional>
#include <string>

#include "startup/RunContext.h"
#include "store/engine/JobLock.h"

namespace zelkor {

/// The jobs of which an account set has one at a time.
enum class OnlyJob : char {
  MonthlyRun = 'm',
  Closing = 'e',
  Reinitialisation = 'r',
  CardImport = 'c',
  SheetImport = 's',
  Disposals = 'd',
  WorkloadImport = 'w',
  Restore = 'b',  // of a backup; whoever does it takes the lock by itself
};

/// One sentence: which job the account set is busy with, whose and since when, as far as it is known.
std::string sentenceAboutJob(const std::optional<JobNote>& holder);

/// Does the work while it holds the job lock of the account set, and writes out what it has gathered before
/// it lets go. Reading and single saves of others go on.
///
/// Where another job holds it, a sentence says which, whose and since when, and the program ends with status
/// 2 and nothing done. Imports wait for it first, as any writer waits for another one.
void asOnlyJob(RunContext& run, OnlyJob job, const std::function<void()>& work);

}  // namespace zelkor
