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
  const struct {
    const char* increase;
    Lines shown;  // value after, residual value after, its increase
  } cases[] = {{"200", {"1200.00", "60.00", "10.00"}},
               {"-400.005", {"600.00", "30.00", "-20.00"}},
               {"", {"1000.00", "50.00", "0.00"}},
               {"1,000", {"2000.00", "100.00", "50.00"}},
               {"0.001", {"1000.00", "50.00", "0.00"}},
               {"二百", {"", "", ""}},
               {"1e999", {"", "", ""}}};
  ChangeSheets increases = sheets(ChangeKind::OriginalValue);
  ChangeSheet sheet = sheetFor(increases);
  for (const auto& c : cases) {
    sheet.increase = c.increase;
    sheet.recomputeValues();
    EXPECT_EQ(Lines({sheet.after.text, sheet.residualAfter, sheet.residualIncrease}), c.shown) << c.increase;
  }
}

TEST_F(SheetTest, AnIncreaseSavesVersionSheetAndRegisterRow) {
  ChangeSheets increases = sheets(ChangeKind::OriginalValue);
  expectTouched(increases, goodSheet(increases), {"fa_Cards +1", "fa_CardsSheets +1", "fa_Vouchers +1"});
  EXPECT_EQ(
      differences("sCardID='1'", "sCardID='2'"),
      (Lines{"sCardID: 1 > 2", "lOptID: 1 > 2", "dTransDate: ~ > 2020-5-15", "sOperator: 李录入 > 陈会计",
             "sVoucherNum: ~ > 00001", "dblValue: 1000 > 1200", "dblBV: 50 > 60"}));
  EXPECT_EQ(sheetRows(),
            Lines{"00001|00001|1|原值增加|原值增加|1|0|1000.00|1200.00|盘点|2020-5-15|陈会计|~|~"});
  EXPECT_EQ(registerRows(), Lines{"1|00001|00001|00001|2020-4-1|盘点|~|~"});
}

TEST_F(SheetTest, AnIncreaseSetsItsKindOnAVersionOfAnother) {
  saveGood(ChangeKind::UsageStatus);
  saveGood(ChangeKind::OriginalValue);
  EXPECT_EQ(rows("select sCardID,iOptType,sStatusID,dblValue from fa_Cards order by val(sCardID)"),
            (Lines{"1|1|11|1000", "2|10|21|1000", "3|1|21|1200"}));
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
  const Snapshot before = snapshotOf(db());
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
  EXPECT_EQ(touchedTables(before, snapshotOf(db())), Lines());
  expectSaved(saved("1", "It's"));  // no statement is joined from the reason
}

TEST_F(SheetTest, ADecreaseIsNotRefused) {
  ChangeSheets increases = sheets(ChangeKind::OriginalValue);
  ChangeSheet sheet = sheetFor(increases);
  sheet.increase = "-200";
  sheet.recomputeValues();
  expectSaved(increases.save(sheet));
  EXPECT_EQ(row("select dblValue,dblBV,dblNetValueAct from fa_Cards where sCardID='2'"), "800|40|1000");
}

TEST_F(SheetTest, AnIncreaseIsNumberedBehindTheCardAndNotBehindTheTable) {
  for (const char* other : {"00002", "00003"}) addCard(other);
  execute("insert into fa_Vouchers (sNum,lOptID) values ('00012',70)");
  saveGood(ChangeKind::OriginalValue);
  EXPECT_EQ(rows("select sCardID,sCardNum,lOptID from fa_Cards order by val(sCardID),sCardNum"),
            (Lines{"1|00001|1", "2|00001|2", "2|00002|2", "3|00003|3"}));
  EXPECT_EQ(row("select sNum,lOptID,lPreOptID from fa_Vouchers where sCardNum='00001'"), "00013|71|12");
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
  expectTouched(corrections, sheet,
                {"fa_Cards +1", "fa_DeprTransactions +2 -2", "fa_Total +2 -2", "fa_Vouchers +1"});
  EXPECT_EQ(differences("sCardID='1'", "sCardID='3'"),
            (Lines{"sCardID: 1 > 3", "lOptID: 1 > 3", "iOptType: 1 > 11", "dTransDate: ~ > 2020-5-15",
                   "sOperator: 李录入 > 陈会计", "sVoucherNum: ~ > 00001"}));
  EXPECT_EQ(sheetRows(),
            Lines{"00001|00001|3|累计折旧调整|累计折旧调整|5|0|95|100.1|盘点|2020-5-15|陈会计|~|~"});
  EXPECT_EQ(rows("select sCardNum,dblDeprT5,dblDeprT6 from fa_DeprTransactions order by sCardNum,dblDeprT5"),
            (Lines{"00001|0|100.1", "00001|95|100.1", "00002|95|0"}));
  EXPECT_EQ(rows("select sDeptNum,sTypeNum,iPeriod,dblDeprTotal from fa_Total order by sDeptNum,sTypeNum,"
                 "iPeriod"),
            (Lines{"301|021|5|1005.1", "301|021|6|1005.1", "301|022|5|1000", "302|021|5|1000"}));
}

