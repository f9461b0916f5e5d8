#include <signal.h>

#include <algorithm>
#include <thread>

#include "faults/FaultFixture.h"
#include "faults/ServerCuts.h"
#include "faults/Workstation.h"

// What is left beside a server that goes away in the middle of a job: a session that is ended, a server that
// is restarted, one that crashes.
namespace zelkor::test {
namespace {

constexpr auto soon = std::chrono::seconds(5);
constexpr const char* lostConnection = "实时错误 '57'";
constexpr const char* noConnection = "无法连接数据库服务器";

class ConnectionCutTest : public FaultFixture {
 protected:
  ConnectionCutTest() : FaultFixture(300) {}
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
  }

  /// Cuts the job off at that moment of its life. It tells so, or has ended before.
  void cutJob(const std::vector<std::string>& job, Cut cut, microseconds moment, const char* told) {
    Program program(job);
    std::this_thread::sleep_for(moment);
    const auto begin = steady_clock::now();
    cutOff(cut, set);
    const int status = program.wait();
    EXPECT_LT(steady_clock::now() - begin, soon);
    if (status == 0) return;
    EXPECT_EQ(status, 1);
    const std::string errors = program.errors();
    EXPECT_TRUE(errors.find(told) != std::string::npos || errors.find(noConnection) != std::string::npos)
        << errors;
  }

  void survives(const std::vector<std::string>& job, const std::vector<Cut>& cuts, const char* told) {
    microseconds life{};
    const std::vector<std::string> expected = undisturbed(job, life);
    RandomMoments moments(life, 10);
    SCOPED_TRACE(moments.seed());
    for (const Cut cut : cuts) {
      SCOPED_TRACE(nameOf(cut));
      set.restore();
      cutJob(job, cut, moments.next(), told);
      if (withoutBackups(content()) != withoutBackups(expected)) {
        ASSERT_EQ(runProgram(job), 0);
      }
      ASSERT_EQ(differenceOf(withoutBackups(content()), withoutBackups(expected)), "");
    }
  }
};

TEST_F(ConnectionCutTest, AMonthlyRunKeepsWhatWasDoneAndRunsAgain) {
  ASSERT_EQ(runProgram(import()), 0);
  microseconds life{};
  const std::vector<std::string> expected = undisturbed(run("8"), life);
  const std::vector<std::string> allocated = set.rows("fa_DeprVouchers");
  RandomMoments moments(life, 10);
  SCOPED_TRACE(moments.seed());
  for (const Cut cut : {Cut::Session, Cut::Session, Cut::Restart, Cut::Crash}) {
    SCOPED_TRACE(nameOf(cut));
    set.restore();
    cutJob(run("8"), cut, moments.next(), lostConnection);
    const std::vector<std::string> done = set.rows("fa_DeprVouchers");
    ASSERT_LE(done.size(), allocated.size());
    EXPECT_TRUE(std::equal(done.begin(), done.end(), allocated.begin())) << "not the first cards' rows";
    if (content() != expected) {
      ASSERT_EQ(runProgram(run("8")), 0);
    }
    ASSERT_EQ(differenceOf(content(), expected), "");
  }
}

TEST_F(ConnectionCutTest, AnImportLeavesNothingAndRunsAgain) {
  survives(import(), {Cut::Session, Cut::Crash}, "错误 57");
}

TEST_F(ConnectionCutTest, AMonthCanBeClosedAgain) {
  ASSERT_EQ(runProgram(import()), 0);
  ASSERT_EQ(runProgram(run("8")), 0);
  survives(run("20"), {Cut::Session, Cut::Crash}, "月末结账没有完成");
}

TEST_F(ConnectionCutTest, AReinitialisationCanBeRunAgain) {
  ASSERT_EQ(runProgram(import()), 0);
  survives(run("23"), {Cut::Session, Cut::Restart}, lostConnection);
}

/// Numbers its memos from 1 and tells of each that the server has taken; of every tenth when it is on disk.
void writeMemos(RunContext& context, const Workstation::Tell& tell) {
  for (int i = 1;; ++i) {
    context.dbZKData.Execute("insert into Fa_log (mMemo) values ('" + std::to_string(i) + "')");
    if (i % 10 == 0) context.engine.flush();
    tell((i % 10 == 0 ? "forced " : "taken ") + std::to_string(i));
  }
}

struct Acknowledged {
  int taken = 0;
  int forced = 0;

