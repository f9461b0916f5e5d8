#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <memory>

#include "store/accountset/DataFile.h"
#include "store/catalogue/Revisions.h"
#include "support/AccountSetCopy.h"
#include "support/OlderBooks.h"
#include "support/ProgramTest.h"
#include "transfer/EngineSource.h"
#include "transfer/Transfer.h"

// Account sets of earlier revisions, in files or on a server: worked on as they are, and renewed; and what a
// renewal leaves that is killed, runs out of disk or is not alone.
namespace zelkor::test {
namespace {

using testing::HasSubstr;

class RenewCommandTest : public ProgramTest {
 protected:
  void createSet(const std::string& set, int revision) {
    Words more{"--sample"};
    if (onServer()) {
      databases_.push_back(std::make_unique<TestDatabase>("template0"));
      more.insert(more.end(), {"--server", databases_.back()->conninfo()});
    }
    create(set, more);
    if (revision < currentRevision()) makeOlder(home / set, revision);
  }
  /// Renews both files and gives what was said of the data file.
  std::string renew(const std::string& set) {
    const std::string said = done({"renew", file(set)});
    done({"renew", file(set, "ZkSystem.Mdb")});
    return said;
  }
  /// Enters the sample register, runs the month, makes its vouchers and closes it.
  ProgramResult workThroughMonth(const std::string& set) {
    ProgramResult all;
    for (Words call :
         std::vector<Words>{{"cards", "import", arguments("5", set), dataFolder() / "sample-register.csv"},
                            {"run", arguments("8", set), "--answers", "y,y,n"},
                            {"vouchers", "make", arguments("8", set), "--merge"},
                            {"run", arguments("20", set), "--yes"}}) {
      call.insert(call.end(), {"--today", "2020-01-31"});
      const ProgramResult result = ctl(call);
      all.output += std::to_string(result.status) + '\n' + result.output;
      all.errors += result.errors;
    }
    return all;
  }
  void expectSameTables(const std::string& set, const std::string& other) {
    const auto original = openSource(file(set));
    for (const TransferProblem& difference : compareTables(*original, *openSource(file(other))))
      ADD_FAILURE() << difference.table << ": " << difference.reason;
  }

 private:
  std::vector<std::unique_ptr<TestDatabase>> databases_;
};

TEST_F(RenewCommandTest, ASetOfEachRevisionGoesThroughTheMonth) {
  createSet("new", currentRevision());
  const ProgramResult month = workThroughMonth("new");
  EXPECT_THAT(month.output, HasSubstr("已保存 62 行"));
  for (const StepBack& step : stepsBack()) {
    SCOPED_TRACE(step.to);
    const std::string older = "older" + std::to_string(step.to);
    const std::string renewed = "renewed" + std::to_string(step.to);
    for (const std::string& set : {older, renewed}) createSet(set, step.to);
    EXPECT_THAT(renew(renewed), HasSubstr("已更新 " + file(renewed) + "：版本 " + std::to_string(step.to) +
                                          " → " + std::to_string(currentRevision()) + "\n  "));
    EXPECT_EQ(renew(renewed),
              file(renewed) + " 已是版本 " + std::to_string(currentRevision()) + "，无需更新\n");
    const ProgramResult worked = workThroughMonth(older);
    EXPECT_EQ(worked.output, month.output);
    EXPECT_THAT(worked.errors, HasSubstr("请由管理员运行 zelkorctl renew"));
    const ProgramResult workedRenewed = workThroughMonth(renewed);
    EXPECT_EQ(workedRenewed.output, month.output);
    EXPECT_EQ(workedRenewed.errors, month.errors);
    expectSameTables("new", older);
    expectSameTables("new", renewed);
  }
}

TEST_F(RenewCommandTest, ACopyIsOfTheRevisionOfItsOriginal) {
  createSet("set", 1);
  const std::string copy = home / "copy.Mdb";
  EXPECT_EQ(ctl({"copy", file(), copy}).status, 0);
  EXPECT_THAT(renew("set"), HasSubstr("版本 1 → "));
  EXPECT_EQ(done({"renew", copy}),
            "已更新 " + copy + "：版本 1 → " + std::to_string(currentRevision()) + "\n");
}

/// What is left of the steps to revision 2 when a renewal of a file is stopped: all or nothing.
class StoppedRenewalTest : public RenewCommandTest {
 protected:
  void SetUp() override {
    if (onServer()) GTEST_SKIP() << "the file is the server's";
    createSet("older", 1);
    done({"cards", "import", arguments("5", "older"), dataFolder() / "sample-register.csv", "--today",
          "2020-01-31"});
  }
  /// A copy of the older set.
  void restore() const {
    std::filesystem::remove_all(home / "set");
    std::filesystem::copy(home / "older", home / "set");
  }
  Words renewal() const { return {"renew", file()}; }
  int revision() const {
    const auto engine = openDataFile(file());
    const auto whole = engine->prepare("PRAGMA integrity_check");
    whole->step();
    EXPECT_EQ(whole->text(0), "ok");
    const auto indexes = engine->prepare(
        "SELECT count(*) FROM sqlite_master WHERE name IN "
        "('fa_Cards__sCardNum', 'fa_DeptScale__lOptID', 'fa_DeptScale__sID')");
    indexes->step();
    EXPECT_EQ(indexes->integer(0), engine->booksRevision() == currentRevision() ? 3 : 0);
    return engine->booksRevision();
  }
};

TEST_F(StoppedRenewalTest, AKilledOneIsSimplyCalledAgain) {
  restore();
  const auto begin = std::chrono::steady_clock::now();
  done(renewal());
  const auto life = std::chrono::steady_clock::now() - begin;
  EXPECT_EQ(revision(), currentRevision());
  constexpr int kills = 12;
  for (int i = 1; i <= kills; ++i) {
    restore();
    ProgramRun(zelkorctlProgram(), renewal(), home.path())
        .killAfter(std::chrono::duration_cast<std::chrono::microseconds>(life * i / kills));
    revision();
    done(renewal());
    EXPECT_EQ(revision(), currentRevision());
    expectSameTables("older", "set");
  }
}

TEST_F(StoppedRenewalTest, AFullDiskLeavesTheOlderBooks) {
  restore();
  EXPECT_EQ(ProgramRun(zelkorctlProgram(), renewal(), home.path(), {.largestFile = 32768}).finish().status,
            1);
  EXPECT_EQ(revision(), 0);
  done(renewal());
  EXPECT_EQ(revision(), currentRevision());
}

TEST_F(RenewCommandTest, OfTwoAtOnceOneRenews) {
  createSet("set", 1);
  const Words renewal{"renew", file()};
  ProgramRun first(zelkorctlProgram(), renewal, home.path());
  ProgramRun second(zelkorctlProgram(), renewal, home.path());
  const ProgramResult one = first.finish();
  const ProgramResult other = second.finish();
  EXPECT_EQ(one.status, 0) << one.errors;
  EXPECT_EQ(other.status, 0) << other.errors;
  const auto renews = [](const ProgramResult& result) {
    return result.output.find("已更新") != std::string::npos;
  };
  EXPECT_NE(renews(one), renews(other)) << one.output << other.output;
  EXPECT_EQ(openDataFile(file())->booksRevision(), currentRevision());
}

}  // namespace
}  // namespace zelkor::test
