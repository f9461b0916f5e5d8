#include "home/Findings.h"

namespace zelkor::test {
namespace {

TEST(FindingsTest, OnlyWhatTheCheckWritesIsTaken) {
  for (const char* other :
       {"", "[]", R"({"findings":[]})", R"({"sound":true})", R"({"sound":true,"findings":1})"})
    EXPECT_FALSE(findingsOf(other)) << other;
  const auto findings =
      findingsOf(R"({"sound":false,"findings":[{"code":"C01","amount":1.5}],"notes":["x",1]})");
  ASSERT_TRUE(findings);
  EXPECT_FALSE(findings->sound);
  EXPECT_EQ(findings->all.front().amount, "1.50");
  EXPECT_EQ(findings->notes, std::vector<std::string>{"x"});
}

}  // namespace
}  // namespace zelkor::test
