#include "startup/OnlyJob.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <thread>

#include "base/EndSignals.h"
#include "base/RuntimeError.h"
#include "store/engine/JobLock.h"

namespace zelkor {
namespace {

constexpr int kRefusedStatus = 2;
constexpr std::chrono::milliseconds kBetweenAttempts{50};

std::string_view nameOf(OnlyJob job) {
  switch (job) {
    case OnlyJob::MonthlyRun:
      return "“计提折旧”";
    case OnlyJob::Closing:
      return "“月末结账”";
    case OnlyJob::Reinitialisation:
      return "“重新初始化账套”";
    case OnlyJob::CardImport:
      return "“导入卡片”";
    case OnlyJob::SheetImport:
      return "“导入变动单”";
    case OnlyJob::Disposals:
      return "“成批减少资产”";
    case OnlyJob::WorkloadImport:
      return "“导入工作量”";
    case OnlyJob::Restore:
      return "“从备份恢复”";
  }
  return "另一项作业";  // of a newer program
}

/// Imports wait as any writer does. A second run or closing is one too many, also after the first.
std::chrono::milliseconds patienceOf(OnlyJob job) {
  constexpr std::array kImports = {OnlyJob::CardImport, OnlyJob::SheetImport, OnlyJob::Disposals,
                                   OnlyJob::WorkloadImport};
  const bool isImport = std::ranges::find(kImports, job) != kImports.end();
  return std::chrono::milliseconds(isImport ? 10'000 : 0);
}

std::unique_ptr<JobLock> lockFor(RunContext& run, OnlyJob job) {
  // Others wait by the time that it is, whatever day the run works for.
  const JobNote note{.kind = static_cast<char>(job), .since = SystemClock().now(), .user = run.gstrUser};
  const auto end = std::chrono::steady_clock::now() + patienceOf(job);
  while (true) {
    JobLockAttempt attempt = run.dbZKData.lockForJob(note);
    if (attempt.lock) return std::move(attempt.lock);
    if (std::chrono::steady_clock::now() >= end) {
      run.dialogs.report({sentenceAboutJob(attempt.holder), Buttons::Ok, Icon::Exclamation, "固定资产"});
      throw EndProgram{kRefusedStatus};
    }
    goOnUnlessSignalled();
    std::this_thread::sleep_for(kBetweenAttempts);
  }
}

/// What a job had gathered when it failed is written while it still holds the lock. The failure of the job is
/// the one that is reported.
void flushAfterFailure(DbEngine& engine) {
  try {
    engine.flush();
  } catch (const RuntimeError&) {  // the connection may be what failed
  }
}

}  // namespace

std::string sentenceAboutJob(const std::optional<JobNote>& holder) {
  std::string who;
  if (holder) {
    if (!holder->user.empty()) who += "操作员 " + holder->user + "，";
    if (!holder->machine.empty()) who += "机器 " + holder->machine + "，";
    who = "（" + who + holder->since.toIso() + " 开始）";
  }
  const std::string_view job = holder ? nameOf(static_cast<OnlyJob>(holder->kind)) : "另一项作业";
  return "本账套正在执行" + std::string(job) + who + "，请等它结束后再试。";
}

void asOnlyJob(RunContext& run, OnlyJob job, const std::function<void()>& work) {
  run.engine.flush();  // others must not wait for us while we wait for them
  const auto lock = lockFor(run, job);
  try {
    work();
  } catch (...) {
    flushAfterFailure(run.engine);
    throw;
  }
  run.engine.flush();
}

}  // namespace zelkor
