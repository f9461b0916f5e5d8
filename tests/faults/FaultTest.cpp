#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>

#include "faults/Program.h"
#include "support/Support.h"

// What is left when a job is killed, when the disk is full, and when two processes write at once.
namespace zelkor::test {
namespace {

namespace fs = std::filesystem;
using std::chrono::microseconds;
using std::chrono::steady_clock;

constexpr int cards = 1500;
constexpr int killsPerJob = 6;
// Each run of the month leaves its own row here, and each memo its time.
const std::vector<std::string> runRecords{"fa_DeprVoucherMain", "Fa_log"};

std::string cardRow(int number) {
  const std::string value = std::to_string(1000 + number * 7 % 5000);
  return ",2020-01-01,,设备" + std::to_string(number) +
         ",022,,301,101,一号库,11,120,平均年限法(一),2019-05-01,8,人民币," + value + ",0.05,50,100,410502,," +
         "2020-01-01\n";
}

class FaultTest : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(runProgram({"create", home.string(), "--year", "2020", "--month", "1", "--sample"}), 0);
    std::ofstream csv(directory.path() / "cards.csv");
    csv << "卡片编号,日期,固定资产编号,固定资产名称,类别编号,规格型号,部门名称,增加方式,存放地点,使用状况,"
           "使用年限,折旧方法,"
           "开始使用日期,已计提月份,币种,原值,净残值率,净残值,累计折旧,对应折旧科目,录入人,录入日期\n";
    for (int i = 0; i < cards; ++i) csv << cardRow(i);
  }

  std::string argument(const std::string& runType) const {
    return dataFile() + ",张三,2020-01-15," + runType + "," + (home / "ZkSystem.Mdb").string() + ",001";
  }
  std::vector<std::string> import() const {
    return {"cards", "import", argument("5"), (directory.path() / "cards.csv").string()};
  }
  std::vector<std::string> run(const std::string& runType) const {
    return {"run", argument(runType), "--yes"};
  }
  std::string dataFile() const { return (home / "ZkData.Mdb").string(); }

  void keepState() { fs::copy(home, kept, fs::copy_options::recursive); }
  void restoreState() {
    fs::remove_all(home);
    fs::copy(kept, home, fs::copy_options::recursive);
  }
  std::vector<std::string> content() const { return contentOf(dataFile(), runRecords); }

  // Kills the job at random moments of its life; each time the file is whole and a new run ends as ever.
  void survivesKills(const std::vector<std::string>& job) {
    keepState();
    const auto begin = steady_clock::now();
    ASSERT_EQ(runProgram(job), 0);
    const auto life = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
    const std::vector<std::string> undisturbed = content();

    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    std::uniform_int_distribution<long> moment(life.count() / 10, life.count());
    for (int i = 0; i < killsPerJob; ++i) {
      restoreState();
      Program(job).killAfter(microseconds(moment(random)));
      ASSERT_TRUE(isIntact(dataFile()));
      // A kill can come after the work and before the end of the process.
      if (content() != undisturbed) {
        ASSERT_EQ(runProgram(job), 0);
      }
      ASSERT_EQ(differenceOf(content(), undisturbed), "") << "after kill " << i;
    }
  }

  TempDir directory;
  fs::path home = directory.path() / "set";
  fs::path kept = directory.path() / "kept";
};

TEST_F(FaultTest, AnImportCanBeKilledAndRunAgain) {
  survivesKills(import());
}

TEST_F(FaultTest, AMonthlyRunCanBeKilledAndRunAgain) {
  ASSERT_EQ(runProgram(import()), 0);
  survivesKills(run("8"));
}

/// The tables that a closing leaves but its backups, which a second one makes of what the first one left.
std::vector<std::string> withoutBackups(std::vector<std::string> lines) {
  std::erase_if(lines, [](const std::string& line) { return line.starts_with("ZKFA_BAK"); });
  return lines;
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
    ASSERT_EQ(runProgram({"sql", dataFile(), total}), 0);
  }
  keepState();
  const auto begin = steady_clock::now();
  ASSERT_EQ(runProgram(run("20")), 0);
  const auto life = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
  const std::vector<std::string> closed = content();

  const unsigned seed = std::random_device{}();
  SCOPED_TRACE("seed " + std::to_string(seed));
  std::mt19937 random(seed);
  std::uniform_int_distribution<long> moment(life.count() / 20, life.count());
  for (int i = 0; i < killsPerJob; ++i) {
    restoreState();
    Program(run("20")).killAfter(microseconds(moment(random)));
    ASSERT_TRUE(isIntact(dataFile()));
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
  ASSERT_EQ(runProgram(import()), 0);
  keepState();
  const auto size = fs::file_size(dataFile());
  Program full(run("8"), size / 8);
  EXPECT_EQ(full.wait(), 1);
  EXPECT_TRUE(isIntact(dataFile()));
  ASSERT_EQ(runProgram(run("8")), 0);
  const std::vector<std::string> after = content();
  restoreState();
  ASSERT_EQ(runProgram(run("8")), 0);
  EXPECT_EQ(differenceOf(content(), after), "");
}

TEST_F(FaultTest, TwoProcessesLoseNothing) {
  Program importing(import());
  constexpr int memos = 40;
  for (int i = 0; i < memos; ++i) {
    const std::string memo = "memo " + std::to_string(i);
    ASSERT_EQ(runProgram({"sql", dataFile(), "insert into Fa_log (mMemo) values ('" + memo + "')"}), 0);
  }
  EXPECT_EQ(importing.wait(), 0);
  long rows = 0;
  long stored = 0;
  for (const std::string& line : contentOf(dataFile(), {})) {
    rows += line.starts_with("Fa_log:") ? 1 : 0;
    stored += line.starts_with("fa_Cards:") ? 1 : 0;
  }
  EXPECT_EQ(rows, memos);
  EXPECT_EQ(stored, cards);
}

}  // namespace
}  // namespace zelkor::test
