#include <QTest>

#include "store/settings/FrmXUANXIANG.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class FrmXUANXIANGTest : public FormTest {
 protected:
  FrmXUANXIANG& open() { return host.show<FrmXUANXIANG>(); }
  /// With the page of the subjects in front.
  FrmXUANXIANG& openSubjects() {
    auto& form = open();
    control<QTabWidget>(form, "SSTab1").setCurrentIndex(2);
    activate(form);
    return form;
  }
  Lines parameters() { return rows("select * from AccInformation order by cSysID,cID"); }
};

TEST_F(FrmXUANXIANGTest, showsWhatIsStored) {
  const std::pair<const char*, const char*> parameters[] = {{"dStartDate", "2020-01-01"},
                                                            {"dWritableDate", "2004-4-1"},
                                                            {"bAutoZW", "true"},
                                                            {"sFixedAssetsSubjectNum", "1501"},
                                                            {"sDefaultAssetSubjectNum", ""},
                                                            {"sDeprMethodNum", "4"},
                                                            {"iDeprSendPeriod", "6"},
                                                            {"iCardNumAutoType", "0"},
                                                            {"sTypeNumType", "3322"},
                                                            {"iYearsToDel", "120"},
                                                            {"iCardSequenceNumLength", "12"},
                                                            {"bAddSuccession", "no"}};
  for (const auto& [name, value] : parameters) setParameter(name, value);
  execute("update AccInformation set cValue=Null where cSysID='FA' and cName='sDefaultDeprTotalSubjectNum'");
  FrmXUANXIANG& form = open();
  for (int page = 0; page < control<QTabWidget>(form, "SSTab1").count(); ++page) {
    control<QTabWidget>(form, "SSTab1").setCurrentIndex(page);
    keepPicture(form, "FrmXUANXIANG-" + std::to_string(page + 1));
  }
  const std::pair<const char*, const char*> texts[] = {
      {"LblZTH", "001"},      {"LblZTMC", "示例账套"},  {"LblZGXM", "郑丽华"},
      {"LblQYYF", "2020.01"}, {"Lblzjfpyf", "2004.4-"}, {"TxtGDZCDZKM", "1501,固定资产"},
      {"TxtQSGDZC", ","},     {"TxtQDLJZJ", ""},        {"TxtBMCD1", "3"},
      {"LblBMZCD", "10"},     {"TxtSCSX", "120"},       {"TxtXHCD", "12"},
      {"LblJTZJ", "是"}};
  for (const auto& [name, text] : texts) EXPECT_EQ(textOf(form, name), text) << name;
  EXPECT_EQ(control<QComboBox>(form, "ComboZJFF").currentText(), "工作量法");
  EXPECT_EQ(control<QComboBox>(form, "ComboHZFPZQ").currentText(), "6");
  EXPECT_TRUE(control<QAbstractButton>(form, "OptionBMFSSD").isChecked());
  EXPECT_FALSE(isEnabled(form, "TxtXHCD") || control<QAbstractButton>(form, "CheckLXZJ").isChecked());
  click(form, "CmdOK");
  EXPECT_EQ(parameter("iCardSequenceNumLength") + "|" + parameter("iYearsToDel"), "12|120")
      << "long numbers stay as they are";
}

TEST_F(FrmXUANXIANGTest, leavesTheScreenAloneWhereARowIsMissing) {
  execute("delete from AccInformation where cSysID='FA'");
  const FrmXUANXIANG& form = open();
  EXPECT_EQ(textsOf(form, {"LblQYYF", "LblJTZJ", "TxtQSGDZC"}), "||");
  click(form, "CmdOK");
  EXPECT_EQ(endStatus(), 0);
  EXPECT_EQ(rows("select cName from AccInformation where cSysID='FA'").size(), 0u);
}

