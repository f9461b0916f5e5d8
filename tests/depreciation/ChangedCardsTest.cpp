#include "changes/BalanceSheet.h"
#include "changes/ChangeSheets.h"
#include "DepreciationFixture.h"
#include "support/MonthlyRun.h"

// What a change sheet does to the depreciation of the month.
namespace zelkor::test {
namespace {

class ChangedCardsTest : public DepreciationTest {
 protected:
  ChangedCardsTest() {
    add({.cardNum = "00001", .cardID = "1"}, "500");
    execute(
        "update fa_Cards set lOptID=1,sStatusID='11',dInputDate=#2020-1-15#,dblTransInDeprTCard=500,"
        "dblNetValueAct=100000");
  }

  /// Amount and accumulated depreciation of May, and the department that bears it.
  std::string month() { return ledger("00001", "dblDepr5,dblDeprT5") + " " + allocationRows().front(); }

  void change(ChangeKind kind) {
    ChangeSheets sheets(context, kind);
    ChangeSheet sheet = sheets.newSheet();
    ASSERT_TRUE(sheets.loadCard(CardKey::CardNumber, "00001", sheet).done());
    sheet.reason = "x";
    sheet.increase = "20000";
    if (kind == ChangeKind::OriginalValue) sheet.recomputeValues();
    if (kind == ChangeKind::UsageStatus) sheet.after = {"未使用", "21"};
    if (kind == ChangeKind::AccumulatedDepr) sheet.after.text = "700";
    if (kind == ChangeKind::UsefulLife) sheet.after.text = "5年0月";
    if (kind == ChangeKind::Transfer) sheet.chooseDepartment("302", "二车间");
    ASSERT_TRUE(sheets.save(sheet).done());
  }
  void changeMethod() {
    ClsBLLBalance balance(context);
    balance.setZkDataPath(context.gstrZtFile);
    BalanceSheet sheet = newBalanceSheet(balance, context.gdOpDate, "陈会计");
    ASSERT_TRUE(loadBalanceCard(db(), "00001", sheet));
    sheet.methodAfter = "年数总和法";
    sheet.methodAfterID = "5";
    sheet.reason = "x";
    ASSERT_TRUE(saveBalance(balance, sheet).saved);
  }
};

constexpr const char* kUnchanged = "790|1290 301|021|790";

TEST_F(ChangedCardsTest, ASheetBehindTheRunChangesNothingUntilTheNext) {
  const struct {
    ChangeKind kind;
    const char* after;
  } cases[] = {{ChangeKind::OriginalValue, "948|1448 301|021|948"},  // 120000 at 0.0079
               {ChangeKind::UsageStatus, kUnchanged},
               {ChangeKind::UsefulLife, "1580|2080 301|021|1580"},  // 0.0158
               {ChangeKind::Transfer, "790|1290 302|021|790"}};
  for (const auto& c : cases) {
    execute("delete from fa_Cards where sCardID<>'1'");
    execute("delete from fa_Vouchers");
    runMonth(context, dialogs);
    EXPECT_EQ(month(), kUnchanged);
    change(c.kind);
    EXPECT_EQ(month(), kUnchanged) << captionOf(c.kind);
    runMonth(context, dialogs);
    EXPECT_EQ(month(), c.after) << captionOf(c.kind);
  }
}

TEST_F(ChangedCardsTest, CorrectedDepreciationStandsInTheMonthOfTheSystemDate) {
  runMonth(context, dialogs);
  change(ChangeKind::AccumulatedDepr);
  EXPECT_EQ(ledger("00001", "dblDeprT5,dblDeprT6"), "1290|700") << "the system's month is June";
  runMonth(context, dialogs);
  EXPECT_EQ(month(), kUnchanged);
  clock.set(day("2020-5-20"));
  change(ChangeKind::AccumulatedDepr);
  EXPECT_EQ(ledger("00001", "dblDeprT5,dblDeprT6"), "700|700");
  clock.set(day("2020-6-1 8:30:00"));
  runMonth(context, dialogs);
  EXPECT_EQ(month(), kUnchanged) << "the opening total of the month is what a run goes from";
}

TEST_F(ChangedCardsTest, ANewMethodCountsInTheNextRun) {
  runMonth(context, dialogs);
  changeMethod();
  EXPECT_EQ(month(), kUnchanged);
  runMonth(context, dialogs);
  // 10 years, 55 in their sum: 120 / (55 * 120) is 0.0182 of 95000.
  EXPECT_EQ(month(), "1729|2229 301|021|1729");
}

TEST_F(ChangedCardsTest, ASplitCardGetsNoAllocationSinceNoDepartmentHasItsCodes) {
  ChangeSheets sheets(context, ChangeKind::Transfer);
  ChangeSheet sheet = sheets.newSheet();
  ASSERT_TRUE(sheets.loadCard(CardKey::CardNumber, "00001", sheet).done());
  DepartSplit split;
  ASSERT_FALSE(
      confirmSplit({{"301", "一车间", "60", "", "", ""}, {"302", "二车间", "40", "", "", ""}}, split));
  sheet.chooseSplit(split);
  ASSERT_TRUE(sheets.save(sheet).done());
  runMonth(context, dialogs);
  EXPECT_EQ(month(), kUnchanged) << "the row left behind is the newest whose department is known";
}

}  // namespace
}  // namespace zelkor::test
