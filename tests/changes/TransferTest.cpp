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
  std::vector<std::string> shares() {
    return rows(
        "select sID,sCardNum,lOptID,sDeptNum,dblScale,sDeprSubjectNum,sDeprSubjectName,sProjectNum,"
        "sProjectName,cItemclsId from fa_DeptScale order by lOptID,sID");
  }
  std::vector<std::string> details() {
    return rows(
        "select sCardID,lOptID,sDeptNum,dblValue,dblBV,dblCanWork,dblTransInDeprTCard,"
        "dblTransOutDeprTCard,dblDecDeprT,dblDecPreValueT,dblRetDecPreValueT,dblBuildArea,lBuildNum,"
        "lMachinNum,dblMachinW,iDisposePeriod from fa_Cards_Detail order by lOptID,sDeptNum");
  }
};

TEST_F(TransferTest, AWholeCardGoesToOneDepartment) {
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  const ChangeSheet sheet = goodSheet(transfers);
  EXPECT_EQ(Lines({sheet.before.text, sheet.before.tag, sheet.siteBefore}), Lines({"一车间", "301", "东区"}));
  expectTouched(transfers, sheet, {"fa_Cards +2", "fa_Cards_Detail +2", "fa_DeptScale +2", "fa_Vouchers +1"});
  EXPECT_EQ(differences("sCardID='1'", "sCardID='2'"),
            (Lines{"sCardID: 1 > 2", "lOptID: 1 > 2", "iOptType: 1 > 6", "sSite: 东区 > 西区",
                   "dTransDate: ~ > 2020-5-15", "iInputPeriod: 5 > 0", "iTransPeriod: 0 > 6",
                   "sOperator: 李录入 > 陈会计", "sVoucherNum: ~ > 00001", "sTransDepteNum: ~ > 302"}));
  EXPECT_EQ(differences("sCardID='1'", "sCardID='3'"),
            (Lines{"sCardID: 1 > 3", "lOptID: 1 > 3", "iOptType: 1 > 7", "sDeptNum: 301 > 302",
                   "sSite: 东区 > 西区", "dTransDate: ~ > 2020-5-15", "sOperator: 李录入 > 陈会计",
                   "sVoucherNum: ~ > 00001", "sTransDepteNum: ~ > 301"}));
  EXPECT_EQ(sheetRows(),
            Lines{"00001|00001|1|部门转移|部门转移|7|0|一车间|二车间|调拨|2020-5-15|陈会计|西区|~"});
  EXPECT_EQ(shares(), (Lines{"7|00001|1|301|1|410502|折旧费|P|甲|C", "8|00001|2|301|1|410502|折旧费|P|甲|C",
                             "9|00001|3|302|1|410502|折旧费|P|甲|C"}));
  EXPECT_EQ(details(),
            (Lines{"1|1|301|1000|50|0|0|0|0|0|0|0|0|0|0|0", "2|2|301|1000|50|0|0|0|0|0|0|0|0|0|0|0",
                   "3|3|302|1000|50|500|95|30|5.5|31|32|10|4|8|12|3"}));
}

TEST_F(TransferTest, ASharedCardGoesToOneDepartment) {
  share();
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  const ChangeSheet sheet = goodSheet(transfers);
  EXPECT_EQ(sheet.before.text, "一车间/二车间");
  expectTouched(transfers, sheet, {"fa_Cards +2", "fa_Cards_Detail +3", "fa_DeptScale +3", "fa_Vouchers +1"});
  EXPECT_EQ(rows("select sDeptNum,sTransDepteNum from fa_Cards where sCardID>'1' order by sCardID"),
            (Lines{"301/302|302", "302|301/302"}));
  EXPECT_EQ(shares(), (Lines{"1|00001|1|301|60|410502|~|~|~|~", "2|00001|1|302|40|550202|~|~|~|~",
                             "3|00001|2|301|60|410502|~|~|~|~", "4|00001|2|302|40|550202|~|~|~|~",
                             "5|00001|3|302|1|550202|~|~|~|~"}));
  EXPECT_EQ(rows("select sCardID,lOptID,sDeptNum,dblValue,dblDecDeprT from fa_Cards_Detail order by "
                 "lOptID,sDeptNum"),
            (Lines{"1|1|301|600|3", "1|1|302|400|2", "2|2|301|600|3", "2|2|302|400|2", "3|3|302|1000|5.5"}));
}

