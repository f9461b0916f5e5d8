#include "CardEditorFixture.h"

namespace zelkor::test {
namespace {

class FrmAddCardsTest : public CardEditorTest {
 protected:
  /// The card editor that is shown, if one is.
  static const QWidget* openEditor() {
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "FrmAddCards" && window->isVisible()) return window;
    }
    return nullptr;
  }
};

TEST_F(FrmAddCardsTest, entersACardAndBeginsTheNext) {
  FrmAddCards& form = openNew("021");
  keepPicture(form, "FrmAddCards-new");
  EXPECT_EQ(shown(form, {1, 2, 3}), "00001|2020-05-15|02100001");
  fillCard(form, "车床", "12000.50");
  enter(form, 18, "5");
  pickSubject(form, "410502 折旧费");
  edit(form, 20, "190");  // still under edit when the card is saved
  saveAndExpectSuccess(form);
  EXPECT_EQ(rows("select sAssetName,sDeptNum,sOrgAddID,sStatusID,dStartDate,dblValue,dblBV,dblBVRate,"
                 "dblTransInDeprTCard,sDeprSubjectNum,sOperator,iNewType,iInputPeriod from fa_Cards"),
            Lines{"车床|301|101|11|2020-4-6|12000.5|600.03|0.05|190|410502|陈会计|1|5"});
  EXPECT_EQ(shown(form, {1, 3, 4, 17}), "00002|02100002||0.00") << "the next card of the category";
  EXPECT_EQ(enabledKeys(form), "保存 编辑 取消 退出 ");
  EXPECT_TRUE(isEdited(form, 4));
}

TEST_F(FrmAddCardsTest, entersANewAssetByWorkload) {
  FrmAddCards& form = openNew("032", CardMode::NewAsset);
  enter(form, 4, "电动叉车");
  fillReferences(form);
  enter(form, 28, "9600");
  enter(form, 14, "2020-5-6");
  enter(form, 17, "86500");
  keepPicture(form, "FrmAddCards-workload");
  EXPECT_EQ(shown(form, 21), "9.00591145833333") << "(86500 - 43.25) / 9600";
  saveAndExpectSuccess(form);
  EXPECT_EQ(row("select iNewType,sDeprMethodID,dblPerDepr,dblCanWork from fa_Cards"),
            "2|4|9.00591145833333|9600");
  EXPECT_EQ(count("fa_ZWVouchers"), "2");
}

TEST_F(FrmAddCardsTest, saysNothingWhenTheSaveFails) {
  FrmAddCards& form = openNew("021");
  fillCard(form, "10' 车床", "100");
  press(form, "保存");
  EXPECT_EQ(count("fa_Cards"), "0");
  EXPECT_EQ(shown(form, 4), "10' 车床");
}

TEST_F(FrmAddCardsTest, beginsWithTheCategory) {
  const ScreenProperties properties{.frmType = 1, .CardID = "52"};
  leaveNext();
  showCardEditor(host, properties);
  EXPECT_EQ(openEditor(), nullptr) << "nothing is opened";
  pickNext("TvAssentTypes", "动力设备", "CmdOK");
  showCardEditor(host, properties);
  const QWidget* form = openEditor();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(shown(*form, {5, 6, 13}), "022|动力设备|直线法");
}

TEST_F(FrmAddCardsTest, carriesItsTextsOverWhenCategoryOrMethodChange) {
  FrmAddCards& form = openNew("032");
  EXPECT_TRUE(value(form, 28).isVisible()) << "the category depreciates by workload";
  pickEntry(form, 5, "生产设备");
  EXPECT_EQ(shown(form, {3, 5, 6, 13}), "02100001|021|生产设备|平均年限法(一)");
  EXPECT_FALSE(value(form, 28).isVisible());
  enter(form, 17, "800");
  pickEntry(form, 13, "工作量法");
  EXPECT_TRUE(value(form, 28).isVisible() && value(form, 31).isVisible());
  EXPECT_EQ(shown(form, {13, 17}), "工作量法|800");
}

TEST_F(FrmAddCardsTest, takesDetailSubjectsOnly) {
  FrmAddCards& form = openNew("021");
  pickSubject(form, "550202 折旧费");
  tells("此5502在科目表中不存在，或非明细级！");
  pickSubject(form, "5502 管理费用");
  leaveNext();
  click(form, "CmdAddCards24");
  EXPECT_EQ(shown(form, 24), "550202,折旧费");
}

TEST_F(FrmAddCardsTest, worksOnEmptyArchives) {
  for (const char* table :
       {"fa_Departments", "fa_Origins", "fa_Status", "fa_Depreciations", "fa_AssetTypes"}) {
    execute(std::string("delete from ") + table);
  }
  FrmAddCards& form = openNew("021");
  EXPECT_EQ(shown(form, {6, 12, 13, 18}), "|||0.02");
  inModalForm([](QWidget& picker) {
    click(picker, "CmdOK");
    if (picker.isVisible()) click(picker, "CmdCancel");
  });
  click(form, "CmdAddCards8");
  pressValue(form, 12);
  typeKeys(form, "3");
  leave(form);
  EXPECT_EQ(shown(form, 12), "3年0月") << "the words are there to type between";
  tells(
      "当前卡片有以下几项未填写或填写不正确：\n"
      "固定资产名称、折旧方法、开始使用日期、原值、部门名称、增加方式、使用状况");
  press(form, "保存");
}

}  // namespace
}  // namespace zelkor::test
