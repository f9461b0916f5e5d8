#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "faults/FaultFixture.h"

// What is left when a job is killed, when the disk is full, and when two processes write at once.
namespace zelkor::test {
namespace {

// Beside a server the same jobs are cut off from it as well.
const int killsPerJob = onServer() ? 1 : 6;

class FaultTest : public FaultFixture {
 protected:
  FaultTest() : FaultFixture(onServer() ? 300 : 1500) {}

  // Kills the job at random moments of its life; each time the file is whole and a new run ends as ever.
  void survivesKills(const std::vector<std::string>& job) {
    microseconds life{};
    const std::vector<std::string> expected = undisturbed(job, life);
    RandomMoments moments(life, 10);
    SCOPED_TRACE(moments.seed());
    for (int i = 0; i < killsPerJob; ++i) {
      set.restore();
      Program(job).killAfter(moments.next());
      ASSERT_TRUE(set.isIntact());
      // A kill can come after the work and before the end of the process.
      if (content() != expected) {
        ASSERT_EQ(runProgram(job), 0);
      }
      ASSERT_EQ(differenceOf(content(), expected), "") << "after kill " << i;
    }
  }
};

TEST_F(FaultTest, AnImportCanBeKilledAndRunAgain) {
  survivesKills(import());
}

TEST_F(FaultTest, AMonthlyRunCanBeKilledAndRunAgain) {
  ASSERT_EQ(runProgram(import()), 0);
  survivesKills(run("8"));
}

/// How many rows there are of each backup, as "table: rows".
std::vector<std::string> backupSizes(const std::vector<std::string>& lines) {
  std::map<std::string, int> sizes;
  for (const std::string& line : lines) {
    if (line.starts_with("ZKFA_BAK")) ++sizes[line.substr(0, line.find(':'))];
  }
  std::vector<std::string> texts;
  for (const auto& [table, size] : sizes) texts.push_back(table + ": " + std::to_string(size));
  return texts;
}

TEST_F(FaultTest, AMonthCanBeClosedAgainAfterAKill) {
  ASSERT_EQ(runProgram(import()), 0);
  ASSERT_EQ(runProgram(run("8")), 0);
  for (const char* department : {"301", "402"}) {
    const std::string total =
        std::string("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblValue) values ('") + department +
        "','022',1,100)";
    ASSERT_EQ(runProgram({"sql", set.dataFile(), total}), 0);
  }
  microseconds life{};
  const std::vector<std::string> closed = undisturbed(run("20"), life);
  RandomMoments moments(life, 20);
  SCOPED_TRACE(moments.seed());
  for (int i = 0; i < killsPerJob; ++i) {
    set.restore();
    Program(run("20")).killAfter(moments.next());
    ASSERT_TRUE(set.isIntact());
    // A kill can come after the work and before the end of the process.
    if (withoutBackups(content()) == withoutBackups(closed)) continue;
    ASSERT_EQ(runProgram(run("20")), 0);
    const std::vector<std::string> again = content();
    ASSERT_EQ(differenceOf(withoutBackups(again), withoutBackups(closed)), "") << "after kill " << i;
    ASSERT_EQ(differenceOf(backupSizes(again), backupSizes(closed)), "") << "after kill " << i;
  }
}

TEST_F(FaultTest, AReinitialisationCanBeKilledAndRunAgain) {
  ASSERT_EQ(runProgram(import()), 0);
  survivesKills(run("23"));
}

TEST_F(FaultTest, AFullDiskEndsTheJobAndLeavesTheFileIntact) {
  if (writesWithoutItsFile()) GTEST_SKIP() << "the disk is the server's";
  ASSERT_EQ(runProgram(import()), 0);
  set.keep();
  const auto size = std::filesystem::file_size(set.dataFile());
  Program full(run("8"), size / 8);
  EXPECT_EQ(full.wait(), 1);
  EXPECT_TRUE(set.isIntact());
  ASSERT_EQ(runProgram(run("8")), 0);
  const std::vector<std::string> after = content();
  set.restore();
  ASSERT_EQ(runProgram(run("8")), 0);
  EXPECT_EQ(differenceOf(content(), after), "");
}

TEST_F(FaultTest, TwoProcessesLoseNothing) {
  Program importing(import());
  constexpr std::size_t memos = 40;
  for (std::size_t i = 0; i < memos; ++i) {
    const std::string memo = "memo " + std::to_string(i);
    ASSERT_EQ(runProgram({"sql", set.dataFile(), "insert into Fa_log (mMemo) values ('" + memo + "')"}), 0);
  }
  EXPECT_EQ(importing.wait(), 0);
  EXPECT_EQ(set.rows("Fa_log").size(), memos);
  EXPECT_EQ(set.rows("fa_Cards").size(), static_cast<std::size_t>(cards));
}

}  // namespace
}  // namespace zelkor::test
