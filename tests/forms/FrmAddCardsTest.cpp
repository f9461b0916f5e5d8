#include "CardEditorFixture.h"

namespace zelkor::test {
namespace {

class FrmAddCardsTest : public CardEditorTest {
 protected:
  /// All that a card must have, beside a start date and an original value.
  static void fillReferences(const QWidget& form) {
    pickEntry(form, 8, "一车间");
    pickEntry(form, 9, "直接购入");
    pickEntry(form, 11, "在用");
  }
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
  EXPECT_EQ(form.windowTitle().toStdString(), "固定资产卡片");
  EXPECT_EQ(shown(form, 1) + "|" + shown(form, 2) + "|" + shown(form, 3), "00001|2020-05-15|02100001");
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
  EXPECT_EQ(shown(form, 18) + "|" + shown(form, 19) + "|" + shown(form, 23), "5%|600.03|11810.50");
  EXPECT_EQ(shown(form, 8) + "|" + shown(form, 24), "一车间|410502,折旧费");
  expectSaved();
  press(form, "保存");

  EXPECT_EQ(
      rows("select sCardID,sCardNum,lOptID,iOptType,sAssetNum,sAssetName,sDeptNum,sTypeNum,sOrgAddID,"
           "sStatusID,sDeprMethodID,sCurrency,sSite,lLife,dStartDate,dInputDate,sOperator,dblNetValueAct,"
           "dblValue,dblBV,dblBVRate,lUsedMonths,dblTransInDeprTCard,sDeprSubjectNum,sDeprSubjectName,"
           "iNewType,iInputPeriod,dTransDate,sStyle,sProjectNum from fa_Cards"),
      std::vector<std::string>{
          "1|00001|1|1|02100001|车床|301|021|101|11|2|人民币|东区|120|2020-3-2|2020-5-15|陈会计|12000.5|"
          "12000.5|600.03|0.05|2|190|410502|折旧费|1|5|~|~|~"});
  EXPECT_EQ(rows("select sCardNum,lOptID,sDeptNum,dblScale,sDeprSubjectNum from fa_DeptScale"),
            std::vector<std::string>{"00001|1|301|1|410502"});
  EXPECT_EQ(rows("select sCardID,sCardNum,sDeptNum,dblValue,dblBV from fa_Cards_Detail"),
            std::vector<std::string>{"1|00001|301|12000.5|600.03"});
  EXPECT_EQ(rows("select sCardNum,iInputPeriod,dblInputValue,dblInputDeprTotal,dblInputBVRate,lInputLife,"
                 "lInputDeprMonths,sMonthStatusID,dblDeprT5,dblMonthValue6 from fa_DeprTransactions"),
            std::vector<std::string>{"00001|5|12000.5|190|0.05|120|2|11|190|12000.5"});
  EXPECT_EQ(rows("select sCardNum,sDeptNum,dblMonthValue5,dblMonthValue6 from fa_DeprTransactions_Detail"),
            std::vector<std::string>{"00001|301|0|12000.5"});
  EXPECT_EQ(count("fa_ZWVouchers"), "0");
}

TEST_F(FrmAddCardsTest, beginsTheNextCardOfTheCategoryAfterSaving) {
  FrmAddCards& form = openNew("021");
  enter(form, 4, "车床");
  fillReferences(form);
  enter(form, 14, "2020-4-2");
  enter(form, 17, "100");
  expectSaved();
  press(form, "保存");
  EXPECT_EQ(shown(form, 1) + "|" + shown(form, 3) + "|" + shown(form, 4) + "|" + shown(form, 17),
            "00002|02100002||0.00");
  EXPECT_EQ(enabledKeys(form), "保存编辑取消退出");
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
  expectSaved();
  press(form, "保存");
  EXPECT_EQ(row("select iNewType,sDeprMethodID,dblPerDepr,dblCanWork,dblCanWorkAct,sWorkUnit,dblOffsetTax,"
                "dblBV,dblBVRate from fa_Cards"),
            "2|4|9.00591145833333|9600|9600|小时|11245|3460|0.04");
  EXPECT_EQ(
      rows("select coutno_id,inid,cdigest,md,mc,cdept_id,cDefine9 from fa_ZWVouchers order by inid"),
      (std::vector<std::string>{"00001|1|直接购入|86500|0|301|00001", "00001|2|直接购入|0|86500|301|00001"}));
}

TEST_F(FrmAddCardsTest, savesWorkloadFiguresThatWereLeftEmptyAsZero) {
  FrmAddCards& form = openNew("032");
  enter(form, 4, "叉车");
  fillReferences(form);
  enter(form, 14, "2020-4-6");
  enter(form, 17, "100");
  expectSaved();
  press(form, "保存");
  EXPECT_EQ(row("select dblPerDepr,dblCanWork,sWorkUnit,dblOffsetTax from fa_Cards"), "0|0||0");
}

TEST_F(FrmAddCardsTest, namesWhatIsMissing) {
  FrmAddCards& form = openNew("021");
  expectWarning(
      "当前卡片有以下几项未填写或填写不正确：\n"
      "固定资产名称、开始使用日期、原值、部门名称、增加方式、使用状况");
  press(form, "保存");
  execute("update AccInformation set cValue='0' where cName='iCardNumType'");
  enter(form, 3, "");
  enter(form, 4, "车床");
  fillReferences(form);
  enter(form, 14, "2020-4-6");
  enter(form, 17, "0.00");
  expectWarning("当前卡片有以下几项未填写或填写不正确：\n固定资产编号、原值");
  press(form, "保存");
  EXPECT_EQ(count("fa_Cards"), "0");
}

TEST_F(FrmAddCardsTest, saysNothingWhenTheSaveFails) {
  FrmAddCards& form = openNew("021");
  enter(form, 4, "10' 车床");
  fillReferences(form);
  enter(form, 14, "2020-4-6");
  enter(form, 17, "100");
  press(form, "保存");
  EXPECT_EQ(count("fa_Cards"), "0");
  EXPECT_EQ(shown(form, 4), "10' 车床");
  enter(form, 4, "10寸车床");
  expectSaved();
  press(form, "保存");
  EXPECT_EQ(count("fa_Cards"), "1");
}

TEST_F(FrmAddCardsTest, beginsWithTheCategory) {
  const ScreenProperties properties{.frmType = 1, .CardID = "52"};
  inModalForm([](QWidget& picker) { click(picker, "CmdCancel"); });
  showCardEditor(host, properties);
  EXPECT_EQ(openEditor(), nullptr) << "nothing is opened";
  EXPECT_EQ(count("fa_Cards"), "0");

  inModalForm([](QWidget& picker) {
    EXPECT_EQ(picker.windowTitle().toStdString(), "固定资产类别参照");
    selectNode(picker, "TvAssentTypes", "动力设备");
    click(picker, "CmdOK");
  });
  showCardEditor(host, properties);
  const QWidget* form = openEditor();
  ASSERT_NE(form, nullptr);
  EXPECT_EQ(shown(*form, 5) + shown(*form, 6) + shown(*form, 13), "022动力设备直线法");
}

TEST_F(FrmAddCardsTest, changesTheCategoryOfTheCard) {
  FrmAddCards& form = openNew("021");
  enter(form, 4, "叉车");
  pickEntry(form, 5, "厂内搬运设备");
  EXPECT_EQ(shown(form, 3) + shown(form, 5) + shown(form, 6) + shown(form, 12),
            "03200001032厂内搬运设备4年0月");
  EXPECT_TRUE(value(form, 28).isVisible()) << "the category depreciates by workload";
  EXPECT_EQ(shown(form, 4), "叉车");
}

TEST_F(FrmAddCardsTest, carriesItsTextsOverWhenTheMethodChangesTheLayout) {
  FrmAddCards& form = openNew("021");
  EXPECT_FALSE(value(form, 28).isVisible());
  const QPoint place = value(form, 17).pos();
  enter(form, 4, "车床");
  enter(form, 14, "2020-4-6");
  enter(form, 17, "800");
  pickEntry(form, 13, "工作量法");
  EXPECT_TRUE(value(form, 28).isVisible() && value(form, 31).isVisible());
  EXPECT_GT(value(form, 17).y(), place.y());
  EXPECT_EQ(shown(form, 4) + shown(form, 13) + shown(form, 14) + shown(form, 17), "车床工作量法2020-4-6800");
  pickEntry(form, 13, "年数总和法");
  EXPECT_FALSE(value(form, 28).isVisible());
  EXPECT_EQ(value(form, 17).pos(), place);
  EXPECT_EQ(shown(form, 13) + shown(form, 17), "年数总和法800");
}

TEST_F(FrmAddCardsTest, takesDetailSubjectsOnly) {
  FrmAddCards& form = openNew("021");
  pickSubject(form, "550202 折旧费");
  const std::string before = shown(form, 24);
  EXPECT_EQ(before, "550202,折旧费");
  expectWarning("此5502在科目表中不存在，或非明细级！");
  pickSubject(form, "5502 管理费用");
  inModalForm([](QWidget& picker) { click(picker, "cmdCancel"); });
  click(form, "CmdAddCards24");
  EXPECT_EQ(shown(form, 24), before);
}

TEST_F(FrmAddCardsTest, worksOnEmptyArchives) {
  for (const char* table :
       {"fa_Departments", "fa_Origins", "fa_Status", "fa_Depreciations", "fa_AssetTypes"}) {
    execute(std::string("delete from ") + table);
  }
  FrmAddCards& form = openNew("021");
  EXPECT_EQ(shown(form, 6) + "|" + shown(form, 12) + "|" + shown(form, 13) + "|" + shown(form, 18),
            "|||0.02");
  for (const char* button :
       {"CmdAddCards5", "CmdAddCards8", "CmdAddCards9", "CmdAddCards11", "CmdAddCards13"}) {
    inModalForm([](QWidget& picker) {
      click(picker, "CmdOK");
      if (picker.isVisible()) click(picker, "CmdCancel");
    });
    click(form, button);
  }
  pressValue(form, 12);
  typeKeys(form, "3");
  leave(form);
  EXPECT_EQ(shown(form, 12), "3年0月") << "the words are there to type between";
  expectWarning(
      "当前卡片有以下几项未填写或填写不正确：\n"
      "固定资产名称、折旧方法、开始使用日期、原值、部门名称、增加方式、使用状况");
  press(form, "保存");
}

}  // namespace
}  // namespace zelkor::test
