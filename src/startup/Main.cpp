#include "startup/Main.h"

#include <ostream>
#include <utility>

#include "base/RuntimeError.h"
#include "startup/Arguments.h"
#include "startup/Logs.h"
#include "store/accountset/BooksRevision.h"
#include "store/accountset/ReadingDatabase.h"

namespace zelkor {
namespace {

constexpr int kRefusedStatus = 2;

bool hasOwnBranch(std::int16_t runType) {
  return runType >= 0 && runType <= 25 && (runType < 5 || runType > 7);
}

void startIgnoringFailure(RunContext& context, const RunTypeRow& row, const RunTypeJobs& jobs) {
  try {
    startRunType(context, row, jobs);
  } catch (const RuntimeError&) {
    // the statement after the showing is simply the next one
  }
}

void refuseSecondCopy(RunContext& context, const std::function<bool()>& becomeOnlyInstance) {
  if (becomeOnlyInstance()) return;
  context.dialogs.report(
      {"程序已打开，如要再次打开，请关闭已打开的程序！", Buttons::Ok, Icon::Exclamation, "凭证"});
  throw EndProgram{kRefusedStatus};
}

using OpenBooks = std::function<Database(const std::string& file)>;

void prepare(RunContext& context, const std::string& arguments, const OpenBooks& open) {
  TraceLine("命令行参数:" + arguments);
  ReadCommandArgs(context, arguments);
  context.gstrDeprStates = {"", "正常计提", "总提折旧", "总不提折旧"};
  context.dbZKData = open(context.gstrZtFile);
  context.dbZKSystem = open(context.gstrZkSysFile);
  ParseArgs(context, arguments);
}

}  // namespace

void RunDefaultType(RunContext& context, std::int32_t runType, const RunTypeJobs& jobs) {
  const RunTypeRow* row = findRunType(runType);
  if (runType == 5 || runType == 6) startIgnoringFailure(context, *row, jobs);
  if (runType == 7) startRunType(context, *row, jobs);
}

void prepareRun(RunContext& context, const std::string& arguments) {
  prepare(context, arguments, [&](const std::string& file) { return context.engine.OpenDatabase(file); });
}

void prepareReading(RunContext& context, const std::string& arguments, std::ostream& notices) {
  bool isTold = false;
  prepare(context, arguments, [&](const std::string& file) {
    std::string advice;
    Database books = openDatabaseForReading(file, &advice);
    if (!advice.empty() && !std::exchange(isTold, true)) notices << renewalNotice(advice);
    return books;
  });
}

void Main(RunContext& context, const std::string& arguments, const RunTypeJobs& jobs,
          const std::function<bool()>& becomeOnlyInstance) {
  refuseSecondCopy(context, becomeOnlyInstance);
  prepareRun(context, arguments);
  if (hasOwnBranch(context.giRunType)) {
    startRunType(context, *findRunType(context.giRunType), jobs);
  } else {
    RunDefaultType(context, context.gOpArgs.RunType(), jobs);
  }
}

void startExtraScreen(RunContext& context, const std::string& name, const std::string& arguments,
                      const RunTypeJobs& jobs, const std::function<bool()>& becomeOnlyInstance) {
  const ExtraScreenRow* screen = findExtraScreen(name);
  const Job* job = screen == nullptr ? nullptr : jobs.find(screen->job);
  if (job == nullptr) throw RuntimeError(ErrorNumber::InvalidProcedureCall, "没有名为“" + name + "”的界面");
  refuseSecondCopy(context, becomeOnlyInstance);
  prepareRun(context, arguments);
  (*job)(context, {});
}

}  // namespace zelkor
