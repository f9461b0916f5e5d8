#include "forms/VoucherForms.h"
#include "vouchers/FrmBatBill.h"
#include "vouchers/FrmQueryPZ.h"

namespace zelkor::test {
namespace {

class FrmBatBillTest : public VoucherFormTest {
 protected:
  FrmBatBill& open() { return host.show<FrmBatBill>(); }
  static FlexGrid& selection(const QWidget& form) { return gridOf(form, "MSFlexGridXZ"); }
  static FlexGrid& lines(const QWidget& form) { return gridOf(form, "MSFlexGridSZ"); }
  static Lines events(const QWidget& form) { return body(form, "MSFlexGridXZ"); }
  static void showTab(const QWidget& form, int tab) {
    control<QTabWidget>(form, "SSTab1").setCurrentIndex(tab);
  }
  static std::string subject(const QWidget& form, std::size_t row) {
    return lines(form).grid().text(row, line_column::Subject);
  }
  static void enterSubject(const QWidget& form, std::size_t row, const QString& code) {
    clickCell(lines(form), row, line_column::Subject);
    enter(lines(form), "TxtInput", code);
  }
  static void enterMergeNumber(const QWidget& form, std::size_t row, const QString& number) {
    clickCell(selection(form), row, selection_column::MergeNumber);
    enter(selection(form), "TxtInput", number);
  }
};

TEST_F(FrmBatBillTest, marksEventsByRowAndByCommand) {
  stageDepreciation();
  stageCard("00001", "12000");
  FrmBatBill& form = open();
  const auto marks = [&form] { return columnOf(form, "MSFlexGridXZ", selection_column::Mark); };
  EXPECT_THAT(events(form), ElementsAre("2020.05.15|折旧计提|折旧计提|01|170.75||",
                                        "2020.05.15|卡片|新增资产|00001|12,000.00||"));
  EXPECT_EQ(textOf(form, "LblChosen"), "共 2 笔业务，已选 0 笔");
  selection(form).selectGridRow(2);
  sendKey(selection(form), Qt::Key_Return);
  EXPECT_THAT(marks(), ElementsAre("", "Y"));
  keepPicture(form, "FrmBatBill");
  emit selection(form).doubleClicked(selection(form).cellIndex(2, 1));
  EXPECT_THAT(marks(), ElementsAre("", ""));
  press(form, "全选");
  press(form, "删除");
  EXPECT_THAT(marks(), ElementsAre("Y", "Y"));
  EXPECT_EQ(textOf(form, "LblChosen"), "共 2 笔业务，已选 2 笔");
  press(form, "全消");
  EXPECT_THAT(marks(), ElementsAre("", ""));
}

TEST_F(FrmBatBillTest, showsWhatTheFirstMarkStandsFor) {
  for (const char* card : {"00001", "00002", "00003"}) stageCard(card, "10");
  const FrmBatBill& form = open();
  EXPECT_FALSE(command(form, "首张").isVisible());
  showTab(form, 1);
  EXPECT_TRUE(command(form, "首张").isVisible() && command(form, "末张").isVisible());
  EXPECT_EQ(control<QComboBox>(form, "ComboHBH").currentText(), "卡片00003")
      << "no mark: the last row walked";
  EXPECT_EQ(body(form, "MSFlexGridSZ").size(), 2U);
  showTab(form, 0);
  EXPECT_FALSE(command(form, "首张").isVisible());
  enterMergeNumber(form, 1, "7");
  enterMergeNumber(form, 2, "8");
  enterMergeNumber(form, 3, "7");
  const auto& used = control<QListWidget>(form, "ListUsed");
  ASSERT_EQ(used.count(), 2);
  EXPECT_EQ(used.item(0)->text() + used.item(1)->text(), "78");
  press(form, "全选");
  showTab(form, 1);
  EXPECT_EQ(control<QComboBox>(form, "ComboHBH").currentText(), "7");
  EXPECT_EQ(body(form, "MSFlexGridSZ").at(3), "2020.05.15|卡片|新增资产|00003|贷|10.00| ");
}

TEST_F(FrmBatBillTest, editsSubjects) {
  stageCard("00001", "10");
  FrmBatBill& form = open();
  showTab(form, 1);
  keepPicture(form, "FrmBatBill-lines");
  tells("科目代码错！");
  enterSubject(form, 1, "9999");
  EXPECT_EQ(subject(form, 1), " ");
  EXPECT_TRUE(editing(lines(form), "TxtInput")) << "the line comes up again";
  enter(lines(form), "TxtInput", "1501");
  EXPECT_EQ(subject(form, 1), "1501 固定资产");
  EXPECT_EQ(lines(form).currentGridRow(), 2U) << "Enter leads to the next line";
  enter(lines(form), "TxtInput", "15", Qt::Key_Escape);
  EXPECT_EQ(subject(form, 2), " ");

  pickSubject("1502 累计折旧");
  clickCell(lines(form), 2, line_column::Subject);
  sendKey(control<QLineEdit>(lines(form), "TxtInput"), Qt::Key_F2);
  EXPECT_EQ(subject(form, 2), "1502 累计折旧");
  clickCell(lines(form), 1, line_column::Side);
  EXPECT_FALSE(editing(lines(form), "TxtInput"));
  clickCell(lines(form), 1, line_column::Subject);
  EXPECT_EQ(textOf(lines(form), "TxtInput"), "1501");
}

TEST_F(FrmBatBillTest, savesMergedLinesWithTheirSubjects) {
  stageCard("00001", "10");
  stageCard("00002", "20");
  const FrmBatBill& form = open();
  for (const std::size_t row : {1, 2}) enterMergeNumber(form, row, "3");
  press(form, "全选");
  showTab(form, 1);
  click(form, "CheckHB");
  tells("科目不能为空!");
  press(form, "保存");
  for (const std::size_t row : {1, 2, 3, 4}) enterSubject(form, row, row % 2 == 1 ? "1501" : "1502");
  press(form, "保存");
  EXPECT_THAT(staged("cDefine2,cDefine5,cDefine10,ccode"),
              ElementsAre("3|1|合并制单(1)|1501", "3|2|合并制单(1)|1502", "3|3|合并制单(1)|1501",
                          "3|4|合并制单(1)|1502"));
}

TEST_F(FrmBatBillTest, reportsASaveWithoutLines) {
  const FrmBatBill& form = open();
  const RuntimeError outside(ErrorNumber::SubscriptOutOfRange);
  for (const char* name : {"保存", "制单"}) {
    tells(std::string("FrmBatBill ToolSave 错误描述:") + outside.what());
    press(form, name);
  }
  EXPECT_EQ(endStatus(), -1);
  press(form, "退出");
  EXPECT_EQ(endStatus(), 0);
}

TEST_F(FrmBatBillTest, makesAVoucherAndComesBackToWhatIsLeft) {
  stageCard("00001", "10");
  stageCard("00002", "20");
  const FrmBatBill& form = open();
  enterMergeNumber(form, 2, "5");
  press(form, "全选");
  showTab(form, 1);
  enterSubject(form, 1, "1501");
  enterSubject(form, 2, "1502");
  inModalForm([](QWidget& window) { press(window, "cmdTool5"); });
  press(form, "制单");
  EXPECT_THAT(ledger("inid"), IsEmpty());
  EXPECT_EQ(events(form).size(), 2U) << "a voucher that is given up leaves its event";
  press(form, "全选");
  showTab(form, 1);
  inModalForm([](QWidget& window) {
    press(window, "cmdTool4");
    press(window, "cmdTool11");
  });
  press(form, "制单");
  EXPECT_EQ(control<QTabWidget>(form, "SSTab1").currentIndex(), 0);
  EXPECT_THAT(ledger("ino_id,inid,ccode,md,mc,coutsign,coutno_id"),
              ElementsAre("1|1|1501|10|0|卡片|00001", "1|2|1502|0|10|卡片|00001"));
  EXPECT_THAT(staged("coutno_id,cDefine1"), ElementsAre("00001|1", "00001|1", "00002|~", "00002|~"));
  EXPECT_THAT(events(form), ElementsAre("2020.05.15|卡片|新增资产|00002|20.00|5|Y"));
}

constexpr const char* kTitle = "凭证查询";

class FrmQueryPZTest : public VoucherFormTest {
 protected:
  FrmQueryPZ& open() { return host.show<FrmQueryPZ>(context.gstrZtFile); }
  static Lines list(const QWidget& form) { return body(form, "MshPZ"); }
};

TEST_F(FrmQueryPZTest, listsTheVouchersOfThePeriods) {
  EXPECT_TRUE(saveVoucher(cardVoucher("00001", "10")));
  EXPECT_TRUE(saveVoucher(depreciationVoucher()));
  execute("update GL_accvouch set ibook=1 where ino_id=2");
  FrmQueryPZ& form = open();
  keepPicture(form, "FrmQueryPZ");
  EXPECT_THAT(list(form), ElementsAre("2020-05-15|卡片|00001|陈会计|2020-05-15|记--1|未记账",
                                      "2020-05-15|折旧计提||陈会计|2020-05-15|记--2|记账"));
  EXPECT_EQ(control<QStatusBar>(form, "StatusBar1").currentMessage(), "共 2 张凭证");
  choose(form, "cmdStart", "2020.06");
  EXPECT_THAT(list(form), IsEmpty());
  choose(form, "cmdStart", "2020.01");
  EXPECT_EQ(list(form).size(), 2U) << "to the open month";
}

TEST_F(FrmQueryPZTest, deletesAVoucherAndFreesItsEvent) {
  EXPECT_TRUE(saveVoucher(cardVoucher("00001", "10")));
  EXPECT_TRUE(saveVoucher(cardVoucher("00002", "20")));
  const FrmQueryPZ& form = open();
  gridOf(form, "MshPZ").selectGridRow(2);
  tells("删除成功！", Icon::Information, kTitle);
  press(form, "删除");
  EXPECT_THAT(list(form), ElementsAre("2020-05-15|卡片|00001|陈会计|2020-05-15|记--1|未记账"));
  EXPECT_THAT(ledger("ino_id"), ElementsAre("1", "1"));
  execute("update GL_accvouch set coutno_id='O''1'");
  const FrmQueryPZ& broken = open();
  tells("删除失败！", Icon::Exclamation, kTitle);
  press(broken, "删除");
  EXPECT_EQ(list(broken).size(), 1U);
}

TEST_F(FrmQueryPZTest, deletesNothingFromAnEmptyList) {
  const FrmQueryPZ& form = open();
  press(form, "删除");
  press(form, "退出");
  EXPECT_EQ(endStatus(), -1);
  tells("文件[" + missingFile() + "]不存在！", Icon::Exclamation, kTitle);
  EXPECT_THAT(list(host.show<FrmQueryPZ>(missingFile())), IsEmpty());
}

}  // namespace
}  // namespace zelkor::test
