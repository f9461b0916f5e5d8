#include "SheetFixture.h"

// What the kinds of sheet have in common, and what tells them apart there.
namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;
using Outcome = SheetResult::Outcome;

constexpr ChangeKind kSavedKinds[] = {ChangeKind::OriginalValue, ChangeKind::UsageStatus,
                                      ChangeKind::AccumulatedDepr, ChangeKind::UsefulLife,
                                      ChangeKind::Transfer};

class SheetFrameTest : public SheetTest {
 protected:
  /// Makes the write of this number fail, counted from 1 within a transaction; 0 none.
  void failAtWrite(int number) {
    bare(
        "CREATE TABLE IF NOT EXISTS zk_count(n INTEGER, failAt INTEGER); DELETE FROM zk_count;"
        "INSERT INTO zk_count VALUES (0," +
        std::to_string(number) + ")");
  }
  /// What the sheet shows.
  static std::string sheetText(const ChangeSheet& sheet) {
    return sql("sheet ", sheet.number, " of ", sheet.date, " by ", sheet.operatorName, ": card ",
               sheet.cardNum, " ", sheet.assetNum, " ", sheet.assetName, " since ", sheet.startDate, " at ",
               sheet.siteBefore, "\n  ", sheet.before.text, " > ", sheet.after.text, ", ", sheet.increase,
               " more, ", sheet.siteAfter, "\n  residual value ", sheet.residualBefore, " > ",
               sheet.residualAfter, ", ", sheet.residualIncrease, " more\n  reason: ", sheet.reason, "\n");
  }
  void watchWrites() {
    failAtWrite(0);
    for (const char* table : {"fa_Cards", "fa_Vouchers", "fa_CardsSheets", "fa_DeptScale", "fa_Cards_Detail",
                              "fa_DeprTransactions", "fa_Total"}) {
      failWrites(sql("INSERT ON ", table), "UPDATE zk_count SET n=n+1", "(SELECT n=failAt FROM zk_count)");
    }
  }
};

TEST_F(SheetFrameTest, ASaveWaitsForAServerAFewTimes) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  addCard("00002");
  std::vector<std::uint64_t> waits;
  for (const ChangeKind kind : kSavedKinds) {
    saveGood(kind, "00002");
    ChangeSheets kindOfSheets = sheets(kind);
    const ChangeSheet sheet = goodSheet(kindOfSheets);
    const std::uint64_t before = db().waits();
    expectSaved(kindOfSheets.save(sheet));
    engine.flush();
    waits.push_back(db().waits() - before);
  }
  EXPECT_EQ(waits, (std::vector<std::uint64_t>{4, 4, 5, 4, 5})) << "forced to disk included";
}

TEST_F(SheetFrameTest, AUsageStatusIsShownByNameAndSavedById) {
  ChangeSheets statuses = sheets(ChangeKind::UsageStatus);
  const ChangeSheet sheet = goodSheet(statuses);
  EXPECT_EQ(sheet.before.text + " " + sheet.before.tag, "在用 11");
  expectWrites("usage-status", statuses, sheet);
}

TEST_F(SheetFrameTest, AUsageStatusMustChangeButNeedsNoReason) {
  ChangeSheets statuses = sheets(ChangeKind::UsageStatus);
  ChangeSheet sheet = goodSheet(statuses);
  sheet.after = sheet.before;
  expectRefused(statuses.save(sheet), "变动后内容不应和变动前内容相同！");
  sheet.after = {"未使用", "21"};
  sheet.reason = "";
  sheet.before.text = "";
  expectRefused(statuses.save(sheet), "变动原因不能为空！");
  sheet.before.text = "在用";
  expectSaved(statuses.save(sheet));
}

TEST_F(SheetFrameTest, AllKindsShareOneNumbering) {
  execute("insert into fa_Vouchers (sNum) values ('00012')");
  for (const ChangeKind kind : kSavedKinds) saveGood(kind);
  EXPECT_EQ(rows("select sNum,iVoucherType,lPreOptID from fa_Vouchers order by sNum"),
            (Lines{"00012|~|~", "00013|1|12", "00014|4|13", "00015|5|14", "00016|6|15", "00017|7|16"}));
}

TEST_F(SheetFrameTest, AFailureAtAnyWriteLeavesNoRow) {
  execute("insert into fa_Total (sDeptNum,sTypeNum,iPeriod,dblDeprTotal) values ('301','021',5,1)");
  watchWrites();
  const std::pair<ChangeKind, int> writes[] = {{ChangeKind::OriginalValue, 3},
                                               {ChangeKind::UsageStatus, 3},
                                               {ChangeKind::AccumulatedDepr, 2},
                                               {ChangeKind::UsefulLife, 2},
                                               {ChangeKind::Transfer, 7}};
  for (const auto& [kind, count] : writes) {
    ChangeSheets kindOfSheets = sheets(kind);
    const ChangeSheet sheet = goodSheet(kindOfSheets);
    const Books before = booksOf(db());
    for (int write = 1; write <= count; ++write) {
      failAtWrite(write);
      const SheetResult result = kindOfSheets.save(sheet);
      EXPECT_EQ(result.outcome, Outcome::Failed) << captionOf(kind) << " write " << write;
      EXPECT_NE(result.box.value_or(MessageBox{}).text, "");
      EXPECT_FALSE(result.toolbarAsSaved);
      EXPECT_FALSE(engine.workspace().inTransaction());
      EXPECT_EQ(changesText(before, booksOf(db())), "") << captionOf(kind) << " write " << write;
    }
    failAtWrite(count + 1);
    expectSaved(kindOfSheets.save(sheet));  // with the card that is still loaded
  }
}

