#include "changes/UsefulLife.h"
#include "SheetFixture.h"

// The sheets that alter a number on the card.
namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;
using Outcome = SheetResult::Outcome;

TEST_F(SheetTest, AnIncreaseShowsTheCardAndItsFigures) {
  ChangeSheets increases = sheets(ChangeKind::OriginalValue);
  ChangeSheet sheet = increases.newSheet();
  EXPECT_EQ(sheet.number + " " + sheet.date + " " + sheet.operatorName, "00001 2020-05-15 陈会计");
  ASSERT_TRUE(increases.loadCard(CardKey::AssetNumber, "021000001", sheet).done());
  EXPECT_EQ(Lines({sheet.cardNum, sheet.assetNum, sheet.assetName, sheet.startDate, sheet.style}),
            Lines({"00001", "021000001", "车床", "2020-04-01", "C6140"}));
  EXPECT_EQ(Lines({sheet.currency, sheet.exchangeRate, sheet.residualRate, sheet.before.text,
                   sheet.residualBefore, sheet.residualAfter}),
            Lines({"人民币", "6.5", "5%", "1000.00", "50.00", "50.00"}));
  execute("update fa_Cards set dblExchangeRate=0,sStyle=Null");
  ASSERT_TRUE(increases.loadCard(CardKey::CardNumber, "00001", sheet).done());
  EXPECT_EQ(sheet.exchangeRate + sheet.style, "");
}

TEST_F(SheetTest, AnIncreaseCarriesTheResidualValueAlong) {
  ChangeSheets increases = sheets(ChangeKind::OriginalValue);
  ChangeSheet sheet = sheetFor(increases);
  for (const auto& one : casesIn("changes/increases.txt")) {
    sheet.increase = one[0];
    sheet.recomputeValues();
    EXPECT_EQ(Lines({one[0], sheet.after.text, sheet.residualAfter, sheet.residualIncrease}), one);
  }
}

TEST_F(SheetTest, AnIncreaseSavesVersionSheetAndRegisterRow) {
  expectWrites("original-value", ChangeKind::OriginalValue);
}

TEST_F(SheetTest, AnIncreaseSetsItsKindOnAVersionOfAnother) {
  saveGood(ChangeKind::UsageStatus);
  expectWrites("original-value-after-usage-status", ChangeKind::OriginalValue);
}

TEST_F(SheetTest, AnIncreaseIsRefusedOrFails) {
  const struct {
    const char* increase;
    const char* reason;
    const char* message;
  } cases[] = {{"", "盘点", "未增加原值！"},
               {"0.00", "盘点", "未增加原值！"},
               {"", "", "未增加原值！"},
               {"1", "", "变动原因不能为空！"}};
  ChangeSheets increases = sheets(ChangeKind::OriginalValue);
  ChangeSheet sheet = sheetFor(increases);
  const Books before = booksOf(db());
  const auto saved = [&](const char* increase, const char* reason) {
    sheet.increase = increase;
    sheet.reason = reason;
    sheet.recomputeValues();
    return increases.save(sheet);
  };
  for (const auto& c : cases) expectRefused(saved(c.increase, c.reason), c.message);
  const SheetResult noNumber = saved("二百", "盘点");
  EXPECT_EQ(noNumber.outcome, Outcome::Failed);
  EXPECT_EQ(noNumber.box->text, "类型不匹配");
  EXPECT_EQ(changesText(before, booksOf(db())), "");
  expectSaved(saved("1", "It's"));  // no statement is joined from the reason
}

TEST_F(SheetTest, ADecreaseIsNotRefused) {
  ChangeSheets increases = sheets(ChangeKind::OriginalValue);
  ChangeSheet sheet = sheetFor(increases);
  sheet.increase = "-200";
  sheet.recomputeValues();
  expectWrites("original-value-decrease", increases, sheet);
}

TEST_F(SheetTest, AnIncreaseIsNumberedBehindTheCardAndNotBehindTheTable) {
  for (const char* other : {"00002", "00003"}) addCard(other);
  execute("insert into fa_Vouchers (sNum,lOptID) values ('00012',70)");
  expectWrites("original-value-numbers", ChangeKind::OriginalValue);
}

