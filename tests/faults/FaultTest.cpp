#include <algorithm>
#include <filesystem>
#include <map>
#include <thread>

#include "faults/FaultFixture.h"
#include "faults/ServerCuts.h"
#include "support/Paths.h"

// What is left when a job is killed or cut off from its server, when the disk is full, and when two processes
// write at once.
namespace zelkor::test {
namespace {

constexpr auto kSoon = std::chrono::seconds(5);

/// How many rows there are of each backup, as "table: rows".
Lines backupSizes(const Lines& lines) {
  std::map<std::string, int> sizes;
  for (const std::string& line : lines)
    if (isOfBackup(line)) ++sizes[line.substr(0, line.find(':'))];
  Lines texts;
  for (const auto& [table, size] : sizes) texts.push_back(table + ": " + std::to_string(size));
  return texts;
}

struct Job {
  const char* name;
  std::string job;                   // a run type, or what jobOf calls it
  std::vector<std::string> earlier;  // likewise, those that are done before it; or statements
  const char* told;                  // when its server goes
  const char* line = nullptr;        // is in each line that reports something saved
  const char* saved = nullptr;       // counts what was saved
};

class InterruptedJobTest : public FaultFixture, public testing::WithParamInterface<Job> {
 protected:
  InterruptedJobTest() : FaultFixture(onServer() ? 300 : 1500) {}

  Lines jobOf(const std::string& name) const {
    if (name == "cards") return import();
    if (name == "sheets") return changeCards();
    if (name == "disposals") return disposeOfCards();
    return name.find(' ') == std::string::npos ? run(name) : Lines{"sql", set.dataFile(), name};
  }

  /// What was told to be saved is there.
  void expectTold(const ProgramResult& result) {
    if (GetParam().line == nullptr) return;
    long told = 0;
    for (std::size_t at = 0; (at = result.output.find(GetParam().line, at)) != std::string::npos; ++at)
      ++told;
    EXPECT_LE(told, std::stol(set.ask(GetParam().saved)));
  }

  /// Cuts the job off when it has run for this long; it tells so, or has ended before.
  void cutJob(Cut cut, microseconds moment) {
    ProgramRun program(zelkorctlProgram(), jobOf(GetParam().job), home.path());
    if (cut == Cut::Kill) return expectTold(program.killAfter(moment));
    std::this_thread::sleep_for(moment);
    const auto begin = steady_clock::now();
    if (cut == Cut::Term) {
      program.signal(SIGTERM);
    } else {
      cutOff(cut, set);
    }
    const ProgramResult result = program.finish();
    EXPECT_LT(steady_clock::now() - begin, kSoon);
    expectTold(result);
    // It had ended, maybe with rows that it refused.
    if (result.status == 0 || result.output.find(" 行：已保存 ") != std::string::npos) return;
    if (cut == Cut::Term) {
      EXPECT_TRUE(result.status == 143 || result.status == -1)
          << result.status << ": " << result.errors;  // -1: before it could listen
      return;
    }
    EXPECT_EQ(result.status, 1);
    // Before the job's own handler the program says it, as it does for any job.
    const Lines sentences{GetParam().told, kLostConnection, kNoConnection};
    EXPECT_TRUE(std::ranges::any_of(sentences, [&](const std::string& sentence) {
      return result.errors.find(sentence) != std::string::npos;
    })) << result.errors;
  }

  int counted(const std::string& rest) const { return std::stoi(set.ask("select count(*) from " + rest)); }

  /// What is done, is done in the job's order.
  void expectWholeStatements(const Lines& allocated) {
    if (GetParam().job == "8") {
      expectFirstRows(allocated);
      const int ahead = counted("fa_DeprTransactions where dblDepr1>0") - counted("fa_DeprVouchers");
      EXPECT_TRUE(ahead == 0 || ahead == 1) << ahead << " cards with a month and no allocation";
    } else if (GetParam().job == "20") {
      const std::string carried = "fa_DeprTransactions where lUsedMonths2>0";
      const int first = counted(carried);
      EXPECT_EQ(first, counted(carried + " and sCardNum<'" + numberOf(first) + "'")) << "not the first cards";
    } else if (GetParam().job == "23") {
      Lines full;
      for (const char* table : {"fa_Cards", "fa_DeptScale", "fa_Cards_Detail", "fa_DeprTransactions_Detail",
                                "fa_DeprTransactions", "fa_Total"})
        full.emplace_back(counted(table) == 0 ? "" : "full");
      EXPECT_TRUE(std::ranges::is_sorted(full)) << "a table was emptied before another";
    }
  }

