#include "SheetFixture.h"

namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;
using Outcome = SheetResult::Outcome;

class TransferTest : public SheetTest {
 protected:
  TransferTest() {
    execute("update fa_DeptScale set sID=7,sProjectNum='P',sProjectName='甲',cItemclsId='C'");
  }

  /// The card shared 60/40 by two departments, as a transfer leaves it.
  void share() {
    execute("update fa_Cards set sDeptNum='301/302',dblTransInDeprTCard=200,dblBV=50 where sCardNum='00001'");
    execute("delete from fa_DeptScale");
    execute("delete from fa_Cards_Detail");
    for (const char* part : {"1,'301',60,'410502'", "2,'302',40,'550202'"}) {
      execute(
          sql("insert into fa_DeptScale (sCardNum,lOptID,sID,sDeptNum,dblScale,sDeprSubjectNum) values "
              "('00001',1,",
              part, ")"));
    }
    for (const char* part : {"'301',600,3", "'302',400,2"}) {
      execute(
          sql("insert into fa_Cards_Detail (sCardNum,sCardID,lOptID,sDeptNum,dblValue,dblDecDeprT) values "
              "('00001','1',1,",
              part, ")"));
    }
  }
  static DepartSplit threeWays() {
    DepartSplit split;
    const auto none = confirmSplit({{"301", "一车间", "50", "410502,折旧费", "97", "01,新线"},
                                    {"302", "二车间", "30", "", "", ""},
                                    {"4", "研发部", "20", "550202,管理", "", ""}},
                                   split);
    EXPECT_FALSE(none);
    return split;
  }
};

TEST_F(TransferTest, AWholeCardGoesToOneDepartment) {
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  const ChangeSheet sheet = goodSheet(transfers);
  EXPECT_EQ(Lines({sheet.before.text, sheet.before.tag, sheet.siteBefore}), Lines({"一车间", "301", "东区"}));
  expectWrites("transfer-of-a-whole-card", transfers, sheet);
}

TEST_F(TransferTest, ASharedCardGoesToOneDepartment) {
  share();
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  const ChangeSheet sheet = goodSheet(transfers);
  EXPECT_EQ(sheet.before.text, "一车间/二车间");
  expectWrites("transfer-of-a-shared-card", transfers, sheet);
}

TEST_F(TransferTest, AWholeCardIsSplitThreeWays) {
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  ChangeSheet sheet = goodSheet(transfers);
  sheet.chooseSplit(threeWays());
  EXPECT_EQ(sheet.after.text + " " + sheet.after.tag, "一车间/二车间/研发部 301/302/4");
  expectWrites("transfer-three-ways", transfers, sheet);
}

TEST_F(TransferTest, TheSharesHaveNumbersOfTheirOwn) {
  addCard("00002");
  execute("update fa_DeptScale set lOptID=50 where sCardNum='00002'");
  execute("update fa_DeptScale set sID=Null where sCardNum='00001'");
  expectWrites("transfer-numbers", ChangeKind::Transfer);
}

TEST_F(TransferTest, ACardWithoutSharesGetsItsFirst) {
  execute("delete from fa_DeptScale");
  execute("delete from fa_Cards_Detail");
  expectWrites("transfer-without-shares", ChangeKind::Transfer);
}

TEST_F(TransferTest, IsRefusedWithoutAnotherDepartmentButNotWithoutAReason) {
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  ChangeSheet sheet = goodSheet(transfers);
  const Books before = booksOf(db());
  sheet.chooseDepartment("301", "一车间");
  expectRefused(transfers.save(sheet), "变动后内容不应和变动前内容相同！");
  sheet.after = {};
  expectRefused(transfers.save(sheet), "变动原因不能为空！");
  EXPECT_EQ(changesText(before, booksOf(db())), "");
  sheet.chooseDepartment("302", "二车间");
  sheet.reason = "";
  expectSaved(transfers.save(sheet));
}

TEST_F(TransferTest, ANewerChoiceDropsTheSplit) {
  ChangeSheet sheet;
  sheet.chooseSplit(threeWays());
  sheet.chooseDepartment("302", "二车间");
  EXPECT_TRUE(sheet.split.empty());
  EXPECT_EQ(sheet.after.tag, "302");
}

