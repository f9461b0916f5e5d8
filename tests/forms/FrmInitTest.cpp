#include <sstream>

#include "store/settings/FrmInit.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

constexpr const char* kFinishQuestion =
    "已经完成了新账套的所有设置工作.\n是否确定所设置的信息完全正确并保存对新账套的所有设置?";
constexpr const char* kOffQuestion =
    "如果选择'本账套不提折旧':\n则本账套内所有资产不能计提折旧,系统内与折旧有关的操作全部无效,"
    "并且一经保存此设置(并输入业务数据),则此设置无法修改!\n本账套确实不提折旧?";

/// The wizard on an account set that started in January 2020, logged in to in May; not set up yet.
class FrmInitTest : public FormTest {
 protected:
  FrmInitTest() { setParameter("dStartDate", ""); }

  FrmInit& open() { return host.show<FrmInit>(); }
  static void goTo(QWidget& form, int step) {
    click(form, "OptionYes");
    for (int i = 1; i < step; ++i) {
      keepPicture(form, "FrmInit-" + std::to_string(i));
      click(form, "CmdNext");
    }
    keepPicture(form, "FrmInit-" + std::to_string(step));
  }
  static int step(const QWidget& form) { return control<QStackedWidget>(form, "Pages").currentIndex() + 1; }
  Lines parameters() {
    return rows("select cName,cValue from AccInformation where cSysID='FA' order by cID");
  }
  /// Parameters of the account set, "name=value" with blanks between.
  void expectStored(const std::string& parameters) {
    std::istringstream all(parameters);
    for (std::string expected; all >> expected;) {
      const std::string name = expected.substr(0, expected.find('='));
      EXPECT_EQ(name + "=" + parameter(name), expected);
    }
  }
  void finish(const QWidget& form) {
    asks(kFinishQuestion, Answer::Yes);
    tells("已完成初始化本固定资产账套!", Icon::Information);
    click(form, "CmdFinish");
    EXPECT_EQ(endStatus(), 0);
  }
};

TEST_F(FrmInitTest, showsTheTermsAndWaitsForConsent) {
  const FrmInit& form = open();
  const std::string terms = control<QPlainTextEdit>(form, "TxtJBYZ").toPlainText().toStdString();
  EXPECT_TRUE(terms.starts_with("请您在进行初始化之前认真阅读如下条款：\n---")) << terms;
  for (const char* part :
       {"\n账套号：001\n账套名称：示例账套\n使用单位：示例机械制造有限公司\n本位币：人民币\n---",
        "\n5、使用状况调整下月有效。\n6、折旧分配：部门转移和类别调整当月计提的折旧分配分配到变动后部门和类"
        "别。\n7、"}) {
    EXPECT_NE(terms.find(part), std::string::npos) << part;
  }
  EXPECT_FALSE(isEnabled(form, "CmdNext") || isEnabled(form, "CmdPr"));
  click(form, "OptionYes");
  EXPECT_TRUE(isEnabled(form, "CmdNext"));
  click(form, "OptionNo");
  EXPECT_FALSE(isEnabled(form, "CmdNext") || isEnabled(form, "CmdFinish"));
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
  EXPECT_EQ(textsOf(form, {"TxtBMCD1", "LblBMZCD"}), "5|10") << "the others hold 5 already";
  type(form, "TxtBMCD2", "0");
  EXPECT_EQ(textOf(form, "LblBMZCD"), "9");
  type(form, "TxtBMCD3", "x");
  EXPECT_EQ(textOf(form, "TxtBMCD3"), "2");
}

TEST_F(FrmInitTest, asksBeforeDepreciationIsSwitchedOff) {
  const FrmInit& form = open();
  asks(kOffQuestion, Answer::No);
  click(form, "CheckJTZJ");
  EXPECT_TRUE(control<QCheckBox>(form, "CheckJTZJ").isChecked());
  EXPECT_TRUE(isEnabled(form, "ComboZJFF"));
  asks(kOffQuestion, Answer::Yes);
  click(form, "CheckJTZJ");
  EXPECT_FALSE(isEnabled(form, "ComboZJFF") || isEnabled(form, "ComboHZFPZQ"));
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
  FrmInit& form = open();
  activate(form);
  goTo(form, 5);
  tells("有如下错误：\n\n固定资产对账科目不正确!");
  click(form, "CmdNext");
  EXPECT_EQ(step(form), 5) << "the step goes back";
  tells("科目录入错误!", Icon::Critical);
  enter(form, "TxtGDZCDZKM", "9999,没有");
  EXPECT_EQ(textOf(form, "TxtGDZCDZKM"), "") << "looked up when the field is left";
  pickNext("TvCode", "1501 固定资产", "cmdOK");
  click(form, "CmdGDZCDZKM");
  pickNext("TvCode", "1502 累计折旧", "cmdCancel");
  click(form, "CmdGDZCDZKM");
  EXPECT_EQ(textOf(form, "TxtGDZCDZKM"), "1501,固定资产");
  tells("有如下错误：\n\n累计折旧对账科目不正确!");
  click(form, "CmdNext");
  EXPECT_FALSE(isEnabled(form, "CmdFinish"));
  type(form, "TxtLJZJDZKM", "1502");
  click(form, "CmdNext");
  EXPECT_EQ(step(form), 6);
  EXPECT_TRUE(isEnabled(form, "CmdFinish") && !isEnabled(form, "CmdNext"));
  EXPECT_EQ(textsOf(form, {"LblGDZCDZKM", "LblLJZJDZKM"}), "1501,固定资产|1502,累计折旧");
}

