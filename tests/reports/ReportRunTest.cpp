#include "reports/ConditionPages.h"
#include "reports/ReportFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

class ReportRunTest : public ReportTest {
 protected:
  std::vector<std::string> memos() { return rows("select mMemo from Fa_log"); }
};

TEST_F(ReportRunTest, NotesWhatWasAsked) {
  conditions.department = {"3", "生产部"};
  conditions.type = {"02", "机器设备"};
  int list = 0;
  for (auto& [page, periods] : conditions.periods) {
    periods.from = "p" + std::to_string(list++);
    if (conditionsOf(page).range) periods.to = "p" + std::to_string(list++);
  }
  for (const auto& one : casesIn("reports/memos.txt")) {
    execute("delete from Fa_log");
    const bool nothing = report(one[0]) == "(nothing)\n";
    EXPECT_EQ(nothing, findReport(one[0])->build == nullptr) << one[0];
    EXPECT_EQ(memos(), std::vector(one.begin() + 1, one.end())) << one[0];
  }
  EXPECT_NE(report("固定资产登记簿").find("[期间：p10 --- p11]"), std::string::npos);
}

TEST_F(ReportRunTest, ShowsABoxInsteadOfTheOverAgeReport) {
  dialogs.expectOk("您已完成查询 [逾龄资产统计表]的操作。\r\r会计期间为：2020.01", Icon::Information,
                   "会计电算化考试专用");
  EXPECT_EQ(report("逾龄资产统计表"), "(nothing)\n");
  EXPECT_EQ(memos(), std::vector<std::string>{});
}

TEST_F(ReportRunTest, KeepsTheViewWithoutTheAccountSetsRow) {
  context.gstrAccountId = "999";
  ReportView view;
  fillViewHeader(context, conditions, view);
  EXPECT_EQ(view.unitLine, "Label1");
  EXPECT_TRUE(view.periods.empty());
}

TEST_F(ReportRunTest, AddsThePeriodsAgainToAViewThatIsStillThere) {
  ReportView view;
  conditions.periods[ConditionPage::SinglePeriod].from = "2020.03";
  fillViewHeader(context, conditions, view);
  fillViewHeader(context, conditions, view);
  EXPECT_EQ(view.periods.size(), 24u);
  EXPECT_EQ(view.selectedPeriod, 2u);
}

TEST_F(ReportRunTest, EndsInADivisionWhereNothingIsLeftOfTheValue) {
  keepBooks();
  execute("update fa_DeprTransactions set dblDeprT1=dblInputValue");
  EXPECT_EQ(report("固定资产使用状况分析表"), "error 6\n");
}

}  // namespace
}  // namespace zelkor::test