TEST_F(TransferTest, AWholeCardIsSplitThreeWays) {
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  ChangeSheet sheet = goodSheet(transfers);
  sheet.chooseSplit(threeWays());
  EXPECT_EQ(sheet.after.text + " " + sheet.after.tag, "一车间/二车间/研发部 301/302/4");
  expectTouched(transfers, sheet, {"fa_Cards +2", "fa_Cards_Detail +4", "fa_DeptScale +4", "fa_Vouchers +1"});
  EXPECT_EQ(rows("select sDeptNum,sTransDepteNum from fa_Cards where sCardID>'1' order by sCardID"),
            (Lines{"301|301/302/4", "301/302/4|301"}));
  EXPECT_EQ(shares(), (Lines{"7|00001|1|301|1|410502|折旧费|P|甲|C", "8|00001|2|301|1|410502|折旧费|P|甲|C",
                             "9|00001|3|301|50|410502|折旧费|01|新线|97", "10|00001|3|302|30|~|~|~|~|~",
                             "11|00001|3|4|20|550202|管理|~|~|~"}));
  EXPECT_EQ(details(),
            (Lines{"1|1|301|1000|50|0|0|0|0|0|0|0|0|0|0|0", "2|2|301|1000|50|0|0|0|0|0|0|0|0|0|0|0",
                   "3|3|301|500|25|250|47.5|15|5.5|31|32|5|2|4|6|3",
                   "3|3|302|300|15|150|28.5|9|5.5|31|32|3|1|2|3.6|3",
                   "3|3|4|200|10|100|19|6|5.5|31|32|2|1|2|2.4|3"}));
}

TEST_F(TransferTest, TheSharesHaveNumbersOfTheirOwn) {
  addCard("00002");
  execute("update fa_DeptScale set lOptID=50 where sCardNum='00002'");
  execute("update fa_DeptScale set sID=Null where sCardNum='00001'");
  saveGood(ChangeKind::Transfer);
  EXPECT_EQ(rows("select sID,lOptID,sDeptNum from fa_DeptScale where sCardNum='00001' order by lOptID"),
            (Lines{"~|1|301", "0|51|301", "1|52|302"}));
  EXPECT_EQ(rows("select sCardID,lOptID from fa_Cards_Detail where sCardNum='00001' order by lOptID"),
            (Lines{"1|1", "3|2", "4|3"}));
}

TEST_F(TransferTest, ACardWithoutSharesGetsItsFirst) {
  execute("delete from fa_DeptScale");
  execute("delete from fa_Cards_Detail");
  saveGood(ChangeKind::Transfer);
  EXPECT_EQ(shares(), Lines{"1|00001|3|302|1|~|~|~|~|~"});
  EXPECT_EQ(row("select sCardID,lOptID,sDeptNum,dblValue from fa_Cards_Detail"), "3|3|302|1000");
}

TEST_F(TransferTest, IsRefusedWithoutAnotherDepartmentButNotWithoutAReason) {
  ChangeSheets transfers = sheets(ChangeKind::Transfer);
  ChangeSheet sheet = goodSheet(transfers);
  const Snapshot before = snapshotOf(db());
  sheet.chooseDepartment("301", "一车间");
  expectRefused(transfers.save(sheet), "变动后内容不应和变动前内容相同！");
  sheet.after = {};
  expectRefused(transfers.save(sheet), "变动原因不能为空！");
  EXPECT_EQ(touchedTables(before, snapshotOf(db())), Lines());
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
    const Snapshot before = snapshotOf(db());
    const SheetResult result = transfers.save(goodSheet(transfers));
    if (c.made != nullptr) {
      expectSaved(result);
      EXPECT_EQ(rows("select sCardID from fa_Cards where iOptType>5 order by iOptType")[0] + "|" +
                    rows("select sCardID from fa_Cards where iOptType>5 order by iOptType")[1],
                c.made);
    } else {
      EXPECT_EQ(result.outcome, Outcome::Failed) << c.cardID;
      EXPECT_EQ(result.box->text, "溢出");
      EXPECT_EQ(touchedTables(before, snapshotOf(db())), Lines());
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
  expectSaved(transfers.save(back));
  EXPECT_EQ(rows("select sCardID,lOptID,iOptType,sDeptNum from fa_Cards order by val(sCardID)"),
            (Lines{"1|1|1|301", "2|2|6|301", "3|3|7|302", "4|4|6|302", "5|5|7|301/302/4"}));
  EXPECT_EQ(rows("select lOptID,sDeptNum,dblScale from fa_DeptScale where lOptID>3 order by sID"),
            (Lines{"4|302|1", "5|301|50", "5|302|30", "5|4|20"}));
}

}  // namespace
}  // namespace zelkor::test
