#include <map>
#include <sstream>

#include "audit/BookCheck.h"
#include "cards/CardImport.h"
#include "support/AccountSetFixture.h"
#include "support/Findings.h"
#include "support/MonthlyRun.h"
#include "support/Paths.h"

// A real register of old assets, entered and run by the program: what a check tells of it is what the system
// leaves behind.
namespace zelkor::test {
namespace {

class SharedRegister : public AccountSetTest {};

TEST_F(SharedRegister, IsSoundAfterItsFirstMonth) {
  const auto file = dataFolder().parent_path().parent_path() / "shared/data/register-2020-01.csv";
  if (!std::filesystem::exists(file)) GTEST_SKIP() << "there is none beside the project";
  context.gdOpDate = day("2020-1-31");
  std::ostringstream problems;
  importCards(context, readFile(file), 1, problems);
  runMonth(context, dialogs);
  engine.flush();
  const CheckResult result = checkBooks({context.gstrZtFile, context.gstrZkSysFile, context.gdOpDate});
  std::map<std::string, int> found;
  for (const Finding& one : result.findings) {
    ++found[std::string(one.rule->code)];
    if (one.rule->severity != Severity::Note) ADD_FAILURE() << findingText(one);
  }
  // Assets that were depreciated to the end before they were entered go on being depreciated.
  EXPECT_EQ(found.size(), 1U) << testing::PrintToString(found);
  EXPECT_GT(found["M08"], 0);
}

}  // namespace
}  // namespace zelkor::test
