#pragma once

#include <chrono>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "faults/KeptAccountSet.h"
#include "support/ProgramTest.h"

namespace zelkor::test {

using Lines = std::vector<std::string>;

// Each run of the month leaves its own row here, and each memo its time.
inline const Lines kRunRecords{"fa_DeprVoucherMain", "Fa_log"};

/// Jobs of the real program on an account set, with a register of cards to import, sheets on the cards and a
/// list of cards to be disposed of.
class FaultFixture : public ProgramTest {
 protected:
  using microseconds = std::chrono::microseconds;
  using steady_clock = std::chrono::steady_clock;

  explicit FaultFixture(int cardCount) : cards(cardCount) {
    std::ofstream csv(home / "cards.csv");
    csv << "卡片编号,日期,固定资产编号,固定资产名称,类别编号,规格型号,部门名称,增加方式,存放地点,使用状况,"
           "使用年限,折旧方法,"
           "开始使用日期,已计提月份,币种,原值,净残值率,净残值,累计折旧,对应折旧科目,录入人,录入日期\n";
    for (int i = 0; i < cards; ++i) csv << cardRow(i);
    std::ofstream sheets(home / "sheets.csv");
    sheets << "变动类型,卡片编号,变动后内容,变动原因\n";
    for (int i = 0; i < cards / 20; ++i) sheets << sheetRows(i);
    for (int i = cards / 20; i < cards / 8; ++i)
      sheets << "部门转移," << numberOf(i) << (i % 9 == 5 ? ",301" : ",302") << ",调拨\n";
    std::ofstream disposals(home / "disposals.csv");
    disposals << "卡片编号,减少日期,减少方式,清理收入,清理费用,清理原因\n";
    for (int i = 0; i < cards / 10; ++i) disposals << numberOf(i) << ",,205,,,报废\n";
  }

  Lines import() const { return {"cards", "import", set.argument("5"), home / "cards.csv"}; }
  /// Sheets of several kinds, some alike and some refused.
  Lines changeCards() const {
    return {"sheets", "import", set.argument("15"), home / "sheets.csv", "--today", "2020-02-01"};
  }
  Lines disposeOfCards() const {
    return {"dispose", set.argument("22"), home / "disposals.csv", "--today", "2020-02-01"};
  }
  Lines run(const std::string& runType) const { return {"run", set.argument(runType), "--yes"}; }
  Lines content() const { return set.content(kRunRecords); }

  /// Runs the job undisturbed from the state kept; gives what it leaves and how long it took.
  Lines undisturbed(const Lines& job, microseconds& life) {
    set.keep();
    const auto begin = steady_clock::now();
    EXPECT_EQ(ctl(job).errors, "");
    life = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
    return content();
  }

  /// The number of a card of the register, counted from 0.
  static std::string numberOf(int card) {
    const std::string number = std::to_string(card + 1);
    return std::string(5 - number.size(), '0') + number;
  }

  const int cards;
  KeptAccountSet set;

 private:
  static std::string sheetRows(int card) {
    const std::string number = numberOf(card);
    const std::string raised = "原值增加," + number + ",100,盘盈\n";
    constexpr const char* others[] = {"累计折旧调整", "使用年限调整", "折旧方法调整", "使用状况调整"};
    constexpr const char* values[] = {"130", "6年0月", "年数总和法", "11"};
    return raised + others[card % 4] + "," + number + "," + values[card % 4] + ",复核\n" + raised;
  }
  static std::string cardRow(int number) {
    const std::string value = std::to_string(1000 + number * 7 % 5000);
    return ",2020-01-01,,设备" + std::to_string(number) +
           ",022,,301,101,一号库,11,120,平均年限法(一),2019-05-01,8,人民币," + value +
           ",0.05,50,100,410502,,2020-01-01\n";
  }
};

/// Moments between a part of a job's life and its end, from a seed that a failure tells.
class RandomMoments {
 public:
  RandomMoments(std::chrono::microseconds life, long earliestPart)
      : seed_(std::random_device{}()), random_(seed_), moment_(life.count() / earliestPart, life.count()) {}
  std::string seed() const { return "seed " + std::to_string(seed_); }
  std::chrono::microseconds next() { return std::chrono::microseconds(moment_(random_)); }

 private:
  unsigned seed_;
  std::mt19937 random_;
  std::uniform_int_distribution<long> moment_;
};

inline bool isOfBackup(const std::string& line) {
  return line.starts_with("ZKFA_BAK");
}

/// The tables that a closing leaves but its backups, which a second one makes of what the first one left.
inline Lines withoutBackups(Lines lines) {
  std::erase_if(lines, isOfBackup);
  return lines;
}

}  // namespace zelkor::test
