#include <gmock/gmock.h>

#include <filesystem>
#include <thread>

#include "faults/FaultFixture.h"
#include "support/Paths.h"
#include "transfer/backup/BackupFolder.h"

// Backups and what is restored from them when the program is killed or told to end, the disk is full, or two
// work at once.
namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

class BackupFaultTest : public FaultFixture {
 protected:
  BackupFaultTest() : FaultFixture(onServer() ? 300 : 1500) {}

  Lines backup(const std::string& keep = "3") const {
    return {"backup", set.argument("8"), "--to", home / "backups", "--keep", keep};
  }
  Lines restoreOf(const fs::path& folder) const {
    return {"restore", folder, set / "", "--to", home / "kept"};
  }
  fs::path newest() const { return backupsIn(home / "backups").back().folder; }
  Lines system() const { return contentOf(set / "ZkSystem.Mdb", {}); }
  void markSystem(const std::string& text) const {
    done({"sql", set / "ZkSystem.Mdb", "update ZA_Period set iyear=" + text + " where iId=12"});
  }
  microseconds lifeOf(const Lines& call) const {
    const auto begin = steady_clock::now();
    done(call);
    return std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
  }
  /// Every other time it is told to end instead.
  void cut(const Lines& call, microseconds moment, int turn) const {
    ProgramRun program(zelkorctlProgram(), call, home.path());
    if (turn % 2 == 0) {
      program.killAfter(moment);
      return;
    }
    std::this_thread::sleep_for(moment);
    program.signal(SIGTERM);
    const int status = program.finish().status;
    EXPECT_TRUE(status == 0 || status == 143 || status == -1) << status;
  }
  void expectWholeBackups(const fs::path& folder) const {
    if (!fs::exists(folder)) return;
    for (const ListedBackup& one : backupsIn(folder, BackupCheck::Checksums))
      EXPECT_EQ(one.problem, "") << one.folder;
  }
};

TEST_F(BackupFaultTest, ABackupThatIsCutLeavesWholeOnesAndTheSet) {
  done(import());
  const Lines before = content();
  RandomMoments moments(lifeOf(backup()), 20);
  SCOPED_TRACE(moments.seed());
  for (int turn = 0; turn < (onServer() ? 4 : 10); ++turn) {
    cut(backup("1"), moments.next(), turn);
    expectWholeBackups(home / "backups");
    EXPECT_FALSE(backupsIn(home / "backups").empty());
  }
  done(backup("1"));
  Lines left;
  for (const auto& entry : fs::directory_iterator(home / "backups"))
    left.push_back(entry.path().filename().string());
  EXPECT_THAT(left, testing::SizeIs(1)) << "nothing unfinished is left";
  EXPECT_EQ(differenceOf(content(), before), "");
}

TEST_F(BackupFaultTest, ARestoreThatIsCutLeavesOneStateOrTheOther) {
  done(import());
  markSystem("2020");
  done(backup());
  const fs::path folder = newest();
  const Lines old = content();
  const Lines oldSystem = system();
  done(run("8"));
  markSystem("2021");
  const Lines later = content();
  const Lines laterSystem = system();
  set.keep();
  RandomMoments moments(lifeOf(restoreOf(folder)), 20);
  SCOPED_TRACE(moments.seed());
  ASSERT_EQ(differenceOf(content(), old), "");
  ASSERT_NE(oldSystem, laterSystem);
  for (int turn = 0; turn < (onServer() ? 4 : 16); ++turn) {
    set.restore();
    cut(restoreOf(folder), moments.next(), turn);
    const bool isOld = system() == oldSystem;
    EXPECT_EQ(differenceOf(system(), isOld ? oldSystem : laterSystem), "");
    ASSERT_EQ(differenceOf(content(), isOld ? old : later), "") << "both files are of one state";
    ASSERT_TRUE(set.isIntact());
    expectWholeBackups(home / "kept");
    done(restoreOf(folder));
    ASSERT_EQ(differenceOf(content(), old), "");
    EXPECT_EQ(differenceOf(system(), oldSystem), "");
  }
}

