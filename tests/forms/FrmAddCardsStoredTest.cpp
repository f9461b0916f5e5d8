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
  keepPicture(form, "FrmAddCards-stored");
  EXPECT_EQ(shown(form, {1, 4, 8, 13, 17, 31}), "00001|车床|二车间|工作量法|900.00|12.5");
  EXPECT_EQ(enabledKeys(form), "编辑 修改 删除 退出 ");
  EXPECT_FALSE(editor(form).isVisible());
}

TEST_F(FrmAddCardsStoredTest, rewritesTheWholeCard) {
  FrmAddCards& form = openStored("3");
  press(form, "修改");
  EXPECT_EQ(enabledKeys(form), "保存 编辑 取消 修改 删除 退出 ");
  enter(form, 3, "");
  enter(form, 4, "数控车床");
  enter(form, 17, "1900");
  pickEntry(form, 8, "财务部");
  saveAndExpectSuccess(form);
  EXPECT_EQ(rows("select sCardID,sAssetNum,sAssetName,sDeptNum,sDeprMethodID,dblValue,dblBV,dblPerDepr "
                 "from fa_Cards order by val(sCardID)"),
            (Lines{"1||数控车床|2|4|1900|95|0.19", "2|02100002|铣床|301|2|1000|0|0",
                   "3||数控车床|2|4|1900|95|0.19"}));
  EXPECT_EQ(shown(form, 4), "数控车床") << "the card stays shown";
  enter(form, 4, "");
  tells("当前卡片有以下几项未填写或填写不正确：\n固定资产名称");
  press(form, "保存");
}

TEST_F(FrmAddCardsStoredTest, walksOverAllVersionsOfAllCards) {
  FrmAddCards& form = openStored("1");
  const std::pair<const char*, const char*> steps[] = {
      {"下一个", "00002 一车间"}, {"下一个", "00001 二车间"},   {"下一个", "00001 二车间"},
      {"第一个", "00001 一车间"}, {"最后一个", "00001 二车间"}, {"上一个", "00002 一车间"}};
  for (const auto& [step, reached] : steps) {
    command(form, step).trigger();
    EXPECT_EQ(card(form), reached) << step;
    EXPECT_EQ(value(form, 28).isVisible(), card(form) == "00001 二车间") << step;
  }
  execute("delete from fa_Cards");
  tells("没有任何固定卡片！");
  command(form, "下一个").trigger();
  EXPECT_EQ(card(form), "00002 一车间");
}

TEST_F(FrmAddCardsStoredTest, cancelsANewCardForTheLastOne) {
  FrmAddCards& form = openNew("021");
  typeKeys(form, "刨床");
  expectQuestion("是否取消本次操作？", Answer::Cancel);
  press(form, "取消");
  EXPECT_EQ(shown(form, 1) + enabledKeys(form), "00003保存 编辑 取消 退出 ");
  expectQuestion("是否取消本次操作？", Answer::Ok);
  press(form, "取消");
  EXPECT_EQ(card(form), "00001 二车间");
  EXPECT_EQ(enabledKeys(form), "保存 编辑 修改 删除 退出 ");
  EXPECT_FALSE(editor(form).isVisible());
  saveAndExpectSuccess(form);
  EXPECT_EQ(count("fa_Cards"), "3") << "the shown card is rewritten, none is added";
}

TEST_F(FrmAddCardsStoredTest, cancelsWhatWasTypedIntoTheLastCard) {
  FrmAddCards& form = openStored("3");
  press(form, "修改");
  enter(form, 4, "刨床");
  edit(form, 10, "西区");
  expectQuestion("是否取消本次操作？", Answer::Ok);
  press(form, "取消");
  EXPECT_EQ(shown(form, {4, 10}), "车床|");
  edit(form, 14, "soon");
  press(form, "退出");
  EXPECT_FALSE(form.isVisible()) << "without a word";
  EXPECT_EQ(endStatus(), -1);
}

TEST_F(FrmAddCardsStoredTest, deletesNothing) {
  FrmAddCards& form = openStored("1");
  press(form, "修改");
  expectQuestion("确定要删除当前所选记录吗？", Answer::Cancel);
  press(form, "删除");
  EXPECT_EQ(card(form) + enabledKeys(form), "00001 一车间保存 编辑 取消 修改 删除 退出 ");
  expectQuestion("确定要删除当前所选记录吗？", Answer::Ok);
  press(form, "删除");
  EXPECT_EQ(card(form) + enabledKeys(form), "00001 二车间编辑 修改 删除 退出 ");
  EXPECT_EQ(count("fa_Cards"), "3");
}

TEST_F(FrmAddCardsStoredTest, canBeLookedAtOnly) {
  FrmAddCards& form = openStored("3", true);
  pressValue(form, 4);
  EXPECT_FALSE(editor(form).isVisible());
  EXPECT_FALSE(isEnabled(form, "CmdAddCards8"));
  EXPECT_EQ(enabledKeys(form), "编辑 退出 ");
}

}  // namespace
}  // namespace zelkor::test
