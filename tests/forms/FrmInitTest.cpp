#include <QLabel>

#include "store/FrmInit.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

constexpr const char* kTitle = "固定资产";
constexpr const char* kFinishQuestion =
    "已经完成了新账套的所有设置工作.\n是否确定所设置的信息完全正确并保存对新账套的所有设置?";

/// The wizard on an account set that started in January 2020, logged in to in May; not set up yet.
class FrmInitTest : public FormTest {
 protected:
  FrmInitTest() { execute("update AccInformation set cValue='' where cSysID='FA' and cName='dStartDate'"); }

  FrmInit& open() { return host.show<FrmInit>(); }
  static void goTo(const QWidget& form, int step) {
    click(form, "OptionYes");
    for (int i = 1; i < step; ++i) click(form, "CmdNext");
  }
  static void enterSubjects(const QWidget& form, const QString& assets, const QString& depreciation) {
    type(form, "TxtGDZCDZKM", assets);
    type(form, "TxtLJZJDZKM", depreciation);
  }
  std::string parameter(const std::string& name) {
    return row("select cValue from AccInformation where cSysID='FA' and cName='" + name + "'");
  }
  std::vector<std::string> parameters() {
    return rows("select cName,cValue from AccInformation where cSysID='FA' order by cID");
  }
  void expectFinish() {
    dialogs.expectYesNo(kFinishQuestion, Answer::Yes, Icon::Question, kTitle)
        .expectOk("已完成初始化本固定资产账套!", Icon::Information, kTitle);
  }
};

TEST_F(FrmInitTest, showsTheTermsAndWaitsForConsent) {
  const FrmInit& form = open();
  const std::string terms = control<QPlainTextEdit>(form, "TxtJBYZ").toPlainText().toStdString();
  EXPECT_TRUE(terms.starts_with("请您在进行初始化之前认真阅读如下条款：\n---")) << terms;
  EXPECT_NE(
      terms.find("\n账套号：001\n账套名称：示例账套\n使用单位：示例机械制造有限公司\n本位币：人民币\n---"),
      std::string::npos);
  EXPECT_NE(
      terms.find(
          "\n5、使用状况调整下月有效。\n6、折旧分配：部门转移和类别调整当月计提的折旧分配分配到变动后部门和类"
          "别。\n7、"),
      std::string::npos);
  EXPECT_FALSE(isEnabled(form, "CmdNext"));
  EXPECT_FALSE(isEnabled(form, "CmdPr"));
  click(form, "OptionYes");
  EXPECT_TRUE(isEnabled(form, "CmdNext"));
  click(form, "OptionNo");
  EXPECT_FALSE(isEnabled(form, "CmdNext"));
  EXPECT_FALSE(isEnabled(form, "CmdFinish"));
}

TEST_F(FrmInitTest, offersMonthsFromTheLaterBeginning) {
  const struct {
    int accountMonth;
    const char* operatingDate;
    const char* first;
    int count;
  } cases[] = {
      {1, "2020-3-15", "2020.03", 10}, {4, "2020-1-15", "2020.04", 9}, {12, "2020-12-1", "2020.12", 1}};
  for (const auto& c : cases) {
    context.dbZKSystem.Execute("update za_account set iMonth=" + std::to_string(c.accountMonth));
    context.gdOpDate = day(c.operatingDate);
    const auto& months = control<QComboBox>(open(), "ComboZTQYYF");
    EXPECT_EQ(months.count(), c.count);
    EXPECT_EQ(months.currentText().toStdString(), c.first);
    EXPECT_EQ(months.itemText(months.count() - 1).toStdString(), "2020.12");
  }
}