TEST_F(SheetTest, AccumulatedDepreciationNeedsAReasonAndANumber) {
  ChangeSheets corrections = sheets(ChangeKind::AccumulatedDepr);
  ChangeSheet sheet = goodSheet(corrections);
  const Snapshot before = snapshotOf(db());
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
  EXPECT_EQ(touchedTables(before, snapshotOf(db())), Lines());
}

TEST_F(SheetTest, AFailureAtTheFirstStatementBehindTheCommitLeavesOutTheSecond) {
  execute("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblDeprTotal) values ('301','021',5,1)");
  failWrites("UPDATE ON fa_DeprTransactions");
  ChangeSheets corrections = sheets(ChangeKind::AccumulatedDepr);
  EXPECT_EQ(corrections.save(goodSheet(corrections)).outcome, Outcome::Failed);
  EXPECT_EQ(sheetRows().size(), 1U);
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
  EXPECT_EQ(sheetRows().size(), 1U);
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
  expectTouched(lives, goodSheet(lives), {"fa_Cards +1", "fa_Vouchers +1"});
  EXPECT_EQ(differences("sCardID='1'", "sCardID='2'"),
            (Lines{"sCardID: 1 > 2", "lOptID: 1 > 2", "iOptType: 1 > 12", "lLife: 60 > 72",
                   "dTransDate: ~ > 2020-5-15", "sOperator: 李录入 > 陈会计", "sVoucherNum: ~ > 00001"}));
  EXPECT_EQ(sheetRows(),
            Lines{"00001|00001|2|使用年限调整|使用年限调整|6|0|5年0月|6年0月|盘点|2020-5-15|陈会计|~|~"});
  ChangeSheet unchanged = sheetFor(lives);
  unchanged.after.text = unchanged.before.text;
  expectSaved(lives.save(unchanged));
  EXPECT_EQ(row("select lLife from fa_Cards where sCardID='3'"), "72");
}

TEST_F(SheetTest, LivesAreReadOrNot) {
  const struct {
    const char* text;
    int error;
    int months;
  } cases[] = {{"6年0月", 0, 72},   {"0年7月", 0, 7},   {"5.5年0月", 0, 66}, {"2730年7月", 0, 32767},
               {"2730年8月", 6, 0}, {"72", 5, 0},       {"6年", 5, 0},       {"6月", 5, 0},
               {"0月6年", 5, 0},    {"六年0月", 13, 0}, {"6年月", 13, 0},    {"", 5, 0}};
  for (const auto& c : cases) {
    int months = 0;
    EXPECT_EQ(errorOf([&] { months = monthsOnSheet(c.text); }), c.error) << c.text;
    EXPECT_EQ(months, c.months) << c.text;
  }
}

TEST_F(SheetTest, ALifeNeedsItsFormAndAReason) {
  ChangeSheets lives = sheets(ChangeKind::UsefulLife);
  ChangeSheet sheet = goodSheet(lives);
  const Snapshot before = snapshotOf(db());
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
  EXPECT_EQ(touchedTables(before, snapshotOf(db())), Lines());
}

TEST_F(SheetTest, AResidualValueIsShownAndNeverSaved) {
  ChangeSheets residuals = sheets(ChangeKind::ResidualValue);
  const ChangeSheet sheet = sheetFor(residuals);
  EXPECT_EQ(sheet.residualRate + " " + sheet.before.text, "5.00% 50.00");
  const Snapshot before = snapshotOf(db());
  const SheetResult result = residuals.save(sheet);
  EXPECT_EQ(result.outcome, Outcome::Nothing);
  EXPECT_FALSE(result.box);
  EXPECT_FALSE(engine.workspace().inTransaction());
  EXPECT_EQ(touchedTables(before, snapshotOf(db())), Lines());
  EXPECT_FALSE(residuals.mostRecent());
}

}  // namespace
}  // namespace zelkor::test
