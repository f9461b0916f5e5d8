#pragma once

#include <functional>
#include <iosfwd>
#include <string>

#include "startup/RunContext.h"
#include "startup/RunTypes.h"

namespace zelkor {

/// The entry routine: refuses a second copy, reads the argument string, opens the two data files and starts
/// the one job that the run type names. Returns when a batch job is done or a modeless screen is shown.
///
/// `becomeOnlyInstance` answers false when another copy runs; the program then ends with status 2. Nothing
/// here catches errors.
void Main(RunContext& context, const std::string& arguments, const RunTypeJobs& jobs,
          const std::function<bool()>& becomeOnlyInstance);

/// The same for a screen that no run type starts. Error 5 when there is none of that name.
void startExtraScreen(RunContext& context, const std::string& name, const std::string& arguments,
                      const RunTypeJobs& jobs, const std::function<bool()>& becomeOnlyInstance);

/// The part of Main that makes the context ready: globals, captions, both data files, ClsOpArgs.
void prepareRun(RunContext& context, const std::string& arguments);

/// The same for a job that only reads: the data files may be read-only. To `notices` goes, once, that the
/// books are older than the program.
void prepareReading(RunContext& context, const std::string& arguments, std::ostream& notices);

/// Starts run types 5, 6 and 7 and does nothing for any other. A failure while FrmAddCards is shown is
/// ignored.
void RunDefaultType(RunContext& context, std::int32_t runType, const RunTypeJobs& jobs);

}  // namespace zelkor