TEST_F(FrmInitTest, keepsTheCodeWithinTenCharacters) {
  const FrmInit& form = open();
  EXPECT_EQ(textOf(form, "LblBMZCD"), "6");
  EXPECT_EQ(control<UpDown>(form, "UpDownBMCD0").maximum(), 6);
  type(form, "TxtBMCD1", "9");
  EXPECT_EQ(textOf(form, "TxtBMCD1"), "5") << "the others hold 5 already";
  EXPECT_EQ(textOf(form, "LblBMZCD"), "10");
  EXPECT_EQ(control<UpDown>(form, "UpDownBMCD3").maximum(), 2);
  type(form, "TxtBMCD2", "0");
  EXPECT_EQ(textOf(form, "LblBMZCD"), "9");
  type(form, "TxtBMCD3", "x");
  EXPECT_EQ(textOf(form, "TxtBMCD3"), "2");
}

TEST_F(FrmInitTest, asksBeforeDepreciationIsSwitchedOff) {
  const std::string question =
      "如果选择'本账套不提折旧':\n则本账套内所有资产不能计提折旧,系统内与折旧有关的操作全部无效,"
      "并且一经保存此设置(并输"
      "入业务数据),则此设置无法修改!\n本账套确实不提折旧?";
  const FrmInit& form = open();
  dialogs.expectYesNo(question, Answer::No, Icon::Question, kTitle);
  click(form, "CheckJTZJ");
  EXPECT_TRUE(control<QCheckBox>(form, "CheckJTZJ").isChecked());
  EXPECT_TRUE(isEnabled(form, "ComboZJFF"));
  dialogs.expectYesNo(question, Answer::Yes, Icon::Question, kTitle);
  click(form, "CheckJTZJ");
  EXPECT_FALSE(isEnabled(form, "ComboZJFF"));
  EXPECT_FALSE(isEnabled(form, "ComboHZFPZQ"));
  click(form, "CheckJTZJ");
  EXPECT_TRUE(isEnabled(form, "ComboZJFF"));
}

TEST_F(FrmInitTest, locksTheAutomaticNumbersForEntryByHand) {
  const FrmInit& form = open();
  click(form, "OptionBMFSSD");
  EXPECT_FALSE(isEnabled(form, "ComboBMFS") || isEnabled(form, "TxtXHCD") || isEnabled(form, "UpDownXHCD"));
  click(form, "OptionBMFSZD");
  EXPECT_TRUE(isEnabled(form, "ComboBMFS") && isEnabled(form, "TxtXHCD") && isEnabled(form, "UpDownXHCD"));
  click(form, "CheckZWXTDZ");
  EXPECT_FALSE(isEnabled(form, "CheckDZBP") || isEnabled(form, "FrameDZKM"));
}

TEST_F(FrmInitTest, refusesToEndWithoutRightSubjects) {
  const FrmInit& form = open();
  goTo(form, 5);
  dialogs.expectOk("有如下错误：\n\n固定资产对账科目不正确!", Icon::Exclamation, kTitle);
  click(form, "CmdNext");
  EXPECT_EQ(control<QStackedWidget>(form, "Pages").currentIndex(), 4) << "the step goes back";
  dialogs.expectOk("科目录入错误!", Icon::Critical, kTitle);
  type(form, "TxtGDZCDZKM", "9999,没有");
  click(form, "CmdNext");
  EXPECT_EQ(textOf(form, "TxtGDZCDZKM"), "");
  type(form, "TxtGDZCDZKM", "1501,写什么都行");
  dialogs.expectOk("有如下错误：\n\n累计折旧对账科目不正确!", Icon::Exclamation, kTitle);
  click(form, "CmdNext");
  EXPECT_EQ(textOf(form, "TxtGDZCDZKM"), "1501,固定资产");
  EXPECT_FALSE(isEnabled(form, "CmdFinish"));
  type(form, "TxtLJZJDZKM", "1502");
  click(form, "CmdNext");
  EXPECT_EQ(control<QStackedWidget>(form, "Pages").currentIndex(), 5);
  EXPECT_TRUE(isEnabled(form, "CmdFinish"));
  EXPECT_FALSE(isEnabled(form, "CmdNext"));
}

