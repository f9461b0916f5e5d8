#include <gtest/gtest.h>

#include "faults/Desk.h"
#include "startup/Main.h"
#include "support/AccountSetFixture.h"

// Two bookkeepers on one account set, step by step: which numbers both of them get, what each sees of the
// other, and who waits for whom.
namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;

/// A run of its own on the account set, with a connection of its own.
struct DeskRun {
  DeskRun(const KeptAccountSet& set, const std::string& user) {
    prepareRun(context, set.argument("5", user));
    cards.setZkDataPath(context.gstrZtFile);
  }

  Lines rows(const std::string& query) { return rowsOf(context.dbZKData.OpenRecordset(query)); }
  std::string nextCardNum() {
    std::int32_t length = 0;
    return cards.GetNewCardNum(length);
  }
  bool save(const std::string& cardNum, const std::string& name) {
    CardValues card = newCard("301", name, "1000");
    card[CardField::CardNumber] = cardNum;
    card[CardField::AssetNumber] = "022" + cardNum;
    card[CardField::Location].clear();
    return cards.SaveNewCard(card, 1, NewCardType::AddedInPeriod, CardLayout::Ordinary);
  }
  void flush() { engine.flush(); }
  Workspace& workspace() { return engine.workspace(); }

  DbEngine engine;
  ScriptedDialogs dialogs;
  FixedClock clock{day("2020-2-1")};
  RunContext context{engine, dialogs, clock};
  ClsBLLFACards cards{context};
};

class TwoDesksTest : public testing::Test {
 protected:
  void flush() {
    one.flush();
    two.flush();
  }

  KeptAccountSet set;
  DeskRun one{set, "甲"};
  DeskRun two{set, "乙"};
};

// The card number is read when the screen opens and stored when it is saved; what is read in the save itself
// is the next one of what the other has saved.
TEST_F(TwoDesksTest, ScreensOpenAtOnceGiveOneCardNumberTwice) {
  const std::string first = one.nextCardNum();
  const std::string second = two.nextCardNum();
  EXPECT_EQ(first, second);
  EXPECT_TRUE(one.save(first, "车床"));
  one.flush();
  EXPECT_TRUE(two.save(second, "铣床"));
  flush();
  EXPECT_EQ(one.rows("select sCardNum,sAssetName,sCardID,lOptID from fa_Cards"),
            (Lines{"00001|车床|1|1", "00001|铣床|2|2"}));
  EXPECT_EQ(two.rows("select sID,sCardID from fa_Cards_Detail order by sID"), (Lines{"1|1", "2|2"}));
  EXPECT_EQ(two.rows("select coutid,inid,md,mc from fa_ZWVouchers order by i_id"),
            (Lines{"00000000000000000001|1|1000|0", "00000000000000000001|2|0|1000",
                   "00000000000000000002|1|1000|0", "00000000000000000002|2|0|1000"}));
  EXPECT_EQ(one.nextCardNum(), "00002");
}

// What a sheet copies is the version that its screen has shown: the other's sheet of meanwhile is not in it.
TEST_F(TwoDesksTest, SheetsOpenAtOnceGiveOneNumberTwiceAndBothStay) {
  ASSERT_TRUE(one.save("00001", "车床"));
  one.flush();
  ChangeSheets values(one.context, ChangeKind::OriginalValue);
  ChangeSheets statuses(two.context, ChangeKind::UsageStatus);
  ChangeSheet raised = values.newSheet();
  ChangeSheet laidUp = statuses.newSheet();
  values.loadCard(CardKey::CardNumber, "00001", raised);
  statuses.loadCard(CardKey::CardNumber, "00001", laidUp);
  raised.increase = "200";
  raised.recomputeValues();
  laidUp.after = {"未使用", "21"};
  raised.reason = laidUp.reason = "盘点";
  EXPECT_TRUE(values.save(raised).done());
  EXPECT_TRUE(statuses.save(laidUp).done());
  EXPECT_EQ(one.rows("select sNum,sVoucherName,sOperatorVou from fa_Vouchers"),
            (Lines{"00001|原值增加|甲", "00001|使用状况调整|乙"}));
  EXPECT_EQ(
      two.rows("select sCardID,lOptID,iOptType,dblValue,sStatusID,sOperator from fa_Cards where iOptType>1 "
               "or dblValue>1000"),
      (Lines{"2|2|1|1200|11|甲", "2|2|10|1000|21|乙"}));
  EXPECT_EQ(values.newSheet().number, "00002");
}

// Begun before the checks, the transaction of a refused sheet stays open for as long as its screen.
TEST_F(TwoDesksTest, ARefusedSheetHoldsNothingAndSeesEverything) {
  ASSERT_TRUE(one.save("00001", "车床"));
  one.flush();
  ChangeSheets sheets(one.context, ChangeKind::OriginalValue);
  ChangeSheet sheet = sheets.newSheet();
  sheets.loadCard(CardKey::CardNumber, "00001", sheet);
  EXPECT_EQ(sheets.save(sheet).outcome, SheetResult::Outcome::Refused);
  ASSERT_TRUE(one.workspace().inTransaction());

  EXPECT_TRUE(two.save("00002", "铣床"));
  two.context.dbZKData.Execute("update fa_Cards set sSite='西区' where sCardNum='00001'");
  two.flush();
  EXPECT_EQ(one.rows("select sCardNum,sSite from fa_Cards order by sCardNum"),
            (Lines{"00001|西区", "00002|"}));
}

// A transaction that has written does not hold readers up; they see what was there before.
TEST_F(TwoDesksTest, ReadersDoNotWaitForATransaction) {
  ASSERT_TRUE(one.save("00001", "车床"));
  one.flush();
  one.workspace().BeginTrans();
  ASSERT_TRUE(one.save("00002", "铣床"));
  one.context.dbZKData.Execute("update fa_Cards set sSite='西区'");
  EXPECT_EQ(two.rows("select sCardNum,sSite from fa_Cards"), Lines{"00001|"});
  EXPECT_EQ(two.nextCardNum(), "00002");
  one.workspace().CommitTrans();
  EXPECT_EQ(two.rows("select sCardNum,sSite from fa_Cards order by sCardNum"),
            (Lines{"00001|西区", "00002|西区"}));
}

// Of a card that another is still saving nothing is seen: all numbers that are counted from the highest one
// are given again, autonumbers are not. Nobody waits.
TEST_F(TwoDesksTest, ACardBesideAnUnfinishedOneGetsItsNumbers) {
  if (writersWaitForTransactions()) GTEST_SKIP() << "the second writer would wait";
  one.workspace().BeginTrans();
  ASSERT_TRUE(one.save(one.nextCardNum(), "车床"));
  ASSERT_TRUE(two.save(two.nextCardNum(), "铣床"));
  one.workspace().CommitTrans();
  flush();
  EXPECT_EQ(one.rows("select sCardNum,sCardID,lOptID,sAssetName from fa_Cards order by sAssetName"),
            (Lines{"00001|1|1|车床", "00001|1|1|铣床"}));
  EXPECT_EQ(one.rows("select coutid,inid from fa_ZWVouchers where inid=1"),
            (Lines{"00000000000000000001|1", "00000000000000000001|1"}));
  EXPECT_EQ(one.rows("select sID from fa_Cards_Detail order by sID"), (Lines{"1", "2"}));
  EXPECT_EQ(one.rows("select i_id from fa_ZWVouchers order by i_id"), (Lines{"1", "2", "3", "4"}));
}

}  // namespace
}  // namespace zelkor::test