  void note(const std::string& line) {
    for (int* number : {&taken, &forced}) {
      const std::string word = number == &taken ? "taken " : "forced ";
      if (line.starts_with(word)) *number = std::stoi(line.substr(word.size()));
    }
    taken = std::max(taken, forced);
  }
};

// The statements that the server has taken are there in their order without a gap. A crash may lose the last
// ones, but none before the last flush; any other end loses none.
TEST_F(ConnectionCutTest, WhatTheServerHasTakenStays) {
  for (const Cut cut : {Cut::Session, Cut::Restart, Cut::Crash}) {
    SCOPED_TRACE(nameOf(cut));
    StartSignal start;
    Workstation station(set, "张三", start, writeMemos);
    start.give();
    Acknowledged acknowledged;
    for (std::string line; acknowledged.taken < 137 && station.nextLine(line);) acknowledged.note(line);
    cutOff(cut, set);
    std::vector<std::string> lines;
    EXPECT_EQ(station.finish(lines), 1);
    ASSERT_FALSE(lines.empty());
    EXPECT_TRUE(lines.back().starts_with(std::string("box: ") + lostConnection)) << lines.back();
    for (const std::string& line : lines) acknowledged.note(line);

    const std::vector<std::string> kept = set.rows("Fa_log");
    for (std::size_t i = 0; i < kept.size(); ++i)
      ASSERT_NE(kept[i].find(" " + std::to_string(i + 1) + " |"), std::string::npos) << kept[i];
    EXPECT_GE(kept.size(),
              static_cast<std::size_t>(cut == Cut::Crash ? acknowledged.forced : acknowledged.taken));
    EXPECT_EQ(runProgram({"sql", set.dataFile(), "delete from Fa_log"}), 0);
  }
}

TEST_F(ConnectionCutTest, AServerThatIsDownIsToldAtTheStart) {
  ASSERT_TRUE(controlTestServer("stop -m fast"));
  for (const auto& job : {run("8"), import()}) {
    Program program(job);
    EXPECT_EQ(program.wait(), 1);
    EXPECT_NE(program.errors().find(noConnection), std::string::npos) << program.errors();
  }
  ASSERT_TRUE(controlTestServer("start"));
  EXPECT_EQ(runProgram(import()), 0);
}

TEST_F(ConnectionCutTest, AServerThatHangsIsWaitedFor) {
  StartSignal start;
  Workstation station(set, "张三", start, [](RunContext& context, const Workstation::Tell& tell) {
    for (int i = 0; i < 2000; ++i) {
      context.dbZKData.Execute("insert into Fa_log (mMemo) values ('x')");
      if (i == 0) tell("begun");
    }
    tell("done");
  });
  start.give();
  std::string line;
  ASSERT_TRUE(station.nextLine(line));
  const pid_t backend =
      std::stoi(set.ask(std::string("SELECT pid") + otherSessions + " AND query ILIKE '%fa_log%'"));
  ASSERT_EQ(::kill(backend, SIGSTOP), 0);
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  ASSERT_EQ(::kill(backend, SIGCONT), 0);
  std::vector<std::string> lines;
  EXPECT_EQ(station.finish(lines), 0);
  EXPECT_EQ(lines, std::vector<std::string>{"done"});
  EXPECT_EQ(set.rows("Fa_log").size(), 2000U);
}

}  // namespace
}  // namespace zelkor::test
