#include <ostream>

#include "apps/BatchJobs.h"
#include "apps/zelkorctl/BackupCommands.h"
#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/Commands.h"
#include "base/EndSignals.h"
#include "startup/Main.h"
#include "startup/ProgramEnd.h"

namespace zelkor {

int runCommand(const JobRun& job, std::ostream& output) {
  catchEndSignals();
  return inRun(job, output, [&](RunContext& context) {
    RunTypeJobs jobs;
    addBatchJobs(jobs, [&](RunContext& run) { backUpBefore(job, run, "重新初始化前", output); });
    addMonthEnd(jobs, output, [&](RunContext& run) { backUpBefore(job, run, "结账前", output); });
    // One copy at a time is a rule for windows. Here the jobs keep each other out, for each account set by
    // itself.
    const auto main = [&] { Main(context, job.arguments, jobs, [] { return true; }); };
    return runToEnd(context, main).value_or(0);
  });
}

}  // namespace zelkor
