#include <gtest/gtest.h>

#include <set>

#include "archives/CodingRule.h"
#include "archives/DepartCheck.h"

namespace zelkor {
namespace {

TEST(CodingRule, becomesGroupsOfStars) {
  const struct {
    const char* rule;
    const char* pattern;
    std::int32_t lastLength;
  } cases[] = {
      {"222", "** ** **", 2}, {"12", "* **", 2},    {"1 2,3", "* ** ***", 3},
      {"级2级1", "** *", 1},  {"202", "**  **", 2}, {"02", "**", 2},
      {"20", "** ", 0},       {"", "", 7},          {"no digit in it", "", 7},
  };
  for (const auto& c : cases) {
    std::int32_t lastLength = 7;
    EXPECT_EQ(codingRulePattern(c.rule, lastLength), c.pattern) << c.rule;
    EXPECT_EQ(lastLength, c.lastLength) << c.rule;
  }
}

TEST(CodingRule, givesTheLevelAndTheLengthOfThePartAbove) {
  const struct {
    const char* code;
    const char* pattern;
    std::optional<CodeLevel> level;
  } cases[] = {
      {"1", "* **", CodeLevel{1, 0}},
      {"101", "* **", CodeLevel{2, 1}},
      {"10", "* **", std::nullopt},
      {"1011", "* **", std::nullopt},
      {"", "* **", std::nullopt},
      {"010203", "** ** **", CodeLevel{3, 2}},  // two characters, not the four of both parts above
      {"1234567", "* ** ****", CodeLevel{3, 2}},
      {"甲乙", "* *", CodeLevel{2, 1}},
      {"12", "**  **", CodeLevel{1, 0}},
      {"1234", "**  **", CodeLevel{3, 0}},
      {"1", "", std::nullopt},
  };
  for (const auto& c : cases) EXPECT_EQ(ChkIsCodingRule(c.code, c.pattern), c.level) << c.code;
}

TEST(CodingRule, looksForTheParentByTheLengthGiven) {
  const std::set<std::string> tree = {"01", "甲"};
  const auto holds = [&](const std::string& code) { return tree.contains(code); };
  EXPECT_TRUE(ChkParentDept("0102", 2, holds));
  EXPECT_FALSE(ChkParentDept("0202", 2, holds));
  EXPECT_TRUE(ChkParentDept("010203", 2, holds));  // 0102 is missing, and nobody asks for it
  EXPECT_TRUE(ChkParentDept("99", 0, holds));
  EXPECT_TRUE(ChkParentDept("甲乙", 1, holds));
}

TEST(DepartCheck, refusesInTheOrderOfItsMessages) {
  const std::set<std::string> tree = {"1", "101"};
  const struct {
    const char* code;
    const char* name;
    DepartSaving saving;
    std::string_view refusal;
    int level;
  } cases[] = {
      {"101", "", DepartSaving::New, "名称不能为空，请填写！", 0},
      {"101", "n", DepartSaving::New, "已存在此分类编码，请重新输入！", 0},
      {"101", "n", DepartSaving::Existing, "", 2},
      {"10", "n", DepartSaving::New, "此编码不符合分类编码规则，请重新编码！", 0},
      {"201", "n", DepartSaving::New, "不存在上级部门，请重新输入！", 2},
      {"102", "n", DepartSaving::New, "", 2},
      {"2", "n", DepartSaving::New, "", 1},
  };
  for (const auto& c : cases) {
    const DepartCheck check = checkDepart({.code = c.code, .name = c.name}, c.saving, "* **",
                                          [&](const std::string& code) { return tree.contains(code); });
    EXPECT_EQ(check.refusal, c.refusal) << c.code;
    EXPECT_EQ(check.level, c.level) << c.code;
  }
}

}  // namespace
}  // namespace zelkor
