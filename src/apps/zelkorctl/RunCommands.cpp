#include <ostream>

#include "apps/BatchJobs.h"
#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/Commands.h"
#include "startup/Main.h"
#include "startup/ProgramEnd.h"
#include "startup/SingleInstance.h"

namespace zelkor {

int runCommand(const JobRun& job, std::ostream& output) {
  return inRun(job, output, [&](RunContext& context) {
    RunTypeJobs jobs;
    addBatchJobs(jobs);
    addMonthEnd(jobs, output);
    SingleInstance instance;
    const auto main = [&] { Main(context, job.arguments, jobs, [&] { return instance.acquire(); }); };
    return runToEnd(context, main).value_or(0);
  });
}

}  // namespace zelkor
