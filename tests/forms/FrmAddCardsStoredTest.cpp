#include "CardEditorFixture.h"

namespace zelkor::test {
namespace {

/// Three versions: card 00001 in two (1, 3), by workload since the second; card 00002 (2).
class FrmAddCardsStoredTest : public CardEditorTest {
 protected:
  FrmAddCardsStoredTest() {
    save("00001", "车床");
    save("00002", "铣床");
    execute(
        "insert into fa_Cards "
        "(sCardID,sCardNum,lOptID,sAssetNum,sAssetName,sTypeNum,sDeptNum,sOrgAddID,sStatusID,"
        "sDeprMethodID,sCurrency,lLife,dStartdate,dInputDate,sOperator,dblValue,dblBV,dblBVRate,lUsedMonths,"
        "dblPerDepr,dblCanWork,sWorkUnit,dblOffsetTax) values "
        "('3','00001',9,'02100001','车床','021','302','101',"
        "'11','4','人民币',66,#2019-12-3#,#2020-1-15#,'李录入',900,45,0.05,3,0.09,9500,'小时',12.5)");
  }
  void save(const std::string& number, const std::string& assetName) {
    using enum CardField;
    ClsBLLFACards cards(context);
    cards.setZkDataPath(context.gstrZtFile);
    CardSheet sheet = newCard(cards, context.gOpArgs, CardMode::Original, "021");
    sheet.texts[CardNumber] = number;
    sheet.texts[AssetName] = assetName;
    sheet.texts[StartDate] = "2020-3-2";
    sheet.texts[OriginalValue] = "1000";
    takeEntry(sheet, Department, "301", "一车间");
    takeEntry(sheet, AdditionWay, "101", "直接购入");
    takeEntry(sheet, UsageStatus, "11", "在用");
    CardValues values = valuesOf(sheet);
    ASSERT_TRUE(cards.SaveNewCard(values, 5, NewCardType::Original, CardLayout::Ordinary));
  }
  /// Number and department, which tell the versions apart.
  static std::string card(const QWidget& form) { return shown(form, 1) + " " + shown(form, 8); }
  void expectQuestion(const std::string& text, Answer answer) {
    dialogs.expect({text, Buttons::OkCancel, Icon::Question, "固定资产"}, answer);
  }
};

TEST_F(FrmAddCardsStoredTest, showsAVersion) {
  FrmAddCards& form = openStored("3");
  std::string all;
  for (int i = 1; i <= 31; ++i) all += shown(form, i) + "|";
  EXPECT_EQ(all,
            "00001|2020-01-15|02100001|车床|021|生产设备||二车间|直接购入||在用|5年6月|工作量法|2019-12-03|3|"
            "人民币|900.00|5%|45.00|0.00|0.09||900.00|,||李录入|2020-01-15|9500||小时|12.5|");
  EXPECT_EQ(enabledKeys(form), "编辑修改删除退出");
  EXPECT_FALSE(editor(form).isVisible());
}

TEST_F(FrmAddCardsStoredTest, rewritesTheWholeCard) {
  FrmAddCards& form = openStored("3");
  press(form, "修改");
  EXPECT_EQ(enabledKeys(form), "保存编辑取消修改删除退出");
  enter(form, 3, "");
  enter(form, 4, "数控车床");
  enter(form, 14, "2020-6-9");
  EXPECT_EQ(shown(form, 15), "-1") << "no rule holds for the date of a stored card";
  enter(form, 14, "2020-2-9");
  enter(form, 17, "1900");
  EXPECT_EQ(shown(form, 21), "0.19") << "(1900 - 95) / 9500";
  pickEntry(form, 8, "财务部");
  expectSaved();
  press(form, "保存");
  EXPECT_EQ(
      rows("select sCardID,sCardNum,lOptID,sAssetNum,sAssetName,sDeptNum,sDeprMethodID,lLife,dStartDate,"
           "dblValue,dblBV,dblBVRate,lUsedMonths,dblPerDepr,dblCanWork,sWorkUnit,dblOffsetTax from fa_Cards "
           "where sCardNum='00001' order by sCardID"),
      (std::vector<std::string>{"1|00001|1||数控车床|2|4|66|2020-2-9|1900|95|0.05|3|0.19|9500|小时|12.5",
                                "3|00001|9||数控车床|2|4|66|2020-2-9|1900|95|0.05|3|0.19|9500|小时|12.5"}));
  EXPECT_EQ(row("select dblInputValue,lInputLife from fa_DeprTransactions where sCardNum='00001'"),
            "1900|66");
  EXPECT_EQ(row("select sAssetName from fa_Cards where sCardNum='00002'"), "铣床");
  EXPECT_EQ(shown(form, 4), "数控车床") << "the card stays shown";
}

TEST_F(FrmAddCardsStoredTest, asksForWhatIsMissingButNotForTheNumber) {
  FrmAddCards& form = openStored("1");
  press(form, "修改");
  enter(form, 3, "");
  enter(form, 4, "");
  enter(form, 17, "");
  expectWarning("当前卡片有以下几项未填写或填写不正确：\n固定资产名称、原值");
  press(form, "保存");
  EXPECT_EQ(row("select sAssetName from fa_Cards where sCardID='1'"), "车床");
}

TEST_F(FrmAddCardsStoredTest, walksOverAllVersionsOfAllCards) {
  FrmAddCards& form = openStored("1");
  const struct {
    const char* step;
    const char* card;
    bool workload;
  } steps[] = {
      {"上一个", "00001 一车间", false}, {"下一个", "00002 一车间", false},
      {"下一个", "00001 二车间", true},  {"下一个", "00001 二车间", true},
      {"第一个", "00001 一车间", false}, {"最后一个", "00001 二车间", true},
      {"上一个", "00002 一车间", false},
  };
  for (const auto& s : steps) {
    command(form, s.step).trigger();
    EXPECT_EQ(card(form), s.card) << s.step;
    EXPECT_EQ(value(form, 28).isVisible(), s.workload) << s.step;
  }
  EXPECT_EQ(command(form, "下一个").shortcut(), QKeySequence(Qt::ALT | Qt::Key_PageDown));
}

TEST_F(FrmAddCardsStoredTest, walksOverACardWhoseCategoryIsGone) {
  execute("update fa_Cards set sTypeNum='99' where sCardID='2'");
  FrmAddCards& form = openStored("1");
  command(form, "下一个").trigger();
  EXPECT_EQ(shown(form, 1) + shown(form, 4) + shown(form, 17), "");
  press(form, "修改");
  expectWarning(
      "当前卡片有以下几项未填写或填写不正确：\n"
      "固定资产名称、折旧方法、开始使用日期、原值、部门名称、增加方式、使用状况");
  press(form, "保存");
  command(form, "下一个").trigger();
  EXPECT_EQ(card(form), "00001 二车间");
}

TEST_F(FrmAddCardsStoredTest, staysWhereAWalkLeadsNowhere) {
  FrmAddCards& form = openStored("2");
  execute("delete from fa_Cards");
  expectWarning("没有任何固定卡片！");
  command(form, "下一个").trigger();
  EXPECT_EQ(card(form), "00002 一车间");
}

TEST_F(FrmAddCardsStoredTest, opensTheWalkBelowItsKey) {
  FrmAddCards& form = openStored("1");
  press(form, "编辑");
  auto& menu = control<QMenu>(form, "mnuPop");
  EXPECT_TRUE(menu.isVisible());
  EXPECT_EQ(menu.actions().front()->menu(), &control<QMenu>(form, "mnuMove"));
  menu.close();
}

TEST_F(FrmAddCardsStoredTest, cancelsANewCardForTheLastOne) {
  FrmAddCards& form = openNew("021");
  typeKeys(form, "刨床");
  expectQuestion("是否取消本次操作？", Answer::Cancel);
  press(form, "取消");
  EXPECT_EQ(shown(form, 1) + enabledKeys(form), "00003保存编辑取消退出");
  expectQuestion("是否取消本次操作？", Answer::Ok);
  press(form, "取消");
  EXPECT_EQ(card(form), "00001 二车间");
  EXPECT_EQ(enabledKeys(form), "保存编辑修改删除退出");
  EXPECT_FALSE(editor(form).isVisible());
  expectSaved();
  press(form, "保存");
  EXPECT_EQ(count("fa_Cards"), "3") << "the shown card is rewritten, none is added";
}

TEST_F(FrmAddCardsStoredTest, cancelsWhatWasTypedIntoTheLastCard) {
  FrmAddCards& form = openStored("3");
  press(form, "修改");
  enter(form, 4, "刨床");
  edit(form, 10, "西区");
  expectQuestion("是否取消本次操作？", Answer::Ok);
  press(form, "取消");
  EXPECT_EQ(shown(form, 4) + shown(form, 10), "车床");
}

TEST_F(FrmAddCardsStoredTest, deletesNothing) {
  FrmAddCards& form = openStored("1");
  press(form, "修改");
  expectQuestion("确定要删除当前所选记录吗？", Answer::Cancel);
  press(form, "删除");
  EXPECT_EQ(card(form) + enabledKeys(form), "00001 一车间保存编辑取消修改删除退出");
  expectQuestion("确定要删除当前所选记录吗？", Answer::Ok);
  press(form, "删除");
  EXPECT_EQ(card(form) + enabledKeys(form), "00001 二车间编辑修改删除退出");
  EXPECT_EQ(count("fa_Cards"), "3");
}

TEST_F(FrmAddCardsStoredTest, keepsANewCardWhereThereIsNoOther) {
  execute("delete from fa_Cards");
  FrmAddCards& form = openNew("021");
  expectQuestion("是否取消本次操作？", Answer::Ok);
  expectWarning("没有任何固定卡片！");
  press(form, "取消");
  EXPECT_EQ(shown(form, 1) + enabledKeys(form), "00001保存编辑修改删除退出");
}

TEST_F(FrmAddCardsStoredTest, canBeLookedAtOnly) {
  FrmAddCards& form = openStored("3", true);
  pressValue(form, 4);
  EXPECT_FALSE(editor(form).isVisible());
  EXPECT_FALSE(isEnabled(form, "CmdAddCards8"));
  EXPECT_EQ(enabledKeys(form), "编辑退出");
}

TEST_F(FrmAddCardsStoredTest, closesWithoutAWordAndLeavesTheProgramRunning) {
  FrmAddCards& form = openNew("021");
  edit(form, 14, "soon");
  press(form, "退出");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(endStatus(), -1);
  EXPECT_EQ(count("fa_Cards"), "3");
}

}  // namespace
}  // namespace zelkor::test