TEST_F(FrmInitTest, looksASubjectUpWhenItsFieldIsLeft) {
  FrmInit& form = open();
  goTo(form, 5);
  form.activateWindow();
  settle();
  type(form, "TxtGDZCDZKM", "1501");
  sendKey(control<QLineEdit>(form, "TxtGDZCDZKM"), Qt::Key_Return);
  EXPECT_EQ(textOf(form, "TxtGDZCDZKM"), "1501,固定资产");
  dialogs.expectOk("科目录入错误!", Icon::Critical, kTitle);
  type(form, "TxtLJZJDZKM", "77");
  sendKey(control<QLineEdit>(form, "TxtLJZJDZKM"), Qt::Key_Return);
  EXPECT_EQ(textOf(form, "TxtLJZJDZKM"), "");
}

TEST_F(FrmInitTest, takesASubjectFromThePicker) {
  const FrmInit& form = open();
  goTo(form, 5);
  inModalForm([](QWidget& picker) {
    selectNode(picker, "TvCode", "1501 固定资产");
    click(picker, "cmdOK");
  });
  click(form, "CmdGDZCDZKM");
  EXPECT_EQ(textOf(form, "TxtGDZCDZKM"), "1501,固定资产");
  inModalForm([](QWidget& picker) { click(picker, "cmdCancel"); });
  click(form, "CmdGDZCDZKM");
  EXPECT_EQ(textOf(form, "TxtGDZCDZKM"), "1501,固定资产");
}

TEST_F(FrmInitTest, writesTheChoicesAndEnds) {
  const FrmInit& form = open();
  choose(form, "ComboZTQYYF", "2020.06");
  choose(form, "ComboZJFF", "年数总和法");
  choose(form, "ComboHZFPZQ", "3");
  click(form, "CheckTZZJ");
  choose(form, "ComboBMFS", "类别编号＋部门编号＋序号");
  type(form, "TxtXHCD", "4");
  type(form, "TxtBMCD3", "3");
  enterSubjects(form, "1501", "1502");
  goTo(form, 6);
  EXPECT_EQ(textOf(form, "LblSYYF") + "|" + textOf(form, "LblZCLBBMFS") + "|" + textOf(form, "LblGDZCBMFS") +
                "|" + textOf(form, "LblZYZJFF") + "|" + textOf(form, "LblFPZQ") + "|" +
                textOf(form, "LblYXJZ"),
            "2020年06月01日|2113|自动编码 = 类别编号＋部门编号＋序号|年数总和法|3个月|是");
  const auto before = parameters();
  dialogs.expectYesNo(kFinishQuestion, Answer::No, Icon::Question, kTitle);
  click(form, "CmdFinish");
  EXPECT_EQ(parameters(), before);
  expectFinish();
  click(form, "CmdFinish");
  EXPECT_EQ(endStatus(), 0);
  const std::pair<const char*, const char*> stored[] = {
      {"sTypeNumType", "2113"},
      {"iCardNumType", "3"},
      {"iCardNumAutoType", "3"},
      {"bCalcDepr", "TRUE"},
      {"sDeprMethodNum", "5"},
      {"bLastMonthMakeUpDepr", "TRUE"},
      {"iDeprSendPeriod", "3"},
      {"dStartDate", "2020-06-01"},
      {"dLastDeprTime", "0:00:00"},
      {"dWritableDate", "2020-06-01"},
      {"bAutoZW", "TRUE"},
      {"iLastPeriod", "6"},
      {"iLastSendDeprPeriod", "5"},
      {"bAllowUnequality", "TRUE"},
      {"sFixedAssetsSubjectNum", "1501"},
      {"sFixedAssetsSubjectName", "固定资产"},
      {"sDeprTotalSubjectNum", "1502"},
      {"sDeprTotalSubjectName", "累计折旧"},
      {"iCardSequenceNumLength", "4"},
      {"bFirstTime", "0"},
  };
  for (const auto& [name, value] : stored) EXPECT_EQ(parameter(name), value) << name;
}