TEST_F(TransferTest, TheHighestNumberIsThatOfTheTextIn16Bits) {
  const struct {
    const char* cardID;
    const char* other;
    const char* made;  // none: it fails
  } cases[] = {
      {"9", "10", "10|11"}, {"32764", "2", "32765|32766"}, {"32766", "2", nullptr}, {"32768", "2", nullptr}};
  addCard("00002");
  for (const auto& c : cases) {
    execute("delete from fa_Cards where iOptType=6 or iOptType=7");
    execute(sql("update fa_Cards set sCardID='", c.cardID, "' where sCardNum='00001'"));
    execute(sql("update fa_Cards set sCardID='", c.other, "' where sCardNum='00002'"));
    ChangeSheets transfers = sheets(ChangeKind::Transfer);
    const Books before = booksOf(db());
    const SheetResult result = transfers.save(goodSheet(transfers));
    if (c.made != nullptr) {
      expectSaved(result);
      EXPECT_EQ(rows("select sCardID from fa_Cards where iOptType>5 order by iOptType")[0] + "|" +
                    rows("select sCardID from fa_Cards where iOptType>5 order by iOptType")[1],
                c.made);
    } else {
      EXPECT_EQ(result.outcome, Outcome::Failed) << c.cardID;
      EXPECT_EQ(result.box->text, "溢出");
      EXPECT_EQ(changesText(before, booksOf(db())), "");
    }
  }
}

TEST_F(TransferTest, OfVersionsThatShareANumberTheLatestIsTheNewest) {
  execute("update fa_Cards set sCardID='9'");
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  for (const char* department : {"302", "4", "302", "5"}) {
    ChangeSheet sheet = goodSheet(transfers);
    sheet.chooseDepartment(department, department);
    expectSaved(transfers.save(sheet));
  }
  EXPECT_EQ(rows("select sCardID,sDeptNum from fa_Cards where iOptType=7"),
            (Lines{"11|302", "11|4", "11|302", "11|5"}));
  saveGood(ChangeKind::OriginalValue);
  EXPECT_EQ(row("select sCardID,sDeptNum,dblValue from fa_Cards where iOptType=1 and sCardID<>'9'"),
            "12|5|1200");
}

TEST_F(TransferTest, ATypedCardIsFoundOnlyWithTheHighestNumberOfAll) {
  addCard("00002");
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  ChangeSheet sheet = transfers.newSheet();
  expectRefused(transfers.loadCard(CardKey::CardNumber, "00001", sheet), "当前卡片已不存在！");
  EXPECT_EQ(sheet.cardNum, "") << "the panel stays empty";
  ASSERT_TRUE(transfers.loadCard(CardKey::AssetNumber, "021000002", sheet).done());
  EXPECT_EQ(sheet.cardNum + sheet.before.text + sheet.siteBefore, "00002一车间东区");
}

TEST_F(TransferTest, ACardOfTheCurrentMonthIsRefusedAtThePick) {
  addCard("00002", "2019-06-15");
  addCard("00003", "2020-04-15");
  execute("update fa_Cards set sSite='新地' where sCardNum='00003'");
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  const auto list = textsOf(transfers.cardList());
  ChangeSheet sheet = transfers.newSheet();
  expectRefused(transfers.pickCard(list.at(2), sheet), "当月原始录入或新增的资产不允许做此种变动业务");
  EXPECT_EQ(sheet.cardNum, "");
  ASSERT_TRUE(transfers.pickCard(list.at(3), sheet).done());
  EXPECT_EQ(sheet.cardNum + sheet.siteBefore, "00003新地");
  clock.set(day("2020-5-31"));
  expectRefused(transfers.pickCard(list.at(1), sheet), "当月原始录入或新增的资产不允许做此种变动业务");
  execute("delete from fa_Cards where sCardNum='00002'");
  clock.set(day("2020-1-31"));
  expectRefused(transfers.pickCard(list.at(2), sheet), "当前卡片已不存在！");
}

TEST_F(TransferTest, FollowsTheLastTransfer) {
  saveGood(ChangeKind::Transfer);
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  ChangeSheet back = pickedFor(transfers);
  EXPECT_EQ(back.before.tag + back.siteBefore, "302西区");
  back.chooseSplit(threeWays());
  expectWrites("transfer-after-a-transfer", transfers, back);
}

}  // namespace
}  // namespace zelkor::test
