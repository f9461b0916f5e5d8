#include <QTest>

#include "store/FrmXUANXIANG.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class FrmXUANXIANGTest : public FormTest {
 protected:
  FrmXUANXIANG& open() { return host.show<FrmXUANXIANG>(); }
  void set(const std::string& name, const std::string& value) {
    execute("update AccInformation set cValue='" + value + "' where cSysID='FA' and cName='" + name + "'");
  }
  std::string parameter(const std::string& name) {
    return row("select cValue from AccInformation where cSysID='FA' and cName='" + name + "'");
  }
  static bool isTicked(const QWidget& form, const char* name) {
    return control<QAbstractButton>(form, name).isChecked();
  }
};

TEST_F(FrmXUANXIANGTest, showsWhatIsStored) {
  set("dStartDate", "2020-01-01");
  set("dWritableDate", "2004-4-1");
  set("bAutoZW", "true");
  set("sFixedAssetsSubjectNum", "1501");
  set("sDefaultAssetSubjectNum", "");
  execute("update AccInformation set cValue=Null where cSysID='FA' and cName='sDefaultDeprTotalSubjectNum'");
  set("sDeprMethodNum", "4");
  set("iDeprSendPeriod", "6");
  set("iCardNumAutoType", "0");
  set("sTypeNumType", "3322");
  set("iYearsToDel", "12");
  set("bAddSuccession", "no");
  const FrmXUANXIANG& form = open();
  const std::pair<const char*, const char*> texts[] = {
      {"LblZTH", "001"},      {"LblZTMC", "示例账套"},  {"LblZGXM", "郑丽华"},
      {"LblQYYF", "2020.01"}, {"Lblzjfpyf", "2004.4-"}, {"TxtGDZCDZKM", "1501,固定资产"},
      {"TxtQSGDZC", ","},     {"TxtQDLJZJ", ""},        {"TxtBMCD1", "3"},
      {"LblBMZCD", "10"},     {"TxtSCSX", "12"},        {"LblJTZJ", "是"},
  };
  for (const auto& [name, text] : texts) EXPECT_EQ(textOf(form, name), text) << name;
  EXPECT_EQ(control<QComboBox>(form, "ComboZJFF").currentText(), "工作量法");
  EXPECT_EQ(control<QComboBox>(form, "ComboHZFPZQ").currentText(), "6");
  EXPECT_TRUE(isTicked(form, "OptionBMFSSD"));
  EXPECT_FALSE(isEnabled(form, "TxtXHCD") || isTicked(form, "CheckLXZJ"));
}

TEST_F(FrmXUANXIANGTest, leavesTheScreenAloneWhereARowIsMissing) {
  execute("delete from AccInformation where cSysID='FA'");
  const FrmXUANXIANG& form = open();
  EXPECT_EQ(textOf(form, "LblQYYF") + textOf(form, "LblJTZJ") + textOf(form, "TxtQSGDZC"), "");
  click(form, "CmdOK");
  EXPECT_EQ(endStatus(), 0);
  EXPECT_EQ(rows("select cName from AccInformation where cSysID='FA'").size(), 0u);
}

TEST_F(FrmXUANXIANGTest, storesWhatWasChanged) {
  set("sDefaultAssetSubjectNum", "1501");
  const FrmXUANXIANG& form = open();
  choose(form, "ComboZJFF", "直线法");
  choose(form, "ComboHZFPZQ", "4");
  click(form, "CheckLJZD");
  click(form, "CheckLXZJ");
  type(form, "TxtSCSX", "8");
  type(form, "TxtQSGDZC", "");
  type(form, "TxtQDLJZJ", "1502");
  type(form, "TxtBMCD0", "1");
  choose(form, "ComboBMFS", "部门编号＋序号");
  type(form, "TxtXHCD", "6");
  click(form, "CmdOK");
  EXPECT_EQ(endStatus(), 0);
  const std::pair<const char*, const char*> stored[] = {
      {"sDeprMethodNum", "6"},
      {"iDeprSendPeriod", "4"},
      {"bSendToZWAfterChange", "TRUE"},
      {"bAddSuccession", "FALSE"},
      {"iYearsToDel", "8"},
      {"sDefaultDeprTotalSubjectNum", "1502"},
      {"sTypeNumType", "1112"},
      {"sDefaultDeprTotalSubjectName", "累计折旧"},
      {"iCardNumType", "2"},
      {"iCardNumAutoType", "2"},
      {"iCardSequenceNumLength", "6"},
      {"sDefaultAssetSubjectNum", "1501"},
  };
  for (const auto& [name, value] : stored) EXPECT_EQ(parameter(name), value) << name;
}