TEST_F(SheetFrameTest, ARefusedSheetLeavesAnUnlockedTransactionThatTheNextCommits) {
  addCard("00002");
  ChangeSheets statuses = sheets(ChangeKind::UsageStatus);
  ChangeSheet refused = goodSheet(statuses);
  refused.after = refused.before;
  expectRefused(statuses.save(refused), "变动后内容不应和变动前内容相同！");
  EXPECT_TRUE(engine.workspace().inTransaction());

  // Another workstation writes meanwhile, and what it writes is seen.
  bare("UPDATE fa_Status SET sName='改名' WHERE sID='11'");
  ChangeSheet sheet = goodSheet(statuses, "00002");
  EXPECT_EQ(sheet.before.text, "改名");
  expectSaved(statuses.save(sheet));
  EXPECT_FALSE(engine.workspace().inTransaction());
  DbEngine elsewhere;
  EXPECT_EQ(rowsOf(elsewhere.OpenDatabase(context.gstrZtFile)
                       .OpenRecordset("select sCardNum,sStatusID from fa_Cards where iOptType=10")),
            Lines{"00002|21"});
}

TEST_F(SheetFrameTest, TheVersionShownIsTheOneCopied) {
  ChangeSheets lives = sheets(ChangeKind::UsefulLife);
  const ChangeSheet sheet = goodSheet(lives);
  execute("update fa_Cards set sSite='别处'");
  expectSaved(lives.save(sheet));
  EXPECT_EQ(row("select sSite from fa_Cards where iOptType=12"), "东区");
}

TEST_F(SheetFrameTest, WithoutACardNothingIsSaved) {
  for (const ChangeKind kind : kSavedKinds) {
    ChangeSheets kindOfSheets = sheets(kind);
    ChangeSheet sheet = goodSheet(kindOfSheets);
    kindOfSheets.newSheet();
    EXPECT_EQ(kindOfSheets.save(sheet).outcome, Outcome::Failed) << captionOf(kind);
  }
  EXPECT_EQ(row("select count(*) from fa_Vouchers"), "0");
}

TEST_F(SheetFrameTest, AnUnknownCardOrAQuoteFindsNothing) {
  for (const ChangeKind kind : kSavedKinds) {
    ChangeSheets kindOfSheets = sheets(kind);
    ChangeSheet sheet = kindOfSheets.newSheet();
    expectRefused(kindOfSheets.loadCard(CardKey::CardNumber, "99999", sheet), "当前卡片已不存在！");
    const SheetResult quote = kindOfSheets.loadCard(CardKey::AssetNumber, "0'1", sheet);
    EXPECT_EQ(quote.outcome, Outcome::Failed);
    EXPECT_NE(quote.box->text.find("语法错误"), std::string::npos) << quote.box->text;
  }
}

TEST_F(SheetFrameTest, TheVersionInForceFollowsEveryKind) {
  const std::pair<ChangeKind, const char*> cases[] = {{ChangeKind::OriginalValue, "2|1|301"},
                                                      {ChangeKind::UsageStatus, "3|10|301"},
                                                      {ChangeKind::AccumulatedDepr, "4|11|301"},
                                                      {ChangeKind::UsefulLife, "5|12|301"},
                                                      {ChangeKind::Transfer, "7|7|302"}};
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  for (const auto& [kind, inForce] : cases) {
    const auto listed = [&] { return textsOf(transfers.cardList()).size(); };
    saveGood(kind);
    EXPECT_EQ(listed(), 2U) << "one card under the heading";
    const Recordset version = db().OpenRecordset(versionsInForce(context.gdOpDate));
    EXPECT_EQ(version.Text("sCardID") + "|" + version.Text("iOptType") + "|" + version.Text("sDeptNum"),
              inForce);
    const Recordset earlier = db().OpenRecordset(versionsInForce(day("2020-5-14")));
    EXPECT_TRUE(earlier.Eof()) << "the card was entered on the 15th";
  }
}

TEST_F(SheetFrameTest, TheMostRecentSheetIsShown) {
  for (const ChangeKind kind : kSavedKinds) EXPECT_FALSE(sheets(kind).mostRecent()) << captionOf(kind);
  addCard("00002");
  for (const ChangeKind kind : kSavedKinds) saveGood(kind);
  for (const ChangeKind kind : kSavedKinds) saveGood(kind, "00002");
  std::string shown;
  for (const ChangeKind kind : kSavedKinds) shown += sheetText(sheets(kind).mostRecent().value());
  expectGolden("changes/golden/most-recent-sheets.txt", shown);
  execute("update fa_Cards set sCardID='95' where sCardNum='00001' and iOptType=7");
  const ChangeSheet whole = sheets(ChangeKind::Transfer).mostRecent().value();
  EXPECT_EQ(Lines({whole.cardNum, whole.assetNum, whole.assetName, whole.startDate, whole.siteBefore}),
            Lines({"00002", "021000002", "车床", "2020-04-01", "西区"}))
      << "though another card has the highest number";
}

TEST_F(SheetFrameTest, TheMostRecentIncreaseIsTheLastByTextualNumber) {
  addCard("00002");
  saveGood(ChangeKind::OriginalValue, "00002");
  saveGood(ChangeKind::OriginalValue, "00001");
  expectGolden("changes/golden/most-recent-increase.txt",
               sheetText(sheets(ChangeKind::OriginalValue).mostRecent().value()));
}

}  // namespace
}  // namespace zelkor::test
