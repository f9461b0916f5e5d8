#include <QComboBox>
#include <QTest>

#include "changes/FrmFABalance.h"
#include "forms/SheetForms.h"

namespace zelkor::test {
namespace {

class FrmFABalanceTest : public SheetFormTest {
 protected:
  FrmFABalance& openBalance() {
    auto& form = host.show<FrmFABalance>(context.gstrZtFile);
    activate(form);
    return form;
  }
  static std::string texts(const QWidget& form, std::initializer_list<int> numbers) {
    return SheetFormTest::texts(form, "Text", numbers);
  }
  static void pickMethod(const QWidget& form, const QString& method) {
    pickNext("tvwType", method, "cmdOK");
    click(form, "cmdMethod");
  }
  static void pickFirstCard(const QWidget& form) { pickCard(form, "cmdMobile3", 1); }
};

TEST_F(FrmFABalanceTest, changesTheMethodAndPreparesTheNextSheet) {
  auto& form = openBalance();
  EXPECT_EQ(texts(form, {1, 2, 11}) + "|" + textOf(form, "txtTemp"), "00001|2020-5-15|陈会计|1");
  pickFirstCard(form);
  EXPECT_EQ(texts(form, {3, 4, 6, 8}) + "|" + textOf(form, "txtBFID"),
            "00001|02100001|车床|平均年限法(一)|2");
  pickMethod(form, "年数总和法[5]");
  keepPicture(form, "FrmFABalance");
  EXPECT_EQ(texts(form, {9}) + "|" + textOf(form, "txtAFID"), "年数总和法|5");
  enter(form, "txtMobile", {"更新快"});
  tells("数据保存成功!");
  press(form, "保存");
  EXPECT_EQ(newestSheet(), "00001|00001|折旧方法调整|7|2|5|更新快|陈会计");
  EXPECT_EQ(texts(form, {1, 3, 9, 10}) + "|" + textOf(form, "txtTemp"), "00002||||2");
}

TEST_F(FrmFABalanceTest, refusesAnIncompleteSheetAndAnUnchangedMethod) {
  const auto& form = openBalance();
  expectRefusal(form, "数据填写不完整!");
  pickFirstCard(form);
  pickMethod(form, "平均年限法(一)[2]");
  expectRefusal(form, "数据填写不完整!");
  enter(form, "txtMobile", {"无"});
  expectRefusal(form, "变动后内容不应和变动前内容相同");
  EXPECT_EQ(count("fa_Vouchers"), "0");
  pickMethod(form, "直线法[6]");
  execute("drop table fa_Vouchers");
  expectRefusal(form, "数据保存失败!");
  EXPECT_EQ(texts(form, {3, 9, 10}), "00001|直线法|无") << "the sheet stays";
}

TEST_F(FrmFABalanceTest, asksBeforeItLeavesTheWorkloadMethod) {
  execute("update fa_Cards set sDeprMethodID='4',dblPerDepr=2");
  const auto& form = openBalance();
  pickFirstCard(form);
  pickMethod(form, "平均年限法(二)[3]");
  type(form, "txtMobile", "停用计量");
  const char* question =
      "由于本资产折旧方法已不再和工作量有关，所以本月工作量将被清空.\n确实要进行此变动吗？";
  asks(question, Answer::No, "资产变动");
  press(form, "保存");
  EXPECT_EQ(count("fa_Cards") + count("fa_Vouchers"), "10");
  asks(question, Answer::Yes, "资产变动");
  tells("数据保存成功!");
  press(form, "保存");
  EXPECT_EQ(newestVersion("sDeprMethodID,dblPerDepr"), "3|0");
}

TEST_F(FrmFABalanceTest, loadsATypedCard) {
  const auto& form = openBalance();
  tells("当前卡片已不存在！");
  enter(form, "txtMobile", {"00009"});
  EXPECT_EQ(texts(form, {3, 6}), "|");
  enter(form, "txtMobile", {"00001"});
  EXPECT_EQ(texts(form, {3, 4, 5, 6, 8}), "00001|02100001|2020-4-1|车床|平均年限法(一)");
  goBack(form, "txtMobile", 2);
  type(form, "txtMobile", "7");
  expectRefusal(form, "当前卡片已不存在！");
  EXPECT_EQ(texts(form, {3}), "00001") << "the card that is loaded; nothing else is checked";
}

TEST_F(FrmFABalanceTest, keepsWhatStandsWhenNothingIsPicked) {
  const auto& form = openBalance();
  for (const char* button : {"cmdMobile3", "cmdMobile4", "cmdMethod"}) {
    leaveNext();
    click(form, button);
  }
  EXPECT_EQ(texts(form, {3, 4, 9}), "||");
  press(form, "退出");
  EXPECT_EQ(endStatus(), 0);
}

}  // namespace
}  // namespace zelkor::test
