#pragma once

#include "apps/zelkorctl/Asked.h"
#include "apps/zelkorctl/CommandRun.h"

namespace zelkor {

/// The files of an account set, and its number where an argument string names it.
struct SetFiles {
  std::string data;
  std::string system;
  std::string account;
};

/// Those that are asked for, whether they are there or not. Error 5 for an argument string without them.
SetFiles setFilesOf(const Asked& asked);

/// The run of a job that is asked for: by its argument string, or by an account set with the run type. Error
/// 5 when the account set does not say what an argument string needs, or the string cannot carry it.
JobRun jobOf(const Asked& asked, int runType);

}  // namespace zelkor