TEST_F(SheetTest, TheRegisterCountsFromItsLastTextualNumber) {
  for (int sheet = 1; sheet <= 12; ++sheet) saveGood(ChangeKind::OriginalValue);
  EXPECT_EQ(rows("select sID from fa_CardsSheets order by val(sID)"),
            (Lines{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "10", "10"}));
}

TEST_F(SheetTest, AccumulatedDepreciationIsFoundInTheNewestSheetOrOnTheCard) {
  ChangeSheets corrections = sheets(ChangeKind::AccumulatedDepr);
  EXPECT_EQ(sheetFor(corrections).before.text, "95");
  saveGood(ChangeKind::AccumulatedDepr);
  EXPECT_EQ(sheetFor(corrections).before.text, "120");
  ChangeSheet sheet = corrections.newSheet();
  ASSERT_TRUE(corrections.loadCard(CardKey::AssetNumber, "021000001", sheet).done());
  EXPECT_EQ(sheet.before.text, "120");
  execute("update fa_Vouchers set lOptID=77");
  EXPECT_EQ(sheetFor(corrections).before.text, "95") << "a sheet that does not join is not seen";
  execute("update fa_Cards set dblTransInDeprTCard=0");
  expectRefused(corrections.loadCard(CardKey::CardNumber, "00001", sheet), "当前卡片已不存在！");
}

TEST_F(SheetTest, AccumulatedDepreciationCorrectsTheLedgersBehindTheCommit) {
  addCard("00002");
  execute("insert into fa_DeprTransactions (sCardNum,dblDeprT6) values ('00001',1)");
  for (const char* key : {"'301','021',5", "'301','021',6", "'302','021',5", "'301','022',5"}) {
    execute(sql("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblDeprTotal) values (", key, ",1000)"));
  }
  ChangeSheets corrections = sheets(ChangeKind::AccumulatedDepr);
  ChangeSheet sheet = goodSheet(corrections);
  sheet.after.text = "100.1";
  expectWrites("accumulated-depreciation", corrections, sheet);
}

TEST_F(SheetTest, AccumulatedDepreciationNeedsAReasonAndANumber) {
  ChangeSheets corrections = sheets(ChangeKind::AccumulatedDepr);
  ChangeSheet sheet = goodSheet(corrections);
  const Books before = booksOf(db());
  sheet.reason = "";
  expectRefused(corrections.save(sheet), "变动原因不能为空", "保存:累计折旧调整");
  sheet.reason = "盘点";
  for (const char* text : {"", "一百", "12元"}) {
    sheet.after.text = text;
    const SheetResult result = corrections.save(sheet);
    EXPECT_EQ(result.outcome, Outcome::Failed) << text;
    EXPECT_FALSE(result.toolbarAsSaved);
    EXPECT_EQ(result.box->text, "类型不匹配");
  }
  EXPECT_EQ(changesText(before, booksOf(db())), "");
}

TEST_F(SheetTest, AFailureAtTheFirstStatementBehindTheCommitLeavesOutTheSecond) {
  execute("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblDeprTotal) values ('301','021',5,1)");
  failWrites("UPDATE ON fa_DeprTransactions");
  ChangeSheets corrections = sheets(ChangeKind::AccumulatedDepr);
  EXPECT_EQ(corrections.save(goodSheet(corrections)).outcome, Outcome::Failed);
  EXPECT_EQ(row("select count(*) from fa_Vouchers"), "1");
  EXPECT_EQ(row("select dblDeprT6 from fa_DeprTransactions"), "0");
  EXPECT_EQ(row("select dblDeprTotal from fa_Total"), "1");
}

