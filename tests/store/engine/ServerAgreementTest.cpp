#include <optional>

#include "store/CaseFiles.h"
#include "store/engine/BothEngines.h"
#include "store/engine/StatementMaker.h"

// Statements that nobody has thought of, given to a file and to a server: the same rows, or the same failure.
namespace zelkor::test {
namespace {

class ServerAgreementTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
    engines.emplace();
    for (const std::string& line : linesOf("expressions", "agreement")) {
      if (line == "[queries]") return;
      if (line != "[tables]") engines->expectSame(line);
    }
  }

  std::optional<BothEngines> engines;
};

TEST_F(ServerAgreementTest, QueriesGiveTheSame) {
  StatementMaker maker(20040401);
  for (int i = 0; i < 640; ++i) engines->expectSame(maker.query());
  EXPECT_GT(engines->succeeded(), 450);
}

TEST_F(ServerAgreementTest, ActionsLeaveTheSame) {
  StatementMaker maker(20041231);
  for (int i = 0; i < 250; ++i) {
    engines->expectSame(maker.action());
    engines->expectSame("select * from p order by id");
  }
  EXPECT_GT(engines->succeeded(), 450);
}

}  // namespace
}  // namespace zelkor::test
