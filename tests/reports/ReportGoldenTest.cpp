#include <algorithm>
#include <map>
#include <sstream>

#include "reports/ReportFixture.h"
#include "support/Golden.h"

// Every report over the same books, compared with tables that were reckoned through by hand.
namespace zelkor::test {
namespace {

/// The lines of cases.txt by the golden table that they go into.
std::map<std::string, std::vector<std::vector<std::string>>> casesByTable() {
  std::map<std::string, std::vector<std::vector<std::string>>> tables;
  for (const auto& one : casesIn("reports/cases.txt")) tables[one[0]].push_back(one);
  return tables;
}

void setCondition(ReportConditions& conditions, const std::string& text) {
  std::istringstream words(text);
  std::string what, one, other, last;
  words >> what >> one >> other >> last;
  if (what == "department") conditions.department = {one, other};
  if (what == "category") conditions.type = {one, other};
  if (what == "levels") conditions.departmentRange = {one, last};
  if (text == "by department") conditions.statisticsLayout = StatisticsLayout::ByDepartment;
  if (text == "by category") conditions.statisticsLayout = StatisticsLayout::ByType;
}

class ReportGoldenTest : public ReportTest, public testing::WithParamInterface<std::string> {};

/// Over empty books first, then under each of its conditions.
TEST_P(ReportGoldenTest, ComesOutAsReckoned) {
  const auto cases = casesByTable().at(GetParam());
  std::string tables = "# no cards\n" + report(cases.front()[1]);
  keepBooks();
  for (const auto& one : cases) {
    conditions = ReportConditions(2020);
    for (std::size_t i = 3; i < one.size(); ++i) setCondition(conditions, one[i]);
    tables += "\n# " + one[2] + "\n" + report(one[1]);
  }
  expectGolden("reports/golden/" + GetParam() + ".golden", tables);
}

std::vector<std::string> tableNames() {
  std::vector<std::string> names;
  for (const auto& table : casesByTable()) names.push_back(table.first);
  return names;
}

INSTANTIATE_TEST_SUITE_P(Reports, ReportGoldenTest, testing::ValuesIn(tableNames()), [](const auto& table) {
  std::string name = table.param;
  std::ranges::replace(name, '-', '_');
  return name;
});

}  // namespace
}  // namespace zelkor::test