TEST_F(SheetTest, AFailureBehindTheCommitLeavesTheSheet) {
  execute("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblDeprTotal) values ('301','021',5,1)");
  failWrites("UPDATE ON fa_Total");
  ChangeSheets corrections = sheets(ChangeKind::AccumulatedDepr);
  const SheetResult result = corrections.save(goodSheet(corrections));
  EXPECT_EQ(result.outcome, Outcome::Failed);
  EXPECT_TRUE(result.toolbarAsSaved) << "or the sheet could be saved again under its number";
  EXPECT_NE(result.box->text, "");
  EXPECT_EQ(row("select count(*) from fa_Vouchers"), "1");
  EXPECT_EQ(row("select count(*) from fa_Cards"), "2");
  EXPECT_EQ(row("select dblDeprT6 from fa_DeprTransactions"), "120");
  EXPECT_EQ(row("select dblDeprTotal from fa_Total"), "1");
  EXPECT_FALSE(engine.workspace().inTransaction());
}

TEST_F(SheetTest, AVersionOfTheHighestNumberCountsByItsNumber) {
  addCard("00002");
  execute("update fa_Cards set sCardID='9' where sCardNum='00001'");
  execute("update fa_Cards set sCardID='10' where sCardNum='00002'");
  saveGood(ChangeKind::UsefulLife);
  EXPECT_EQ(row("select sCardID,lOptID from fa_Cards where iOptType=12"), "11|11");
}

TEST_F(SheetTest, ALifeIsShownAndSavedInYearsAndMonths) {
  ChangeSheets lives = sheets(ChangeKind::UsefulLife);
  EXPECT_EQ(sheetFor(lives).before.text, "5年0月");
  expectWrites("useful-life", lives, goodSheet(lives));
  ChangeSheet unchanged = sheetFor(lives);
  unchanged.after.text = unchanged.before.text;
  expectSaved(lives.save(unchanged));
  EXPECT_EQ(row("select lLife from fa_Cards where sCardID='3'"), "72");
}

TEST_F(SheetTest, LivesAreReadOrNot) {
  for (const auto& one : casesIn("changes/lives.txt")) {
    int months = 0;
    const int error = errorOf([&] { months = monthsOnSheet(one[0]); });
    EXPECT_EQ(error == 0 ? std::to_string(months) : "error " + std::to_string(error), one[1]) << one[0];
  }
}

TEST(UsefulLifeTest, ATypedLifeIsCompleted) {
  const std::pair<const char*, const char*> cases[] = {{"", ""},
                                                       {"6", "6年0月"},
                                                       {"6年", "6年0月"},
                                                       {"年6月", "0年6月"},
                                                       {"6年月", "6年0月"},
                                                       {"6年3月", "6年3月"}};
  for (const auto& [typed, life] : cases) EXPECT_EQ(completedLife(typed), life);
}

TEST_F(SheetTest, ALifeNeedsItsFormAndAReason) {
  ChangeSheets lives = sheets(ChangeKind::UsefulLife);
  ChangeSheet sheet = goodSheet(lives);
  const Books before = booksOf(db());
  sheet.reason = "";
  expectRefused(lives.save(sheet), "变动原因不能为空", "保存:使用年限调整");
  const std::pair<const char*, const char*> cases[] = {
      {"72", "无效的过程调用或参数"}, {"六年0月", "类型不匹配"}, {"3000年0月", "溢出"}};
  for (const auto& [life, message] : cases) {
    sheet.after.text = life;
    const SheetResult result = lives.save(sheet);
    EXPECT_EQ(result.outcome, Outcome::Failed) << life;
    EXPECT_EQ(result.box->text, message);
  }
  EXPECT_EQ(changesText(before, booksOf(db())), "");
}

TEST_F(SheetTest, AResidualValueIsShownAndNeverSaved) {
  ChangeSheets residuals = sheets(ChangeKind::ResidualValue);
  const ChangeSheet sheet = sheetFor(residuals);
  EXPECT_EQ(sheet.residualRate + " " + sheet.before.text, "5.00% 50.00");
  const Books before = booksOf(db());
  const SheetResult result = residuals.save(sheet);
  EXPECT_EQ(result.outcome, Outcome::Nothing);
  EXPECT_FALSE(result.box);
  EXPECT_FALSE(engine.workspace().inTransaction());
  EXPECT_EQ(changesText(before, booksOf(db())), "");
  EXPECT_FALSE(residuals.mostRecent());
}

}  // namespace
}  // namespace zelkor::test
