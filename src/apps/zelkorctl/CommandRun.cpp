#include "apps/zelkorctl/CommandRun.h"

#include <unistd.h>

#include <iostream>

#include "apps/BatchJobs.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "startup/Main.h"
#include "startup/ProgramEnd.h"
#include "store/settings/OpenMonth.h"

namespace zelkor {
namespace {

constexpr int kWrongUsage = 2;

/// Jobs work for an account set that the system file does not have, but its number may be a slip.
void tellUnknownAccount(RunContext& context) {
  if (!context.dbZKSystem.isOpen()) return;
  try {
    Recordset accounts = context.dbZKSystem.OpenRecordset("select cAcc_id from za_account");
    for (; !accounts.Eof(); accounts.MoveNext()) {
      if (equalsIgnoringCase(accounts.TextOrEmpty("cAcc_id"), context.gstrAccountId)) return;
    }
    std::cerr << "系统文件“" << context.gstrZkSysFile << "”中没有账套“" << context.gstrAccountId << "”"
              << std::endl;
  } catch (const RuntimeError&) {
    // the job has had its own say about such a file
  }
}

/// What tables or rows lead to that somebody has changed by hand.
int adviseCheck(const std::function<int()>& work) {
  using enum ErrorNumber;
  try {
    return work();
  } catch (const RuntimeError& error) {
    for (const ErrorNumber one :
         {TypeMismatch, InvalidUseOfNull, Overflow, TooFewParameters, CannotOpenTableOrQuery})
      if (error.is(one))
        throw RuntimeError(one,
                           std::string(error.what()) + "（账套的表或数据有错，请用 zelkorctl check 查明）");
    throw;
  }
}

}  // namespace

int inRun(const JobRun& job, std::ostream& output, const std::function<int(RunContext&)>& work) {
  const SystemClock system;
  const FixedClock fixed(job.today.value_or(DateTime{}));
  DbEngine engine;
  TerminalDialogs::Options options = job.dialogs;
  if (job.progress || ::isatty(STDERR_FILENO) != 0) options.progress = &std::cerr;
  TerminalDialogs dialogs(std::cin, output, options);
  RunContext context(engine, dialogs, job.today ? static_cast<const Clock&>(fixed) : system);
  context.programFolder = programFolder();
  writeOutBeforeShowing(context);
  const int status = work(context);
  engine.flush();
  tellUnknownAccount(context);
  return status;
}

int inPreparedRun(const JobRun& job, std::ostream& output, const std::function<int(RunContext&)>& work) {
  return inRun(job, output, [&](RunContext& context) {
    prepareRun(context, job.arguments);
    return work(context);
  });
}

int inReadingRun(const JobRun& job, std::ostream& output, std::ostream& problems,
                 const std::function<int(RunContext&)>& work) {
  return inRun(job, output, [&](RunContext& context) {
    prepareReading(context, job.arguments, std::cerr);
    if (const std::string reason = whyBeforeBooks(context.dbZKData, context.gdOpDate); !reason.empty()) {
      problems << reason << '\n';
      return kWrongUsage;
    }
    return adviseCheck([&] { return work(context); });
  });
}

}  // namespace zelkor