  /// A month's rows that are there are those of the first cards, in their order.
  void expectFirstRows(const Lines& allocated) {
    const Lines there = set.rows("fa_DeprVouchers");
    ASSERT_LE(there.size(), allocated.size());
    EXPECT_TRUE(std::equal(there.begin(), there.end(), allocated.begin())) << "not the first cards' rows";
  }
};

TEST_P(InterruptedJobTest, LeavesTheSetIntactAndRunsAgainAsEver) {
  for (const std::string& earlier : GetParam().earlier) done(jobOf(earlier));
  for (const char* department : {"301", "402"})
    done({"sql", set.dataFile(),
          std::string("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblValue) values ('") + department +
              "','022',1,100)"});
  microseconds life{};
  const Lines expected = undisturbed(jobOf(GetParam().job), life);
  const Lines allocated = set.rows("fa_DeprVouchers");
  RandomMoments moments(life, 20);
  SCOPED_TRACE(moments.seed());
  const std::vector<Cut> cuts =
      onServer() ? std::vector{Cut::Kill, Cut::Term, Cut::Session, Cut::Restart, Cut::Crash}
                 : std::vector{Cut::Kill, Cut::Kill, Cut::Kill, Cut::Kill, Cut::Term, Cut::Term};
  for (const Cut cut : cuts) {
    SCOPED_TRACE(nameOf(cut));
    set.restore();
    cutJob(cut, moments.next());
    ASSERT_TRUE(set.isIntact());
    expectWholeStatements(allocated);
    // A cut can come after the work and before the end of the process. Sheets that are refused give status 1.
    if (withoutBackups(content()) != withoutBackups(expected)) ctl(jobOf(GetParam().job));
    const Lines again = content();
    ASSERT_EQ(differenceOf(withoutBackups(again), withoutBackups(expected)), "");
    ASSERT_EQ(differenceOf(backupSizes(again), backupSizes(expected)), "");
  }
}

INSTANTIATE_TEST_SUITE_P(
    Jobs, InterruptedJobTest,
    testing::Values(
        Job{"Import", "cards", {}, "错误 57"},
        Job{"Sheets", "sheets", {"cards"}, "错误 57", "：变动单 ", "select count(*) from fa_Vouchers"},
        Job{"Disposals",
            "disposals",
            {"cards", "8", "delete from fa_DeptScale"},
            kLostConnection,
            "：已减少\n",
            "select count(*) from fa_Cards where dDisposeDate is not null"},
        Job{"MonthlyRun", "8", {"cards"}, kLostConnection},
        Job{"Closing", "20", {"cards", "8"}, "月末结账没有完成"},
        Job{"Reinitialisation", "23", {"cards"}, kLostConnection}),
    [](const auto& job) { return job.param.name; });

class FaultTest : public FaultFixture {
 protected:
  FaultTest() : FaultFixture(onServer() ? 300 : 1500) {}
};

TEST_F(FaultTest, AFullDiskEndsTheJobAndLeavesTheFileIntact) {
  if (writesWithoutItsFile()) GTEST_SKIP() << "the disk is the server's";
  done(import());
  set.keep();
  const auto size = std::filesystem::file_size(set.dataFile());
  ProgramRun full(zelkorctlProgram(), run("8"), home.path(), {.largestFile = size / 8});
  EXPECT_EQ(full.finish().status, 1);
  EXPECT_TRUE(set.isIntact());
  done(run("8"));
  const Lines after = content();
  set.restore();
  done(run("8"));
  EXPECT_EQ(differenceOf(content(), after), "");
}

TEST_F(FaultTest, AFullDiskTellsHowManySheetsWereSaved) {
  if (writesWithoutItsFile()) GTEST_SKIP() << "the disk is the server's";
  done(import());
  const auto size = std::filesystem::file_size(set.dataFile());
  ProgramRun full(zelkorctlProgram(), changeCards(), home.path(), {.largestFile = size / 8});
  const ProgramResult result = full.finish();
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("：导入停在第"), std::string::npos) << result.errors;
  const std::string saved = set.ask("select count(*) from fa_Vouchers");
  EXPECT_GT(std::stol(saved), 0);
  EXPECT_NE(result.output.find("\n中断：已保存 " + saved + " 行，"), std::string::npos) << result.output;
  EXPECT_EQ(result.output.find("I/O"), std::string::npos)
      << "no row is told as refused for what ends the import";
}

TEST_F(FaultTest, TwoProcessesLoseNothing) {
  ProgramRun importing(zelkorctlProgram(), import(), home.path());
  constexpr std::size_t memos = 40;
  for (std::size_t i = 0; i < memos; ++i)
    done({"sql", set.dataFile(), "insert into Fa_log (mMemo) values ('memo " + std::to_string(i) + "')"});
  EXPECT_EQ(importing.finish().status, 0);
  EXPECT_EQ(set.rows("Fa_log").size(), memos);
  EXPECT_EQ(set.rows("fa_Cards").size(), static_cast<std::size_t>(cards));
}

}  // namespace
}  // namespace zelkor::test
