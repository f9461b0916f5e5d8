#include "reports/ConditionPages.h"
#include "reports/ConditionTexts.h"
#include "reports/ReportFixture.h"
#include "store/engine/Statement.h"
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

// What a report was asked for is told by texts from which the same conditions come.
TEST_F(ReportRunTest, ConditionsGoThroughTheirTexts) {
  conditions.department = {"3", "生产部"};
  conditions.type = {"02", "机器设备"};
  conditions.compositionLevel = CompositionLevel::Detail;
  conditions.statisticsLayout = StatisticsLayout::ByType;
  conditions.typeLevel = "明细级";
  for (LevelRange* levels : {&conditions.departmentRange, &conditions.typeRange, &conditions.periodTypeRange})
    *levels = {"1", "2"};
  for (auto& [page, periods] : conditions.periods) periods = {"2020.02", "2020.04"};
  for (const ReportKind& kind : reportKinds()) {
    const auto texts = conditionTexts(kind, conditions);
    EXPECT_EQ(conditionTexts(kind, readConditions(context, kind, texts)), texts) << kind.name;
    EXPECT_EQ(texts.front(), "period=2020.02") << kind.name;
  }
  EXPECT_EQ(conditionTexts(*findReport("固定资产总账"), conditions),
            (std::vector<std::string>{"period=2020.02", "period-to=2020.04", "department=3", "category=02"}));
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

class ReportWaitsTest : public ReportTest {
 protected:
  void keepFewBooks() {
    keepBooks();
    execute("delete from fa_Cards where sCardNum>'00010'");
  }
  /// A hundred departments, thirty categories, a hundred ways and statuses, five hundred lines of cards.
  void growBooks() {
    std::vector<std::string> departments;
    for (int n = 0; n < 104; ++n) {
      const std::string parent(1, static_cast<char>('A' + n % 26));
      departments.push_back(parent + (n < 26 ? std::string() : sql(n)));
      execute(sql("insert into fa_Departments (sNum,sName,sParentNum) values ('", departments.back(),
                  "','d','", n < 26 ? "" : parent, "')"));
      execute(sql("insert into fa_Origins (sID,sName,iType) values ('1", 100 + n, "','w',1)"));
      execute(sql("insert into fa_Status (sID,sName) values ('9", 100 + n, "','s')"));
    }
    for (int n = 0; n < 30; ++n)
      execute(sql("insert into fa_AssetTypes (sNum,sName,iLife) values ('", 60 + n, "','t',120)"));
    for (std::size_t n = 0; n < 490; ++n)
      addVersion("00001",
                 {{"sDeptNum", departments[n % departments.size()]}, {"sTypeNum", sql(60 + n % 30)}});
  }
  /// Of a process that computes nothing but this report.
  std::uint64_t waitsOf(const std::string& name) {
    context.dbZKData.Close();
    context.dbZKSystem.Close();
    context.dbZKData = engine.OpenDatabase(context.gstrZtFile);
    context.dbZKSystem = engine.OpenDatabase(context.gstrZkSysFile);
    const std::uint64_t before = context.dbZKData.waits() + context.dbZKSystem.waits();
    EXPECT_NE(report(name), "");
    return context.dbZKData.waits() + context.dbZKSystem.waits() - before;
  }
};

// The numbers of lines and of what the archives hold make no difference.
TEST_F(ReportWaitsTest, WaitsForAServerAFewTimes) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  keepFewBooks();
  conditions.departmentRange = {"1", "2"};
  dialogs.expectOk("您已完成查询 [逾龄资产统计表]的操作。\r\r会计期间为：2020.01", Icon::Information,
                   "会计电算化考试专用");
  std::vector<std::string> table;
  for (const ReportKind& kind : reportKinds())
    table.push_back(sql(kind.name, "\t", waitsOf(std::string(kind.name))));
  growBooks();
  dialogs.expectOk("您已完成查询 [逾龄资产统计表]的操作。\r\r会计期间为：2020.01", Icon::Information,
                   "会计电算化考试专用");
  std::string text = "# report, waits over few lines, over many\n";
  for (std::size_t i = 0; i < table.size(); ++i)
    text += sql(table[i], "\t", waitsOf(std::string(reportKinds()[i].name)), "\n");
  expectGolden("reports/golden/waits.txt", text);
}

}  // namespace
}  // namespace zelkor::test
