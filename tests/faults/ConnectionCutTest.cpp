#include <signal.h>

#include <algorithm>
#include <thread>

#include "faults/FaultFixture.h"
#include "faults/ServerCuts.h"
#include "faults/Workstation.h"

// What a server that goes away in the middle of the work has taken: a session that is ended, a server that is
// restarted, one that crashes.
namespace zelkor::test {
namespace {

class ConnectionCutTest : public FaultFixture {
 protected:
  ConnectionCutTest() : FaultFixture(300) {}
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
  }
};

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
    Lines lines;
    EXPECT_EQ(station.finish(lines), 1);
    ASSERT_FALSE(lines.empty());
    EXPECT_TRUE(lines.back().starts_with(std::string("box: ") + kLostConnection)) << lines.back();
    for (const std::string& line : lines) acknowledged.note(line);

    const Lines kept = set.rows("Fa_log");
    for (std::size_t i = 0; i < kept.size(); ++i)
      ASSERT_NE(kept[i].find(" " + std::to_string(i + 1) + " |"), std::string::npos) << kept[i];
    EXPECT_GE(kept.size(),
              static_cast<std::size_t>(cut == Cut::Crash ? acknowledged.forced : acknowledged.taken));
    done({"sql", set.dataFile(), "delete from Fa_log"});
  }
}

TEST_F(ConnectionCutTest, AServerThatIsDownIsToldAtTheStart) {
  ASSERT_TRUE(controlTestServer("stop -m fast"));
  for (const auto& job : {run("8"), import()}) {
    const ProgramResult result = ctl(job);
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find(kNoConnection), std::string::npos) << result.errors;
  }
  ASSERT_TRUE(controlTestServer("start"));
  done(import());
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
      std::stoi(set.ask(std::string("SELECT pid") + kOtherSessions + " AND query ILIKE '%fa_log%'"));
  ASSERT_EQ(::kill(backend, SIGSTOP), 0);
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  ASSERT_EQ(::kill(backend, SIGCONT), 0);
  Lines lines;
  EXPECT_EQ(station.finish(lines), 0);
  EXPECT_EQ(lines, Lines{"done"});
  EXPECT_EQ(set.rows("Fa_log").size(), 2000U);
}

}  // namespace
}  // namespace zelkor::test