TEST_F(FrmXUANXIANGTest, leavesWhatItCannotShow) {
  context.dbZKSystem.Execute("update za_account set iYear=Null,iMonth=Null");
  setParameter("bAutoZW", "TRUE");
  const std::pair<const char*, const char*> stored[] = {{"sFixedAssetsSubjectNum", ""},
                                                        {"sDeprMethodNum", "9"},
                                                        {"iDeprSendPeriod", "5"},
                                                        {"iCardNumType", "7"},
                                                        {"iCardNumAutoType", "7"}};
  for (const auto& [name, value] : stored) setParameter(name, value);
  for (int time = 0; time < 2; ++time) {
    const FrmXUANXIANG& form = open();
    EXPECT_EQ(textOf(form, "TxtGDZCDZKM"), ",");
    for (const char* list : {"ComboZJFF", "ComboHZFPZQ", "ComboBMFS"}) {
      EXPECT_EQ(control<QComboBox>(form, list).currentText(), "") << list;
    }
    click(form, "CmdOK");
    for (const auto& [name, value] : stored) EXPECT_EQ(parameter(name), value) << name;
  }
}

TEST_F(FrmXUANXIANGTest, storesWhatWasChanged) {
  setParameter("sDefaultAssetSubjectNum", "1501");
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
  for (const std::string stored :
       {"sDeprMethodNum=6", "iDeprSendPeriod=4", "bSendToZWAfterChange=TRUE", "bAddSuccession=FALSE",
        "iYearsToDel=8", "sDefaultDeprTotalSubjectNum=1502", "sTypeNumType=1112",
        "sDefaultDeprTotalSubjectName=累计折旧", "iCardNumType=2", "iCardNumAutoType=2",
        "iCardSequenceNumLength=6", "sDefaultAssetSubjectNum=1501"}) {
    const std::string name = stored.substr(0, stored.find('='));
    EXPECT_EQ(name + "=" + parameter(name), stored);
  }
}

TEST_F(FrmXUANXIANGTest, keepsTheReconciliationRowsWhileItIsOff) {
  setParameter("bAutoZW", "True");
  setParameter("bAllowUnequality", "kept");
  setParameter("sFixedAssetsSubjectNum", "1501");
  const FrmXUANXIANG& form = open();
  click(form, "CheckZWXTDZ");
  EXPECT_FALSE(isEnabled(form, "CheckDZBP") || isEnabled(form, "TxtGDZCDZKM"));
  type(form, "TxtGDZCDZKM", "1001");
  click(form, "CmdOK");
  EXPECT_EQ(parameter("bAutoZW") + parameter("bAllowUnequality") + parameter("sFixedAssetsSubjectNum"),
            "FALSEkept1501");
}

TEST_F(FrmXUANXIANGTest, refusesAnUnknownSubject) {
  const FrmXUANXIANG& form = openSubjects();
  for (const char* name : {"TxtGDZCDZKM", "TxtLJZJDZKM", "TxtQSGDZC", "TxtQDLJZJ"}) {
    tells("科目录入错误!", Icon::Critical);
    enter(form, name, "77");
    EXPECT_EQ(textOf(form, name), "");
    EXPECT_TRUE(control<QLineEdit>(form, name).hasFocus()) << name;
  }
}

TEST_F(FrmXUANXIANGTest, doesNotLeaveAFieldForThePickerOrAnotherWindow) {
  FrmXUANXIANG& form = openSubjects();
  type(form, "TxtQSGDZC", "15");
  QWidget other;
  other.show();
  activate(other);
  EXPECT_FALSE(control<QLineEdit>(form, "TxtQSGDZC").hasFocus());
  activate(form);
  pickNext("TvCode", "1501 固定资产", "cmdOK");
  QTest::mouseClick(&control<QPushButton>(form, "Command1"), Qt::LeftButton);
  EXPECT_EQ(textOf(form, "TxtQSGDZC"), "1501,固定资产");
}

TEST_F(FrmXUANXIANGTest, cancelsWithoutWriting) {
  const FrmXUANXIANG& form = open();
  const auto before = parameters();
  type(form, "TxtSCSX", "8");
  click(form, "CmdCancel");
  EXPECT_EQ(endStatus(), 0);
  EXPECT_EQ(parameters(), before);
}

}  // namespace
}  // namespace zelkor::test