TEST_F(FrmXUANXIANGTest, keepsTheReconciliationRowsWhileItIsOff) {
  set("bAutoZW", "True");
  set("bAllowUnequality", "kept");
  set("sFixedAssetsSubjectNum", "1501");
  const FrmXUANXIANG& form = open();
  click(form, "CheckZWXTDZ");
  EXPECT_FALSE(isEnabled(form, "CheckDZBP") || isEnabled(form, "TxtGDZCDZKM"));
  type(form, "TxtGDZCDZKM", "1001");
  click(form, "CmdOK");
  EXPECT_EQ(parameter("bAutoZW") + parameter("bAllowUnequality") + parameter("sFixedAssetsSubjectNum"),
            "FALSEkept1501");
}

TEST_F(FrmXUANXIANGTest, refusesAnUnknownSubject) {
  FrmXUANXIANG& form = open();
  control<QTabWidget>(form, "SSTab1").setCurrentIndex(2);
  form.activateWindow();
  settle();
  for (const char* name : {"TxtGDZCDZKM", "TxtLJZJDZKM", "TxtQSGDZC", "TxtQDLJZJ"}) {
    dialogs.expectOk("科目录入错误!", Icon::Critical, "固定资产");
    type(form, name, "77");
    sendKey(control<QLineEdit>(form, name), Qt::Key_Return);
    EXPECT_EQ(textOf(form, name), "");
    EXPECT_TRUE(control<QLineEdit>(form, name).hasFocus()) << name;
  }
}

TEST_F(FrmXUANXIANGTest, leavesLongNumbersAsTheyAre) {
  set("iCardSequenceNumLength", "12");
  set("iYearsToDel", "120");
  const FrmXUANXIANG& form = open();
  EXPECT_EQ(textOf(form, "TxtXHCD") + "|" + textOf(form, "TxtSCSX"), "12|120");
  click(form, "CmdOK");
  EXPECT_EQ(parameter("iCardSequenceNumLength") + "|" + parameter("iYearsToDel"), "12|120");
}

TEST_F(FrmXUANXIANGTest, doesNotLeaveAFieldForThePickerOrAnotherWindow) {
  FrmXUANXIANG& form = open();
  control<QTabWidget>(form, "SSTab1").setCurrentIndex(2);
  form.activateWindow();
  settle();
  type(form, "TxtQSGDZC", "15");
  QWidget other;
  other.show();
  other.activateWindow();
  settle();
  EXPECT_FALSE(control<QLineEdit>(form, "TxtQSGDZC").hasFocus());
  form.activateWindow();
  settle();
  inModalForm([](QWidget& picker) {
    selectNode(picker, "TvCode", "1501 固定资产");
    click(picker, "cmdOK");
  });
  QTest::mouseClick(&control<QPushButton>(form, "Command1"), Qt::LeftButton);
  EXPECT_EQ(textOf(form, "TxtQSGDZC"), "1501,固定资产");
}

TEST_F(FrmXUANXIANGTest, cancelsWithoutWriting) {
  const FrmXUANXIANG& form = open();
  const auto before = rows("select * from AccInformation order by cSysID,cID");
  type(form, "TxtSCSX", "8");
  click(form, "CmdCancel");
  EXPECT_EQ(endStatus(), 0);
  EXPECT_EQ(rows("select * from AccInformation order by cSysID,cID"), before);
}

}  // namespace
}  // namespace zelkor::test
