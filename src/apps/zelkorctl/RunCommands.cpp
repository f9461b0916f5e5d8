#include <iostream>

#include "apps/BatchJobs.h"
#include "apps/zelkorctl/CommandRun.h"
#include "apps/zelkorctl/Commands.h"
#include "base/RuntimeError.h"
#include "cards/CardImport.h"
#include "startup/Main.h"
#include "startup/ProgramEnd.h"
#include "startup/SingleInstance.h"

namespace zelkor {

int importCommand(const ImportOptions& options, std::ostream& output, std::ostream& problems) {
  const std::string csv = contentOf(options.file);
  const auto clock = clockOf(options.today);
  DbEngine engine;
  TerminalDialogs dialogs(std::cin, output);
  RunContext context(engine, dialogs, *clock);
  prepareRun(context, options.arguments);
  const ImportResult result = importCards(context, csv, options.newType, problems);
  engine.flush();
  problems.flush();
  output << "共 " << result.stored + result.refused << " 行：已保存 " << result.stored << " 行，拒绝 "
         << result.refused << " 行\n";
  return result.refused == 0 ? 0 : 1;
}

int runCommand(const RunOptions& options, std::ostream& output, std::istream& input) {
  const auto clock = clockOf(options.today);
  DbEngine engine;
  TerminalDialogs dialogs(input, output, options.dialogs);
  RunContext context(engine, dialogs, *clock);
  context.programFolder = programFolder();
  writeOutBeforeShowing(context);
  RunTypeJobs jobs;
  addBatchJobs(jobs);
  addMonthEnd(jobs, output);
  SingleInstance instance;
  const auto status = runToEnd(
      context, [&] { Main(context, options.arguments, jobs, [&instance] { return instance.acquire(); }); });
  return status.value_or(0);
}

}  // namespace zelkor
