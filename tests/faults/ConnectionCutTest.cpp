#include <signal.h>

#include <algorithm>
#include <thread>

#include "faults/FaultFixture.h"
#include "faults/ServerCuts.h"
#include "faults/Workstation.h"
#include "store/engine/StatementGroup.h"

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

/// So many memos, numbered, behind those before them.
void writeMemos(RunContext& context, int written, int memos) {
  StatementGroup group(context.dbZKData);
  for (int i = 1; i <= memos; ++i)
    group.execute("insert into Fa_log (mMemo) values ('" + std::to_string(written + i) + "')");
  group.run();
}

/// Tells of its memos that the server has taken them; every tenth time when they are on disk.
Workstation::Work writingGroupsOf(int memos) {
  return [memos](RunContext& context, const Workstation::Tell& tell) {
    for (int i = 1;; ++i) {
      writeMemos(context, (i - 1) * memos, memos);
      if (i % 10 == 0) context.engine.flush();
      tell((i % 10 == 0 ? "forced " : "taken ") + std::to_string(i * memos));
    }
  };
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

class ConnectionCutInGroupsTest : public ConnectionCutTest, public testing::WithParamInterface<int> {};

// The statements that the server has taken are there in their order without a gap, of a group all. A crash
// may lose the last ones, but none before the last flush; any other end loses none.
TEST_P(ConnectionCutInGroupsTest, WhatTheServerHasTakenStays) {
  const int memos = GetParam();
  for (const Cut cut : {Cut::Session, Cut::Restart, Cut::Crash}) {
    SCOPED_TRACE(nameOf(cut));
    StartSignal start;
    Workstation station(set, "张三", start, writingGroupsOf(memos));
    start.give();
    Acknowledged acknowledged;
    for (std::string line; acknowledged.taken < 37 * memos && station.nextLine(line);)
      acknowledged.note(line);
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
    EXPECT_EQ(kept.size() % static_cast<std::size_t>(memos), 0U);
    done({"sql", set.dataFile(), "delete from Fa_log"});
  }
}

INSTANTIATE_TEST_SUITE_P(Memos, ConnectionCutInGroupsTest, testing::Values(1, 50));

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

TEST_P(ConnectionCutInGroupsTest, AServerThatHangsIsWaitedFor) {
  StartSignal start;
  StartSignal goOn;
  constexpr int kGroups = 10;
  const auto work = [&goOn, memos = GetParam()](RunContext& context, const Workstation::Tell& tell) {
    for (int group = 0; group < kGroups; ++group) {
      writeMemos(context, group * memos, memos);
      if (group > 0) continue;
      tell("begun");
      goOn.await();
    }
    tell("done");
  };
  Workstation station(set, "张三", start, work);
  start.give();
  std::string line;
  ASSERT_TRUE(station.nextLine(line));
  // The last statement of a group sets what its first has set back.
  const pid_t backend = std::stoi(set.ask(std::string("SELECT pid") + kOtherSessions +
                                          " AND (query ILIKE '%fa_log%' OR query ILIKE '%lock_timeout%')" +
                                          " ORDER BY state_change DESC LIMIT 1"));
  ASSERT_EQ(::kill(backend, SIGSTOP), 0);
  goOn.give();
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  ASSERT_EQ(::kill(backend, SIGCONT), 0);
  Lines lines;
  EXPECT_EQ(station.finish(lines), 0);
  EXPECT_EQ(lines, Lines{"done"});
  EXPECT_EQ(set.rows("Fa_log").size(), static_cast<std::size_t>(kGroups * GetParam()));
}

}  // namespace
}  // namespace zelkor::test
