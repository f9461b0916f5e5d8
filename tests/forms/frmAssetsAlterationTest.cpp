#include <algorithm>
#include <QTest>

#include "apps/zelkor/Screens.h"
#include "changes/frmAssetsAlteration.h"
#include "forms/SheetForms.h"

namespace zelkor::test {
namespace {

class frmAssetsAlterationTest : public SheetFormTest {};

TEST_F(frmAssetsAlterationTest, startsByItsRunTypesWithAnEmptySheetOfItsKind) {
  const struct {
    std::int16_t runType;
    const char* picture;
    std::initializer_list<int> labels;  // number, date, operator
  } cases[] = {{14, "Picture10", {0, 1, 10}},   {15, "Picture11", {11, 12, 21}},
               {16, "Picture12", {22, 25, 32}}, {17, "Picture13", {33, 34, 45}},
               {18, "Picture14", {57, 58, 56}}, {24, "Picture15", {59, 60, 76}}};
  execute("insert into fa_Vouchers (sNum,iVoucherType) values ('00012',4)");
  RunTypeJobs jobs;
  addScreens(jobs, host);
  for (const auto& c : cases) {
    startRunType(context, *findRunType(c.runType), jobs);
    const auto shown = QApplication::topLevelWidgets();
    const auto form = std::ranges::find_if(
        shown, [&](const QWidget* window) { return window->findChild<QWidget*>(c.picture); });
    ASSERT_NE(form, shown.end()) << c.runType;
    EXPECT_EQ(labels(**form, c.labels), "00013|2020-05-15|陈会计") << c.picture;
    EXPECT_EQ(enabledCommands(**form), "取消 保存 退出 ") << c.picture;
    EXPECT_FALSE(control<QLineEdit>(**form, "txtContent").isHidden()) << "the card number is asked for";
  }
}

TEST_F(frmAssetsAlterationTest, raisesTheOriginalValue) {
  const auto& form = open(ChangeKind::OriginalValue);
  enter(form, {"00001"});
  EXPECT_EQ(labels(form, {61, 62, 63, 64, 65, 67, 69, 71, 73, 74}),
            "00001|02100001|2020-04-01|车床||人民币|5%|12000.50|600.03|600.03");
  enter(form, {"200"});
  EXPECT_EQ(labels(form, {66, 72, 74, 70}), "200|12200.50|610.03|10.00");
  enter(form, {"加装附件"});
  EXPECT_TRUE(control<QLineEdit>(form, "txtContent").isHidden()) << "behind the last value nothing opens";
  saveAndExpectSuccess(form);
  EXPECT_EQ(newestVersion("sCardID,iOptType,dblValue,dblBV,dblNetValueAct,sVoucherNum,sOperator"),
            "2|1|12200.5|610.03|12000.5|00001|陈会计");
  EXPECT_EQ(newestSheet(), "00001|00001|原值增加|1|12000.50|12200.50|加装附件|陈会计");
}

TEST_F(frmAssetsAlterationTest, changesTheUsageStatusAlsoWithoutAReason) {
  const auto& form = open(ChangeKind::UsageStatus);
  enter(form, {"00001"});
  EXPECT_EQ(labels(form, {7}), "在用");
  pickNext("TreeView1", "12 季节性停用", "cmdYes");
  sendKey(control<QLineEdit>(form, "txtContent"), Qt::Key_F2);
  EXPECT_EQ(labels(form, {8}), "季节性停用");
  saveAndExpectSuccess(form);
  EXPECT_EQ(newestVersion("sCardID,iOptType,sStatusID"), "2|10|12");
  EXPECT_EQ(newestSheet(), "00001|00001|使用状况调整|4|11|12||陈会计");
}

TEST_F(frmAssetsAlterationTest, correctsTheAccumulatedDepreciation) {
  const auto& form = open(ChangeKind::AccumulatedDepr);
  enter(form, {"00001"});
  EXPECT_EQ(labels(form, {13, 14, 15, 16, 18}), "00001|02100001|2020-04-01|车床|95");
  enter(form, {"120.5", "漏提"});
  saveAndExpectSuccess(form);
  EXPECT_EQ(newestVersion("sCardID,lOptID,iOptType,dblTransInDeprTCard"), "2|2|11|95");
  EXPECT_EQ(newestSheet(), "00001|00001|累计折旧调整|5|95|120.5|漏提|陈会计");
  EXPECT_EQ(row("select dblDeprT5,dblDeprT6 from fa_DeprTransactions"), "95|120.5") << "by the system date";
}

TEST_F(frmAssetsAlterationTest, changesTheUsefulLife) {
  const auto& form = open(ChangeKind::UsefulLife);
  sendKey(control<QLineEdit>(form, "txtContent"), Qt::Key_Tab);
  enter(form, {"02100001"});
  EXPECT_EQ(labels(form, {23, 24, 29}), "00001|02100001|10年0月") << "by the asset number";
  enter(form, {"12年6月", "大修"});
  saveAndExpectSuccess(form);
  EXPECT_EQ(newestVersion("sCardID,lOptID,iOptType,lLife"), "2|2|12|150");
  EXPECT_EQ(newestSheet(), "00001|00001|使用年限调整|6|10年0月|12年6月|大修|陈会计");
}

TEST_F(frmAssetsAlterationTest, showsTheResidualValueAndSavesNothing) {
  const auto& form = open(ChangeKind::ResidualValue);
  enter(form, {"00001"});
  EXPECT_EQ(labels(form, {35, 36, 38, 40, 42}), "00001|02100001|车床|5.00%|600.03");
  press(form, "保存");
  EXPECT_EQ(enabledCommands(form), "取消 保存 退出 ") << "nothing happens";
  EXPECT_EQ(count("fa_Cards") + count("fa_Vouchers"), "10");
  EXPECT_FALSE(engine.workspace().inTransaction());
}

TEST_F(frmAssetsAlterationTest, transfersToOneDepartment) {
  const auto& form = open(ChangeKind::Transfer);
  pickCard(form, "cmdMobile46", 1);
  EXPECT_EQ(labels(form, {46, 47, 48, 49, 51, 53}), "00001|02100001|2020-04-01|车床|一车间|东区");
  inModalForm([](QWidget& question) {
    pickNext("TreeView1", "302 二车间", "cmdYes");
    click(question, "cmdOK");
  });
  click(form, "cmdMobile52");
  EXPECT_EQ(labels(form, {52}), "二车间");
  enter(form, {"", "西区", "调拨"});
  saveAndExpectSuccess(form);
  EXPECT_EQ(rows("select sCardID,iOptType,sDeptNum,sSite,sTransDepteNum from fa_Cards order by val(sCardID)"),
            (Lines{"1|1|301|东区|~", "2|6|301|西区|302", "3|7|302|西区|301"}));
  EXPECT_EQ(newestSheet(), "00001|00001|部门转移|7|一车间|二车间|调拨|陈会计");
}

TEST_F(frmAssetsAlterationTest, transfersToSeveralDepartments) {
  const auto& form = open(ChangeKind::Transfer);
  pickCard(form, "cmdMobile47", 1);
  inModalForm([](QWidget& question) {
    inModalForm([](QWidget& split) {
      sendKey(gridOf(split, "MSFl1"), Qt::Key_Return);
      enter(split, "txtEdit", {"301", "60", "", "", "302", "40"});
      click(split, "cmdOK");
    });
    click(question, "opM");
    click(question, "cmdOK");
  });
  click(form, "cmdMobile52");
  EXPECT_EQ(labels(form, {52}), "一车间/二车间");
  saveAndExpectSuccess(form);
  EXPECT_EQ(newestVersion("iOptType,sDeptNum"), "7|301/302");
  EXPECT_EQ(rows("select sDeptNum,dblScale from fa_DeptScale where lOptID=3"), (Lines{"301|60", "302|40"}));
}

TEST_F(frmAssetsAlterationTest, refusesAnAssetEnteredInTheMonthOfTheSystemDate) {
  addCard("00002", "2019-06-20");
  const auto& form = open(ChangeKind::Transfer);
  tells("当月原始录入或新增的资产不允许做此种变动业务");
  pickCard(form, "cmdMobile46", 2);
  EXPECT_EQ(labels(form, {46, 49, 51}), "||") << "of an earlier year, too";
  const auto& other = open(ChangeKind::OriginalValue);
  pickCard(other, "cmdMobile61", 2);
  EXPECT_EQ(labels(other, {61}), "00002") << "the other kinds take it";
}

TEST_F(frmAssetsAlterationTest, refusesInTheirOrderAndKeepsTheTransactionOpen) {
  const auto& value = open(ChangeKind::OriginalValue);
  enter(value, {"00001"});
  expectRefusal(value, "未增加原值！");
  EXPECT_TRUE(engine.workspace().inTransaction());
  enter(value, {"-200"});
  expectRefusal(value, "变动原因不能为空！");
  type(value, "txtContent", "报废部件");
  saveAndExpectSuccess(value);
  EXPECT_EQ(newestVersion("dblValue"), "11800.5") << "what is being typed counts";
  EXPECT_EQ(count("fa_Vouchers"), "1");
}

TEST_F(frmAssetsAlterationTest, staysOnACardThatIsNotThere) {
  const auto& form = open(ChangeKind::OriginalValue);
  tells("当前卡片已不存在！");
  enter(form, {"00009"});
  EXPECT_EQ(labels(form, {61, 64}), "|");
  enter(form, {"00001"});
  EXPECT_EQ(labels(form, {61, 64}), "00001|车床");
  goBack(form, "txtContent", 2);
  type(form, "txtContent", "00009");
  tells("当前卡片已不存在！");
  press(form, "保存");
  EXPECT_EQ(labels(form, {61}), "00001") << "the card that is loaded; nothing else is checked or saved";
  EXPECT_FALSE(engine.workspace().inTransaction());
}

TEST_F(frmAssetsAlterationTest, cancelsToTheMostRecentSheet) {
  const auto& form = open(ChangeKind::UsefulLife);
  enter(form, {"00001"});
  asks("是否取消本次操作？", Answer::Yes);
  press(form, "取消");
  EXPECT_EQ(labels(form, {22, 23, 24, 29}), "|||") << "there is none yet";
  press(form, "增加");
  enter(form, {"00001", "12年0月", "大修"});
  saveAndExpectSuccess(form);
  press(form, "增加");
  EXPECT_EQ(labels(form, {22, 23, 29, 30, 31}), "00002||||");
  EXPECT_EQ(enabledCommands(form), "取消 保存 退出 ");
  enter(form, {"00001", "13年0月"});
  asks("是否取消本次操作？", Answer::No);
  press(form, "取消");
  EXPECT_EQ(labels(form, {22, 23, 29, 30}), "00002|00001|12年0月|13年0月");
  asks("是否取消本次操作？", Answer::Yes);
  press(form, "取消");
  EXPECT_EQ(labels(form, {22, 23, 29, 30, 31}), "00001|00001|10年0月|12年0月|大修");
  EXPECT_EQ(enabledCommands(form), "增加 退出 ");
  QTest::mouseClick(&control<QLabel>(form, "Label130"), Qt::LeftButton);
  EXPECT_TRUE(control<QLineEdit>(form, "txtContent").isHidden()) << "a stored sheet is not changed";
}

TEST_F(frmAssetsAlterationTest, obeysTheKeyboard) {
  auto& form = open(ChangeKind::OriginalValue);
  auto& box = control<QLineEdit>(form, "txtContent");
  inModalForm([](QWidget& list) { sendKey(control<FlexGrid>(list, "mshTable"), Qt::Key_Return); });
  sendKey(box, Qt::Key_F2);
  EXPECT_EQ(labels(form, {61}), "00001") << "F2 opens the list, Enter takes its first card";
  type(form, "txtContent", "77");
  sendKey(box, Qt::Key_Escape);
  EXPECT_EQ(labels(form, {66}), "") << "the first value behind the card; Esc leaves the value as it was";
  EXPECT_TRUE(box.isHidden());
  EXPECT_TRUE(form.isVisible());
  sendKey(control<QLabel>(form, "Label166"), Qt::Key_Tab);
  enter(form, {"更正"});
  EXPECT_EQ(labels(form, {66, 75}), "|更正");
  sendKey(control<QLabel>(form, "Label175"), Qt::Key_Backtab);
  enter(form, {"200", "改造"});
  tells("数据成功保存！", Icon::Information, "变动单－－使用状况调整");
  activate(form);
  QTest::keyClick(&form, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(count("fa_Vouchers"), "1") << "Ctrl+S saves";
  QTest::keyClick(&form, Qt::Key_N, Qt::ControlModifier);
  EXPECT_EQ(labels(form, {59, 61}), "00002|") << "Ctrl+N goes on with the next sheet";
}

TEST_F(frmAssetsAlterationTest, leavesThePanelWhenNothingIsPicked) {
  const auto& form = open(ChangeKind::UsageStatus);
  for (const char* button : {"cmdMobile2", "cmdMobile3", "cmdMobile8"}) {
    leaveNext();
    click(form, button);
  }
  execute("delete from fa_Cards");
  inModalForm([](QWidget& list) { click(list, "cmdOK"); });
  click(form, "cmdMobile2");
  EXPECT_EQ(labels(form, {2, 5, 8}), "||");
  press(form, "退出");
  EXPECT_EQ(endStatus(), 0);
}

}  // namespace
}  // namespace zelkor::test
