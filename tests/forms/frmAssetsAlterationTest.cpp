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

/// A sheet that is filled in by typing: what its labels show then, and what is saved.
struct TypedSheet {
  ChangeKind kind;
  const char* picture;
  std::initializer_list<const char*> texts;
  std::initializer_list<int> labels;
  const char* shown;
  const char* saved;  // nullptr: nothing
};

TEST_F(frmAssetsAlterationTest, showsTheValuesOfEachKindAndSavesThem) {
  // clang-format off
  const TypedSheet sheets[] = {
    {ChangeKind::ResidualValue, "residual", {"00001"}, {35, 36, 38, 40, 42}, "00001|02100001|车床|5.00%|600.03", nullptr},
    {ChangeKind::OriginalValue, "value", {"00001", "200", "加装附件"}, {61, 62, 63, 64, 65, 66, 67, 69, 70, 71, 72, 73, 74, 75},
     "00001|02100001|2020-04-01|车床||200|人民币|5%|10.00|12000.50|12200.50|600.03|610.03|加装附件",
     "00001|00001|原值增加|1|12000.50|12200.50|加装附件|陈会计"},
    {ChangeKind::AccumulatedDepr, "depreciation", {"00001", "120.5", "漏提"}, {13, 14, 15, 16, 18, 19, 20},
     "00001|02100001|2020-04-01|车床|95|120.5|漏提", "00002|00001|累计折旧调整|5|95|120.5|漏提|陈会计"},
    {ChangeKind::UsefulLife, "life", {"00001", "12年6月", "大修"}, {23, 24, 29, 30, 31},
     "00001|02100001|10年0月|12年6月|大修", "00003|00001|使用年限调整|6|10年0月|12年6月|大修|陈会计"},
  };
  // clang-format on
  for (const TypedSheet& sheet : sheets) {
    SCOPED_TRACE(sheet.picture);
    auto& form = open(sheet.kind);
    enter(form, sheet.texts);
    keepPicture(form, std::string("frmAssetsAlteration-") + sheet.picture);
    EXPECT_EQ(labels(form, sheet.labels), sheet.shown);
    if (!sheet.saved) {
      press(form, "保存");
      EXPECT_EQ(enabledCommands(form), "取消 保存 退出 ") << "nothing happens";
      continue;
    }
    EXPECT_TRUE(control<QLineEdit>(form, "txtContent").isHidden()) << "behind the last value nothing opens";
    saveAndExpectSuccess(form);
    EXPECT_EQ(newestSheet(), sheet.saved);
  }
}

TEST_F(frmAssetsAlterationTest, takesAStatusFromThePickerAndACardByItsAssetNumber) {
  auto& form = open(ChangeKind::UsageStatus);
  enter(form, {"00001"});
  EXPECT_EQ(labels(form, {7}), "在用");
  pickNext("TreeView1", "12 季节性停用", "cmdYes");
  sendKey(control<QLineEdit>(form, "txtContent"), Qt::Key_F2);
  EXPECT_EQ(labels(form, {8}), "季节性停用");
  keepPicture(form, "frmAssetsAlteration-status");
  saveAndExpectSuccess(form);
  EXPECT_EQ(newestSheet(), "00001|00001|使用状况调整|4|11|12||陈会计");
  const auto& life = open(ChangeKind::UsefulLife);
  sendKey(control<QLineEdit>(life, "txtContent"), Qt::Key_Tab);
  enter(life, {"02100001"});
  EXPECT_EQ(labels(life, {23, 24, 29}), "00001|02100001|10年0月");
}

TEST_F(frmAssetsAlterationTest, transfersToOneDepartment) {
  auto& form = open(ChangeKind::Transfer);
  inModalForm([](QWidget& list) {
    keepPicture(list, "frmCardDetail");
    gridOf(list, "mshTable").selectGridRow(1);
    click(list, "cmdOK");
  });
  click(form, "cmdMobile46");
  EXPECT_EQ(labels(form, {46, 47, 48, 49, 51, 53}), "00001|02100001|2020-04-01|车床|一车间|东区");
  inModalForm([](QWidget& question) {
    pickNext("TreeView1", "302 二车间", "cmdYes");
    click(question, "cmdOK");
  });
  click(form, "cmdMobile52");
  EXPECT_EQ(labels(form, {52}), "二车间");
  enter(form, {"", "西区", "调拨"});
  keepPicture(form, "frmAssetsAlteration-transfer");
  saveAndExpectSuccess(form);
  keepPicture(form, "frmAssetsAlteration-stored");
  EXPECT_EQ(row("select sDeptNum,sSite,sTransDepteNum from fa_Cards where iOptType=7"), "302|西区|301");
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

TEST_F(frmAssetsAlterationTest, staysOnARefusedSheet) {
  const auto& value = open(ChangeKind::OriginalValue);
  enter(value, {"00001"});
  expectRefusal(value, "未增加原值！");
  enter(value, {"-200"});
  expectRefusal(value, "变动原因不能为空！");
  type(value, "txtContent", "报废部件");
  saveAndExpectSuccess(value);
  EXPECT_EQ(newestVersion("dblValue"), "11800.5") << "what is being typed counts";
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

TEST_F(frmAssetsAlterationTest, takesTheRowThatTheKeysChooseOfACardThatStandsTwice) {
  execute(
      "insert into fa_Cards (sCardID,sCardNum,sAssetNum,sDeptNum,dInputDate,iOptType) values "
      "('2','00001','02100001','302',#2020-5-15#,7)");
  addCard("00002");
  execute("update fa_Cards set sCardID='1' where sCardNum='00002'");
  for (const auto& [downwards, department] : {std::pair{0, "一车间"}, {1, "二车间"}}) {
    const auto& form = open(ChangeKind::Transfer);
    inModalForm([steps = downwards](QWidget& list) {
      activate(list);
      EXPECT_TRUE(gridOf(list, "mshTable").hasFocus());
      for (int i = 0; i < steps; ++i) sendKey(gridOf(list, "mshTable"), Qt::Key_Down);
      sendKey(gridOf(list, "mshTable"), Qt::Key_Return);
    });
    sendKey(control<QLineEdit>(form, "txtContent"), Qt::Key_F2);
    EXPECT_EQ(labels(form, {46, 51}), std::string("00001|") + department);
  }
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
