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

TEST_F(FrmAddCardsTest, entersAnOriginalCard) {
  FrmAddCards& form = openNew("021");
  EXPECT_EQ(shown(form, {1, 2, 3}), "00001|2020-05-15|02100001");
  enter(form, 4, "车床");
  enter(form, 7, "C6140");
  fillReferences(form);
  enter(form, 10, "东区");
  enter(form, 14, "2020-3-2");
  enter(form, 17, "12000.50");
  enter(form, 18, "5");
  enter(form, 20, "190");
  pickSubject(form, "410502 折旧费");
  EXPECT_EQ(shown(form, 15), "2");
  EXPECT_EQ(shown(form, {18, 19, 23, 8, 24}), "5%|600.03|11810.50|一车间|410502,折旧费");
  saveAndExpectSuccess(form);

  EXPECT_EQ(
      rows("select sCardID,sCardNum,lOptID,iOptType,sAssetNum,sAssetName,sDeptNum,sTypeNum,sOrgAddID,"
           "sStatusID,sDeprMethodID,sCurrency,sSite,lLife,dStartDate,dInputDate,sOperator,dblNetValueAct,"
           "dblValue,dblBV,dblBVRate,lUsedMonths,dblTransInDeprTCard,sDeprSubjectNum,sDeprSubjectName,"
           "iNewType,iInputPeriod,dTransDate,sStyle,sProjectNum from fa_Cards"),
      Lines{"1|00001|1|1|02100001|车床|301|021|101|11|2|人民币|东区|120|2020-3-2|2020-5-15|陈会计|12000.5|"
            "12000.5|600.03|0.05|2|190|410502|折旧费|1|5|~|~|~"});
  EXPECT_EQ(count("fa_ZWVouchers"), "0");
  EXPECT_EQ(shown(form, {1, 3, 4, 17}), "00002|02100002||0.00") << "the next card of the category";
  EXPECT_EQ(enabledKeys(form), "保存 编辑 取消 退出 ");
  EXPECT_TRUE(isEdited(form, 4));
}

TEST_F(FrmAddCardsTest, entersANewAssetByWorkload) {
  FrmAddCards& form = openNew("032", CardMode::NewAsset);
  EXPECT_TRUE(value(form, 28).isVisible());
  enter(form, 4, "电动叉车");
  fillReferences(form);
  enter(form, 28, "9600");
  enter(form, 30, "小时");
  enter(form, 14, "2020-5-6");
  enter(form, 17, "86500");
  enter(form, 18, "4");
  enter(form, 31, "11245");
  EXPECT_EQ(shown(form, 19), "3460.00");
  EXPECT_EQ(shown(form, 21), "9.00591145833333")
      << "(86500 - 43.25) / 9600 at the rate when the value came in";
  saveAndExpectSuccess(form);
  EXPECT_EQ(row("select iNewType,sDeprMethodID,dblPerDepr,dblCanWork,dblCanWorkAct,sWorkUnit,dblOffsetTax,"
                "dblBV,dblBVRate from fa_Cards"),
            "2|4|9.00591145833333|9600|9600|小时|11245|3460|0.04");
  EXPECT_EQ(rows("select coutno_id,inid,cdigest,md,mc,cdept_id,cDefine9 from fa_ZWVouchers order by inid"),
            (Lines{"00001|1|直接购入|86500|0|301|00001", "00001|2|直接购入|0|86500|301|00001"}));
}

TEST_F(FrmAddCardsTest, saysNothingWhenTheSaveFails) {
  FrmAddCards& form = openNew("021");
  fillCard(form, "10' 车床", "100");
  press(form, "保存");
  EXPECT_EQ(count("fa_Cards"), "0");
  EXPECT_EQ(shown(form, 4), "10' 车床");
  enter(form, 4, "10寸车床");
  saveAndExpectSuccess(form);
  EXPECT_EQ(count("fa_Cards"), "1");
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
  enter(form, 4, "车床");
  enter(form, 14, "2020-4-6");
  enter(form, 17, "800");
  pickEntry(form, 13, "工作量法");
  EXPECT_TRUE(value(form, 28).isVisible() && value(form, 31).isVisible());
  EXPECT_EQ(shown(form, {4, 13, 14, 17}), "车床|工作量法|2020-4-6|800");
  pickEntry(form, 13, "年数总和法");
  EXPECT_FALSE(value(form, 28).isVisible());
  EXPECT_EQ(shown(form, {13, 17}), "年数总和法|800");
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
  for (const int field : {5, 8, 9, 11, 13}) {
    inModalForm([](QWidget& picker) {
      click(picker, "CmdOK");
      if (picker.isVisible()) click(picker, "CmdCancel");
    });
    click(form, name("CmdAddCards", field).c_str());
  }
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
