#include <gtest/gtest.h>

#include <set>

#include "archives/CodingRule.h"
#include "archives/DepartCheck.h"
#include "support/Golden.h"

namespace zelkor {
namespace {

TEST(CodingRule, becomesGroupsOfStars) {
  for (const auto& one : test::casesIn("archives/coding-rules.txt")) {
    std::int32_t lastLength = 7;
    EXPECT_EQ(codingRulePattern(one[0], lastLength), one[1]) << one[0];
    EXPECT_EQ(std::to_string(lastLength), one[2]) << one[0];
  }
}

TEST(CodingRule, givesTheLevelAndTheLengthOfThePartAbove) {
  for (const auto& one : test::casesIn("archives/codes.txt")) {
    const auto level = ChkIsCodingRule(one[0], one[1]);
    EXPECT_EQ(level ? std::to_string(level->level) + " " + std::to_string(level->parentLength) : "none",
              one[2])
        << one[0];
  }
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
  } cases[] = {{"101", "", DepartSaving::New, "名称不能为空，请填写！", 0},
               {"101", "n", DepartSaving::New, "已存在此分类编码，请重新输入！", 0},
               {"101", "n", DepartSaving::Existing, "", 2},
               {"10", "n", DepartSaving::New, "此编码不符合分类编码规则，请重新编码！", 0},
               {"201", "n", DepartSaving::New, "不存在上级部门，请重新输入！", 2},
               {"102", "n", DepartSaving::New, "", 2},
               {"2", "n", DepartSaving::New, "", 1}};
  for (const auto& c : cases) {
    const DepartCheck check = checkDepart({.code = c.code, .name = c.name}, c.saving, "* **",
                                          [&](const std::string& code) { return tree.contains(code); });
    EXPECT_EQ(check.refusal, c.refusal) << c.code;
    EXPECT_EQ(check.level, c.level) << c.code;
  }
}

}  // namespace
}  // namespace zelkor
