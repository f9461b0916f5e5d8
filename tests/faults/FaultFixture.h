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
inline const Lines runRecords{"fa_DeprVoucherMain", "Fa_log"};

/// Jobs of the real program on an account set, with a register of cards to import.
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
  }

  Lines import() const { return {"cards", "import", set.argument("5"), home / "cards.csv"}; }
  Lines run(const std::string& runType) const { return {"run", set.argument(runType), "--yes"}; }
  Lines content() const { return set.content(runRecords); }

  /// Runs the job undisturbed from the state kept; gives what it leaves and how long it took.
  Lines undisturbed(const Lines& job, microseconds& life) {
    set.keep();
    const auto begin = steady_clock::now();
    done(job);
    life = std::chrono::duration_cast<microseconds>(steady_clock::now() - begin);
    return content();
  }

  const int cards;
  KeptAccountSet set;

 private:
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
