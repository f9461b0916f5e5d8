#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>

#include "reports/ReportFixture.h"
#include "support/Paths.h"

// Every report over the same books, compared with tables that were reckoned through by hand. Set
// ZELKOR_REWRITE_GOLDEN to write the tables anew.
namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

using Condition = std::function<void(ReportConditions&)>;

struct ReportCase {
  std::string file;
  std::string report;
  std::vector<std::pair<std::string, Condition>> conditions;  // each with what it is called
};

const Condition kNone = [](ReportConditions&) {};

Condition inDepartment(const std::string& code, const std::string& name) {
  return [=](ReportConditions& conditions) { conditions.department = {code, name}; };
}

Condition ofType(const std::string& code, const std::string& name) {
  return [=](ReportConditions& conditions) { conditions.type = {code, name}; };
}

Condition both(const Condition& one, const Condition& other) {
  return [=](ReportConditions& conditions) {
    one(conditions);
    other(conditions);
  };
}

Condition inLayout(StatisticsLayout layout) {
  return [=](ReportConditions& conditions) { conditions.statisticsLayout = layout; };
}

Condition ofLevels(const std::string& from, const std::string& to) {
  return [=](ReportConditions& conditions) { conditions.departmentRange = {from, to}; };
}

std::vector<ReportCase> reportCases() {
  const Condition workshops = inDepartment("3", "生产部");
  const Condition machines = ofType("02", "机器设备");
  const std::vector<std::pair<std::string, Condition>> filters{{"all", kNone},
                                                               {"department 3", workshops},
                                                               {"category 02", machines},
                                                               {"both", both(workshops, machines)}};
  return {
      {"dept-composition", "部门构成分析表", {{"all", kNone}}},
      {"status-analysis", "固定资产使用状况分析表", {{"all", kNone}}},
      {"value-structure", "价值结构分析表", {{"all", kNone}}},
      {"type-composition", "类别构成分析表", {{"all", kNone}}},
      {"value-overview",
       "(固定资产原值)一览表",
       {{"first level", kNone}, {"both levels", ofLevels("1", "2")}, {"second level", ofLevels("2", "2")}}},
      {"asset-statistics",
       "固定资产统计表",
       {{"both", kNone},
        {"by department", inLayout(StatisticsLayout::ByDepartment)},
        {"by category", inLayout(StatisticsLayout::ByType)}}},
      {"dept-type-ledger", "(部门、类别)明细账", filters},
      {"card-ledger", "(单个)固定资产明细账", filters},
      {"register-book", "固定资产登记簿", filters},
      {"general-ledger", "固定资产总账", filters},
      {"depr-summary", "(部门)折旧计提汇总表", {{"all", kNone}}},
      {"asset-depr-table-1", "固定资产及累计折旧表(一)", {{"all", kNone}}},
      {"asset-depr-table-2", "固定资产及累计折旧表(二)", {{"all", kNone}, {"category 02", machines}}},
      {"depr-detail",
       "固定资产折旧计算明细表",
       {{"all", kNone}, {"department 3", workshops}, {"department 301", inDepartment("301", "一车间")}}},
  };
}

class ReportGoldenTest : public ReportTest, public testing::WithParamInterface<ReportCase> {
 protected:
  /// The report under each of its conditions, and over empty books.
  std::string everyTable() {
    std::string tables = "# no cards\n" + report(GetParam().report);
    keepBooks();
    for (const auto& [name, condition] : GetParam().conditions) {
      conditions = ReportConditions(2020);
      condition(conditions);
      tables += "\n# " + name + "\n" + report(GetParam().report);
    }
    return tables;
  }
};

TEST_P(ReportGoldenTest, ComesOutAsReckoned) {
  const fs::path golden = test::testFolder() / "reports/golden" / (GetParam().file + ".golden");
  const std::string found = everyTable();
  if (std::getenv("ZELKOR_REWRITE_GOLDEN") != nullptr) {
    std::ofstream(golden) << found;
  } else {
    EXPECT_EQ(found, readFile(golden));
  }
}

INSTANTIATE_TEST_SUITE_P(Reports, ReportGoldenTest, testing::ValuesIn(reportCases()), [](const auto& report) {
  std::string name = report.param.file;
  std::ranges::replace(name, '-', '_');
  return name;
});

}  // namespace
}  // namespace zelkor::test