TEST_F(FrmInitTest, writesTheChoicesAndEnds) {
  FrmInit& form = open();
  choose(form, "ComboZTQYYF", "2020.06");
  choose(form, "ComboZJFF", "年数总和法");
  choose(form, "ComboHZFPZQ", "3");
  click(form, "CheckTZZJ");
  choose(form, "ComboBMFS", "类别编号＋部门编号＋序号");
  type(form, "TxtXHCD", "4");
  type(form, "TxtBMCD3", "3");
  type(form, "TxtGDZCDZKM", "1501");
  type(form, "TxtLJZJDZKM", "1502");
  goTo(form, 6);
  EXPECT_EQ(textsOf(form, {"LblSYYF", "LblZCLBBMFS", "LblGDZCBMFS", "LblZYZJFF", "LblFPZQ", "LblYXJZ"}),
            "2020年06月01日|2113|自动编码 = 类别编号＋部门编号＋序号|年数总和法|3个月|是");
  const auto before = parameters();
  asks(kFinishQuestion, Answer::No);
  click(form, "CmdFinish");
  EXPECT_EQ(parameters(), before);
  finish(form);
  expectStored(
      "sTypeNumType=2113 iCardNumType=3 iCardNumAutoType=3 bCalcDepr=TRUE sDeprMethodNum=5 "
      "bLastMonthMakeUpDepr=TRUE iDeprSendPeriod=3 dStartDate=2020-06-01 dLastDeprTime=0:00:00 "
      "dWritableDate=2020-06-01 bAutoZW=TRUE iLastPeriod=6 iLastSendDeprPeriod=5 "
      "bAllowUnequality=TRUE sFixedAssetsSubjectNum=1501 sFixedAssetsSubjectName=固定资产 "
      "sDeprTotalSubjectNum=1502 sDeprTotalSubjectName=累计折旧 iCardSequenceNumLength=4 "
      "bFirstTime=0");
}

TEST_F(FrmInitTest, leavesWhatIsSwitchedOffAlone) {
  context.gdOpDate = day("2020-1-10");
  const Lines untouched = {"sDeprMethodNum",       "bLastMonthMakeUpDepr",   "iDeprSendPeriod",
                           "bAllowUnequality",     "sFixedAssetsSubjectNum", "sFixedAssetsSubjectName",
                           "sDeprTotalSubjectNum", "sDeprTotalSubjectName"};
  for (const std::string& name : untouched) setParameter(name, "kept");
  FrmInit& form = open();
  choose(form, "ComboZJFF", "工作量法");
  choose(form, "ComboHZFPZQ", "12");
  asks(kOffQuestion, Answer::Yes);
  click(form, "CheckJTZJ");
  click(form, "CheckZWXTDZ");
  click(form, "OptionBMFSSD");
  for (const char* box : {"TxtBMCD0", "TxtBMCD1", "TxtBMCD2", "TxtBMCD3"}) type(form, box, "0");
  goTo(form, 6);
  EXPECT_EQ(textsOf(form, {"LblZYZJFF", "LblFPZQ", "LblGDZCBMFS"}), "||手工输入");
  finish(form);
  expectStored(
      "bCalcDepr=FALSE bAutoZW=FALSE iCardNumType=0 iCardNumAutoType=0 sTypeNumType=0000 "
      "iLastSendDeprPeriod=0 iLastPeriod=1");
  for (const std::string& name : untouched) EXPECT_EQ(parameter(name), "kept") << name;
}

TEST_F(FrmInitTest, choosesNoMethodAmongFewerThanThree) {
  execute("delete from fa_Depreciations where sID>'2'");
  execute("update AccInformation set cDefault='12' where cSysID='FA' and cName='iCardSequenceNumLength'");
  FrmInit& form = open();
  EXPECT_EQ(control<QComboBox>(form, "ComboZJFF").currentIndex(), -1);
  EXPECT_EQ(textOf(form, "TxtXHCD"), "12") << "a long sequence is kept";
  activate(form);
  click(form, "CheckZWXTDZ");
  goTo(form, 5);
  control<QPushButton>(form, "CmdNext").setFocus();
  sendKey(control<QPushButton>(form, "CmdNext"), Qt::Key_Return);
  EXPECT_TRUE(control<QPushButton>(form, "CmdFinish").hasFocus())
      << "not the button that gives everything up";
  EXPECT_EQ(textOf(form, "LblZYZJFF"), "");
  finish(form);
  EXPECT_EQ(parameter("sDeprMethodNum"), "0");
}

TEST_F(FrmInitTest, endsWithoutWritingWhenItIsClosed) {
  FrmInit& form = open();
  click(form, "CheckZWXTDZ");
  goTo(form, 6);
  const auto before = parameters();
  form.close();
  EXPECT_EQ(endStatus(), 0);
  EXPECT_EQ(parameters(), before);
}

}  // namespace
}  // namespace zelkor::test
