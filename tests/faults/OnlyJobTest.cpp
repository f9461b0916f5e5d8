#include <gtest/gtest.h>
#include <sys/prctl.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <list>
#include <set>
#include <thread>

#include "base/LockedFile.h"
#include "faults/Desk.h"
#include "faults/WorkstationsFixture.h"
#include "startup/Main.h"
#include "startup/OnlyJob.h"
#include "store/engine/JobLock.h"
#include "support/Paths.h"

// The jobs of which an account set has one at a time.
namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

class OnlyJobTest : public WorkstationsFixture {
 protected:
  OnlyJobTest() : WorkstationsFixture(3) {}

  /// Stands for a job of another program that works as long as this lives.
  std::unique_ptr<JobLock> holdFor(OnlyJob job, const std::string& user) {
    return context.dbZKData
        .lockForJob({.kind = static_cast<char>(job), .since = day("2020-1-31 9:05:07"), .user = user})
        .lock;
  }
};

TEST_F(OnlyJobTest, TheSecondIsToldAndNothingIsWritten) {
  done(import());
  const Lines before = set.content({});
  const std::string longName = "会计师事务所张三";
  const struct {
    OnlyJob held;
    std::string user;
    const char* refused;
    std::string told;
  } cases[] = {
      {OnlyJob::Closing, "李四", "8", "“月末结账”（操作员 李四，"},
      {OnlyJob::MonthlyRun, "", "20", "“计提折旧”（"},
      {OnlyJob::CardImport, longName, "23",
       "“导入卡片”（操作员 " + (onServer() ? longName.substr(0, 18) : longName) + "，"},
  };
  for (const auto& c : cases) {
    const auto lock = holdFor(c.held, c.user);
    ASSERT_NE(lock, nullptr);
    const ProgramResult second = ctl(run(c.refused));
    EXPECT_EQ(second.status, 2) << second.errors;
    const std::string sentence = "本账套正在执行" + c.told + "2020-01-31 09:05:07 开始），请等它结束后再试。";
    EXPECT_NE(second.errors.find(sentence), std::string::npos) << second.errors;
    EXPECT_EQ(second.output.find(sentence), std::string::npos) << "told once";
    EXPECT_EQ(differenceOf(set.content({}), before), "");
  }
  done(run("8"));
}

/// "2020-01-31 09:05:07" of "…，2020-01-31 09:05:07 开始）…".
std::string sinceOf(const std::string& told) {
  constexpr std::size_t kLength = 19;
  const std::size_t end = told.find(" 开始）");
  return end == std::string::npos || end < kLength ? told : told.substr(end - kLength, kLength);
}

// Whatever day the job works for, it is told since when others wait.
TEST_F(OnlyJobTest, TellsTheTimeThatItIs) {
  prepareRun(context, set.argument("8"));
  const std::string before = SystemClock().now().toIso();
  std::string told;
  asOnlyJob(context, OnlyJob::MonthlyRun, [&] { told = ctl(run("20")).errors; });
  EXPECT_LE(before, sinceOf(told)) << told;
  EXPECT_LE(sinceOf(told), SystemClock().now().toIso()) << told;
}

// What a killed job has left beside the data file is not told of the one that holds it now.
TEST_F(OnlyJobTest, DoesNotTellOfTheJobBefore) {
  if (onServer()) GTEST_SKIP() << "a server knows its sessions";
  const std::string file = set.dataFile() + "-job";
  writeFile(file, "m 20200131090507 李四");
  const auto holder = LockedFile::take(file, 0600, LockedFile::Afterwards::Goes);
  const ProgramResult second = ctl(run("20"));
  EXPECT_EQ(second.status, 2);
  EXPECT_NE(second.errors.find("本账套正在执行另一项作业，请等它结束后再试。"), std::string::npos)
      << second.errors;
}

std::set<pid_t> childrenOf(pid_t process) {
  const std::string name = std::to_string(process);
  std::ifstream list("/proc/" + name + "/task/" + name + "/children");
  return {std::istream_iterator<pid_t>(list), {}};
}

template <typename Condition>
bool soon(Condition condition) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(5);
  while (!condition()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::yield();
  }
  return true;
}

// A signal reaches all calls at once, those too that are only being begun. Told one by one, all others would
// wait for one that does not end, and each for the lock in turn.
TEST_F(OnlyJobTest, ManyCallsEndTogether) {
  constexpr int calls = 16;
  ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1), 0);  // an orphan would come to this process
  const auto lock = holdFor(OnlyJob::MonthlyRun, "");
  std::string list;
  for (int i = 0; i < calls; ++i) list += fs::path(set.dataFile()).parent_path().string() + "\n";
  writeFile(home / "list", list);
  ProgramRun each(zelkorctlProgram(),
                  {"each", home / "list", "--jobs", "16", "--", "cards", "import", home / "cards.csv"},
                  home.path());
  ASSERT_TRUE(soon([&] { return !childrenOf(each.id()).empty(); }));
  const pid_t stopped = *childrenOf(each.id()).begin();
  ::kill(stopped, SIGSTOP);
  each.signal(SIGTERM);
  EXPECT_TRUE(soon([&] { return childrenOf(each.id()) == std::set{stopped}; }));
  ::kill(stopped, SIGCONT);
  EXPECT_EQ(each.finish().status, 143);
  EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "an orphan";
}

// An import waits for a job; single saves, and whoever reads, do not.
TEST_F(OnlyJobTest, AnImportWaitsAndSingleSavesGoOn) {
  auto lock = holdFor(OnlyJob::MonthlyRun, "李四");
  ProgramRun importing(zelkorctlProgram(), import(), home.path());
  const Workstation::Tell ignore = [](const std::string&) {};
  prepareRun(context, set.argument("5"));
  Desk desk(context, 1, ignore);
  EXPECT_EQ(desk.enterCard(NewCardType::Original), "00001");
  desk.readLists();
  engine.flush();
  lock.reset();
  EXPECT_EQ(importing.finish().status, 0);
  EXPECT_EQ(rows("select sCardNum from fa_Cards order by sCardNum"),
            (Lines{"00001", "00002", "00003", "00004"}));
}

TEST_F(OnlyJobTest, ImportsAtOnceGiveEachCardANumberOfItsOwn) {
  constexpr int imports = 8;
  std::list<ProgramRun> importing;
  for (int i = 0; i < imports; ++i) importing.emplace_back(zelkorctlProgram(), import(), home.path());
  for (ProgramRun& one : importing) EXPECT_EQ(one.finish().status, 0);
  const Lines numbers = rows("select sCardNum from fa_Cards");
  EXPECT_EQ(numbers.size(), static_cast<std::size_t>(imports * cards));
  EXPECT_EQ(std::set<std::string>(numbers.begin(), numbers.end()).size(), numbers.size());
}

}  // namespace
}  // namespace zelkor::test