TEST_F(BackupFaultTest, AFullDiskLeavesWhatWasThere) {
  if (writesWithoutItsFile()) GTEST_SKIP() << "the disk is the server's";
  done(import());
  done(backup());
  const Lines before = content();
  const auto most = fs::file_size(set.dataFile()) / 2;
  const fs::path folder = newest();
  for (const Lines& call : {backup(), restoreOf(folder)}) {
    ProgramRun full(zelkorctlProgram(), call, home.path(), {.largestFile = most});
    const ProgramResult result = full.finish();
    EXPECT_EQ(result.status, 1) << result.output;
    EXPECT_NE(result.errors.find("错误 "), std::string::npos);
    EXPECT_EQ(differenceOf(content(), before), "");
    EXPECT_EQ(std::distance(fs::directory_iterator(home / "backups"), {}), 1);
  }
}

TEST_F(BackupFaultTest, ARestoredSetGoesOnAsTheOriginalDid) {
  done(import());
  done(run("8"));
  Lines closing = run("20");
  closing.insert(closing.end(), {"--backup", home / "backups", "--today", "2020-02-01"});
  done(closing);
  const Lines closed = withoutBackups(content());
  EXPECT_EQ(backupsIn(home / "backups").front().note.label, "结账前");
  done(restoreOf(newest()));
  EXPECT_NE(withoutBackups(content()), closed);
  done(closing);
  EXPECT_EQ(differenceOf(withoutBackups(content()), closed), "");
}

TEST_F(BackupFaultTest, WithoutItsBackupAJobDoesNotBegin) {
  done(import());
  const Lines before = content();
  writeFile(home / "file", "in the way");
  for (Lines call : {run("20"), run("23"), import(), changeCards(), disposeOfCards()}) {
    call.insert(call.end(), {"--backup", home / "file/backups"});
    const ProgramResult result = ctl(call);
    EXPECT_EQ(result.status, 1) << result.output;
    EXPECT_NE(result.errors.find("不能建立备份文件夹"), std::string::npos) << result.errors;
    EXPECT_EQ(differenceOf(content(), before), "");
  }
  Lines other = run("8");
  other.insert(other.end(), {"--backup", home / "backups"});
  EXPECT_EQ(ctl(other).status, 2);
}

TEST_F(BackupFaultTest, OfTwoAtOnceNeitherHarmsTheOther) {
  done(import());
  done(backup());
  const Lines before = content();
  const fs::path folder = newest();
  done(run("8"));
  ProgramRun first(zelkorctlProgram(), restoreOf(folder), home.path());
  ProgramRun second(zelkorctlProgram(), restoreOf(folder), home.path());
  const ProgramResult results[] = {first.finish(), second.finish()};
  EXPECT_TRUE(results[0].status == 0 || results[1].status == 0) << results[0].errors << results[1].errors;
  for (const ProgramResult& result : results) {
    EXPECT_TRUE(result.status == 0 || result.errors.find("“从备份恢复”") != std::string::npos ||
                result.errors.find("正被打开") != std::string::npos)
        << result.errors;
  }
  EXPECT_EQ(differenceOf(content(), before), "");
  std::vector<std::unique_ptr<ProgramRun>> programs;
  for (int i = 0; i < 4; ++i)
    programs.push_back(std::make_unique<ProgramRun>(zelkorctlProgram(), backup("2"), home.path()));
  for (const auto& program : programs) EXPECT_EQ(program->finish().status, 0);
  expectWholeBackups(home / "backups");
}

TEST_F(BackupFaultTest, BackupsAreNotTakenForAccountSets) {
  done({"backup", set.argument("8")});
  ASSERT_EQ(backupsIn(set / "backups").size(), 1U);
  const std::string each = done({"each", set / "", "--", "sql", "{}/ZkData.Mdb", "delete from fa_Cards"});
  EXPECT_EQ(each.find("backups"), std::string::npos) << each;
  EXPECT_EQ(backupsIn(set / "backups", BackupCheck::Checksums).front().problem, "");
}

TEST_F(BackupFaultTest, AnOpenAccountSetIsNotReplaced) {
  done(import());
  done(backup());
  ProgramRun open(zelkorctlProgram(), {"run", set.argument("8")}, home.path());
  ASSERT_TRUE(open.waitForOutput("继续?"));
  const ProgramResult result = ctl(restoreOf(newest()));
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("正被打开，不能恢复"), std::string::npos) << result.errors;
}

}  // namespace
}  // namespace zelkor::test
