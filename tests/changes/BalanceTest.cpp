#include "changes/BalanceSheet.h"
#include "changes/ClsBalanType.h"
#include "SheetFixture.h"

// The change of the depreciation method.
namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;

class BalanceTest : public SheetTest {
 protected:
  BalanceTest() {
    balance.setZkDataPath(context.gstrZtFile);
    execute("update fa_Cards set dblTransInDeprTCard=300");
  }
  BalanceSheet goodSheet() {
    BalanceSheet sheet = newBalanceSheet(balance, context.gdOpDate, context.gstrUser);
    sheet.cardNum = "00001";
    sheet.methodBefore = "平均年限法(一)";
    sheet.methodBeforeID = "2";
    sheet.methodAfter = "年数总和法";
    sheet.methodAfterID = "5";
    sheet.reason = "复核";
    return sheet;
  }
  void expectSaved(const BalanceSheet& sheet) {
    EXPECT_FALSE(balanceRefusal(sheet));
    const BalanceSaved result = saveBalance(balance, sheet);
    EXPECT_TRUE(result.saved);
    EXPECT_EQ(result.box.text, "数据保存成功!");
    EXPECT_EQ(result.box.icon, Icon::Exclamation);
  }

  ClsBLLBalance balance{context};
};

TEST_F(BalanceTest, AMethodChangeRebasesTheVersion) {
  expectWritten(db(), "changes/golden/depreciation-method.txt", [&] { expectSaved(goodSheet()); });
}

TEST_F(BalanceTest, LeavingTheWorkloadMethodClearsTheFigures) {
  BalanceSheet sheet = goodSheet();
  EXPECT_FALSE(balanceQuestion(sheet));
  sheet.methodBefore = "工作量法";
  const auto question = balanceQuestion(sheet);
  ASSERT_TRUE(question);
  EXPECT_EQ(question->text,
            "由于本资产折旧方法已不再和工作量有关，所以本月工作量将被清空.\n确实要进行此变动吗？");
  EXPECT_EQ(question->title, "资产变动");
  EXPECT_EQ(question->buttons, Buttons::YesNo);
  expectSaved(sheet);
  EXPECT_EQ(rows("select dblPerDepr,dblTransInDeprTCard,dblNetValueAct from fa_Cards order by sCardID"),
            (Lines{"2.5|300|1000", "0|0|700"}));
}

TEST_F(BalanceTest, TheSourceIsTheFirstRowOfTheCardAndTheNumberIsTheHighest) {
  saveGood(ChangeKind::UsageStatus);
  addCard("00002");
  execute("update fa_Cards set sCardID='10' where sCardNum='00002'");
  expectSaved(goodSheet());
  EXPECT_EQ(row("select sCardID,sCardNum,lOptID,iOptType,sStatusID,sOperator,sVoucherNum from fa_Cards "
                "where sDeprMethodID='5'"),
            "11|00001|1|1|11|李录入|~");
}

TEST_F(BalanceTest, TheFirstRowIsTheOldestVersionThoughItsNumberIsNotTheFirstText) {
  execute("update fa_Cards set sCardID='9'");
  saveGood(ChangeKind::OriginalValue);
  EXPECT_EQ(rows("select sCardID from fa_Cards where sCardNum='00001'"), (Lines{"9", "10"}));
  expectSaved(goodSheet());
  EXPECT_EQ(row("select sCardID,dblValue,dblBV,lOptID,sVoucherNum from fa_Cards where sDeprMethodID='5'"),
            "11|1000|50|1|~");
}

TEST_F(BalanceTest, NumbersFollowTheHighestSheet) {
  EXPECT_EQ(goodSheet().number + goodSheet().operationNumber + goodSheet().date, "0000112020-5-15");
  execute("insert into fa_Vouchers (sNum,lOptID) values ('00009',40)");
  execute("insert into fa_Vouchers (sNum,lOptID) values ('00007',41)");
  EXPECT_EQ(goodSheet().number + " " + goodSheet().operationNumber, "00010 42");
  expectSaved(goodSheet());
  EXPECT_EQ(row("select sNum from fa_Vouchers where iVoucherType=7"), "00010");
}

TEST_F(BalanceTest, AnIncompleteOrEmptyChangeIsRefused) {
  const struct {
    std::string BalanceSheet::*field;
    const char* value;
    const char* message;
  } cases[] = {{&BalanceSheet::number, "", "数据填写不完整!"},
               {&BalanceSheet::date, "", "数据填写不完整!"},
               {&BalanceSheet::cardNum, "", "数据填写不完整!"},
               {&BalanceSheet::methodAfter, "", "数据填写不完整!"},
               {&BalanceSheet::reason, "", "数据填写不完整!"},
               {&BalanceSheet::methodAfter, "平均年限法(一)", "变动后内容不应和变动前内容相同"}};
  for (const auto& c : cases) {
    BalanceSheet sheet = goodSheet();
    sheet.*c.field = c.value;
    const auto refusal = balanceRefusal(sheet);
    ASSERT_TRUE(refusal) << c.message;
    EXPECT_EQ(refusal->text, c.message);
    EXPECT_EQ(refusal->title, "固定资产");
  }
}

TEST_F(BalanceTest, AFailureIsToldAndLeavesWhatWasWritten) {
  BalanceSheet sheet = goodSheet();
  sheet.operationNumber = "";
  const BalanceSaved result = saveBalance(balance, sheet);
  EXPECT_FALSE(result.saved);
  EXPECT_EQ(result.box.text, "数据保存失败!");
  EXPECT_EQ(row("select count(*) from fa_Cards"), "2") << "there is no transaction";
  EXPECT_EQ(row("select count(*) from fa_Vouchers"), "0");
  sheet.cardNum = "99999";
  EXPECT_FALSE(saveBalance(balance, sheet).saved);
  EXPECT_EQ(row("select count(*) from fa_Cards"), "2");
  balance.CloseZkData();
  balance.setZkDataPath(missingFile());
  EXPECT_FALSE(saveBalance(balance, goodSheet()).saved);
}

TEST_F(BalanceTest, TheBrowseOfTransfersShowsItToo) {
  expectSaved(goodSheet());
  const ChangeSheet recent = sheets(ChangeKind::Transfer).mostRecent().value();
  EXPECT_EQ(recent.number + recent.before.text + recent.after.text + recent.reason, "0000125复核");
}

TEST_F(BalanceTest, MethodsHangBelowTheirRoot) {
  ClsBalanType types(context);
  EXPECT_EQ(balanceTypeTree(types), (std::vector<TreeRow>{{"R", "", "顶层节点"}}));
  types.setZkDataPath(context.gstrZtFile);
  const auto tree = balanceTypeTree(types);
  ASSERT_EQ(tree.size(), 7U);
  EXPECT_EQ(tree[4], (TreeRow{"D4", "R", "工作量法[4]", "4"}));
}

}  // namespace
}  // namespace zelkor::test
