#include "reports/ConditionPages.h"
#include "reports/ReportFixture.h"

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
  struct Case {
    const char* report;
    std::vector<std::string> memo;
  };
  const Case cases[] = {
      {"部门构成分析表", {}},
      {"固定资产使用状况分析表", {"固定资产：固定资产使用状况分析表,p1"}},
      {"(部门)折旧计提汇总表", {"固定资产：(部门)折旧计提汇总表,p2"}},
      {"固定资产统计表", {"固定资产：固定资产统计表,p3"}},
      {"盘盈盘亏报告表", {}},
      {"评估变动表", {}},
      {"评估汇总表", {}},
      {"役龄资产统计表", {}},
      {"固定资产总账", {"固定资产：固定资产总账,p8,机器设备,生产部"}},
      {"(单个)固定资产明细账", {"固定资产：(单个)固定资产明细账,p9,机器设备,生产部"}},
      {"(部门、类别)明细账", {"固定资产：(部门、类别)明细账,p10,机器设备,生产部"}},
      {"固定资产登记簿", {"固定资产：固定资产登记簿,p10,机器设备,生产部"}},
      {"固定资产及累计折旧表(二)", {"固定资产：固定资产及累计折旧表(二),p11,机器设备"}},
      {"固定资产折旧计算明细表", {"固定资产：固定资产折旧计算明细表,p12,生产部"}},
      {"固定资产折旧期间统计表", {}},
  };
  for (const Case& c : cases) {
    execute("delete from Fa_log");
    const bool nothing = report(c.report) == "(nothing)\n";
    EXPECT_EQ(nothing, findReport(c.report)->build == nullptr) << c.report;
    EXPECT_EQ(memos(), c.memo) << c.report;
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
