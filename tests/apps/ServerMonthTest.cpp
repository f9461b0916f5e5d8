#include "support/AccountSetCopy.h"
#include "support/Paths.h"
#include "support/ProgramTest.h"
#include "transfer/EngineSource.h"
#include "transfer/Transfer.h"

// The month of the sample register by the administrator's tool, in files and on a server: the same rows.
namespace zelkor::test {
namespace {

class ServerMonthTest : public ProgramTest {
 protected:
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
  }
  /// Gives what the import and the run have printed.
  std::string runMonth(const std::string& set, const Words& where) {
    create(set, where);
    return done({"cards", "import", arguments("8", set), dataFolder() / "sample-register.csv", "--today",
                 "2020-01-31"}) +
           done({"run", arguments("8", set), "--answers", "y,y,n", "--today", "2020-01-31"});
  }
};

TEST_F(ServerMonthTest, LeavesTheSameRowsInEveryTable) {
  const TestDatabase database("template0");
  EXPECT_EQ(runMonth("file", {"--sample"}),
            runMonth("server", {"--sample", "--server", database.conninfo()}));
  for (const char* name : kAccountSetFiles) {
    const auto here = openSource(file("file", name));
    const auto there = openSource(file("server", name));
    EXPECT_EQ(here->tables().size(), there->tables().size());
    for (const TransferProblem& problem : compareTables(*here, *there))
      ADD_FAILURE() << problem.table << ": " << problem.reason;
  }
}

}  // namespace
}  // namespace zelkor::test