TEST_F(FrmInitTest, leavesWhatIsSwitchedOffAlone) {
  context.gdOpDate = day("2020-1-10");
  const std::vector<std::string> untouched = {
      "sDeprMethodNum",         "bLastMonthMakeUpDepr",    "iDeprSendPeriod",      "bAllowUnequality",
      "sFixedAssetsSubjectNum", "sFixedAssetsSubjectName", "sDeprTotalSubjectNum", "sDeprTotalSubjectName"};
  for (const std::string& name : untouched) {
    execute("update AccInformation set cValue='kept' where cSysID='FA' and cName='" + name + "'");
  }
  const FrmInit& form = open();
  choose(form, "ComboZJFF", "工作量法");
  choose(form, "ComboHZFPZQ", "12");
  dialogs.expectYesNo(
      "如果选择'本账套不提折旧':\n则本账套内所有资产不能计提折旧,系统内与折旧有关的操作全部无效,"
      "并且一经保存此设置(并输"
      "入业务数据),则此设置无法修改!\n本账套确实不提折旧?",
      Answer::Yes, Icon::Question, kTitle);
  click(form, "CheckJTZJ");
  click(form, "CheckZWXTDZ");
  click(form, "OptionBMFSSD");
  for (const char* box : {"TxtBMCD0", "TxtBMCD1", "TxtBMCD2", "TxtBMCD3"}) type(form, box, "0");
  goTo(form, 6);
  EXPECT_EQ(textOf(form, "LblZYZJFF") + textOf(form, "LblFPZQ"), "");
  EXPECT_EQ(textOf(form, "LblGDZCBMFS"), "手工输入");
  expectFinish();
  click(form, "CmdFinish");
  const std::pair<const char*, const char*> stored[] = {
      {"bCalcDepr", "FALSE"},    {"bAutoZW", "FALSE"},     {"iCardNumType", "0"},
      {"iCardNumAutoType", "0"}, {"sTypeNumType", "0000"}, {"iLastSendDeprPeriod", "0"},
      {"iLastPeriod", "1"},
  };
  for (const auto& [name, value] : stored) EXPECT_EQ(parameter(name), value) << name;
  for (const std::string& name : untouched) EXPECT_EQ(parameter(name), "kept") << name;
}

TEST_F(FrmInitTest, choosesNoMethodAmongFewerThanThree) {
  execute("delete from fa_Depreciations where sID>'2'");
  const FrmInit& form = open();
  EXPECT_EQ(control<QComboBox>(form, "ComboZJFF").count(), 2);
  EXPECT_EQ(control<QComboBox>(form, "ComboZJFF").currentIndex(), -1);
  click(form, "CheckZWXTDZ");
  goTo(form, 6);
  EXPECT_EQ(textOf(form, "LblZYZJFF"), "");
  expectFinish();
  click(form, "CmdFinish");
  EXPECT_EQ(parameter("sDeprMethodNum"), "0");
}

TEST_F(FrmInitTest, keepsALongSequenceAndHandsTheFocusToTheEnd) {
  execute("update AccInformation set cDefault='12' where cSysID='FA' and cName='iCardSequenceNumLength'");
  FrmInit& form = open();
  form.activateWindow();
  settle();
  EXPECT_EQ(textOf(form, "TxtXHCD"), "12");
  click(form, "CheckZWXTDZ");
  goTo(form, 5);
  control<QPushButton>(form, "CmdNext").setFocus();
  sendKey(control<QPushButton>(form, "CmdNext"), Qt::Key_Return);
  EXPECT_TRUE(control<QPushButton>(form, "CmdFinish").hasFocus())
      << "not the button that gives everything up";
}

TEST_F(FrmInitTest, endsWithoutWritingWhenItIsClosed) {
  FrmInit& form = open();
  enterSubjects(form, "1501", "1502");
  goTo(form, 6);
  const auto before = parameters();
  form.close();
  EXPECT_EQ(endStatus(), 0);
  EXPECT_EQ(parameters(), before);
}

}  // namespace
}  // namespace zelkor::test
