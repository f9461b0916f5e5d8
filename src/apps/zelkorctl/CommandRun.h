#pragma once

#include <functional>
#include <iosfwd>
#include <optional>
#include <string>

#include "base/DateTime.h"
#include "base/TerminalDialogs.h"
#include "startup/RunContext.h"

// What the jobs of zelkorctl have in common.
namespace zelkor {

/// The run that a job works in.
struct JobRun {
  std::string arguments;          // the argument string
  std::optional<DateTime> today;  // the time of the clock; nothing: the system's
  TerminalDialogs::Options dialogs = {};
  bool progress = false;    // is shown where standard error is no terminal, too
  std::string backup = {};  // the folder that the set is backed up into before the job; empty: none
};

/// Does the work in a run with dialogs on `output` and standard input, and returns its status. What it has
/// gathered is written out.
int inRun(const JobRun& job, std::ostream& output, const std::function<int(RunContext&)>& work);

/// The same with the argument string read and both data files open.
int inPreparedRun(const JobRun& job, std::ostream& output, const std::function<int(RunContext&)>& work);

/// The same for a job that only reads; the files may be read-only. A month before that in which the books
/// begin is refused with a sentence and status 2.
int inReadingRun(const JobRun& job, std::ostream& output, std::ostream& problems,
                 const std::function<int(RunContext&)>& work);

}  // namespace zelkor
