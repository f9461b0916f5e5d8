#include <QTest>

#include "archives/FrmFLBMB.h"
#include "support/Widgets.h"
#include "ui/UpDown.h"

namespace zelkor::test {
namespace {

constexpr const char* kTitle = "固定资产";
constexpr const char* kTaken = "已存在相同编码或名称\n请试着修改编码或名称后再保存。";

class FrmFLBMBTest : public FormTest {
 protected:
  FrmFLBMB& open() { return host.show<FrmFLBMB>(); }
  /// The list's rows, cells joined by "|".
  static std::vector<std::string> listOf(const QWidget& form) {
    std::vector<std::string> lines;
    for (const auto& cells : textsOf(control<FlexGrid>(form, "MSFlexGrid1").grid())) {
      std::string line;
      for (const std::string& cell : cells) line += (line.empty() ? "" : "|") + cell;
      lines.push_back(line);
    }
    return lines;
  }
  static std::string codeOf(const QWidget& form) {
    std::string code;
    for (const char* box : {"TxtBM0", "TxtBM1", "TxtBM2", "TxtBM3"}) code += textOf(form, box) + ".";
    return code;
  }
  static std::string enabledCommands(const QWidget& form) {
    std::string enabled;
    for (const char* caption : {"增加", "删除", "修改", "取消", "保存", "刷新", "退出"}) {
      if (command(form, caption).isEnabled()) enabled += std::string(caption) + " ";
    }
    return enabled;
  }
  std::string stored(const std::string& code) {
    return row(
        "select sName,iLife,dblBVRate,sUnit,iDeprType,sDeprMethodNum,sModelID,iLevel,sParentNum from "
        "fa_AssetTypes where sNum='" +
        code + "'");
  }
};

TEST_F(FrmFLBMBTest, showsTheTreeAndTheListOfItsSelection) {
  const FrmFLBMB& form = open();
  const auto nodes = nodesOf(form, "TvLeft");
  ASSERT_GE(nodes.size(), 4u);
  EXPECT_EQ(nodes[0], "固定资产分类编码表");
  EXPECT_EQ(nodes[1], "  (01)房屋及建筑物");
  EXPECT_EQ(nodes[2].substr(0, 9), "    (011)");
  EXPECT_EQ(listOf(form).size(), 7u) << "six first levels under one header";
  selectNode(form, "TvLeft", "(04)电子设备");
  EXPECT_EQ(listOf(form).size(), 4u);
  EXPECT_TRUE(listOf(form)[1].starts_with("04|电子设备|3|5.00%|")) << listOf(form)[1];
  EXPECT_EQ(codeOf(form), "04....");
}

TEST_F(FrmFLBMBTest, locksTheCommandsByTheSelection) {
  const FrmFLBMB& form = open();
  EXPECT_EQ(enabledCommands(form), "增加 刷新 退出 ");
  selectNode(form, "TvLeft", "(04)电子设备");
  EXPECT_EQ(enabledCommands(form), "增加 修改 刷新 退出 ");
  selectNode(form, "TvLeft", "(05)工具器具");
  EXPECT_EQ(enabledCommands(form), "增加 删除 修改 刷新 退出 ");
  press(form, "修改");
  EXPECT_EQ(enabledCommands(form), "取消 保存 退出 ");
  EXPECT_FALSE(isEnabled(form, "TvLeft") || isEnabled(form, "MSFlexGrid1"));
}

TEST_F(FrmFLBMBTest, addsNothingBelowTheLastLevelOfTheRule) {
  execute("update AccInformation set cValue='2100' where cSysID='FA' and cName='sTypeNumType'");
  const FrmFLBMB& form = open();
  control<FlexGrid>(form, "MSFlexGrid1").selectGridRow(1);
  EXPECT_EQ(codeOf(form), "01....");
  EXPECT_TRUE(command(form, "增加").isEnabled());
  selectNode(form, "TvLeft", "(01)房屋及建筑物");
  control<FlexGrid>(form, "MSFlexGrid1").selectGridRow(2);
  EXPECT_EQ(codeOf(form), "01.1...");
  EXPECT_EQ(enabledCommands(form), "删除 修改 刷新 退出 ");
}

TEST_F(FrmFLBMBTest, addsBelowTheSelectedCategory) {
  execute("update AccInformation set cValue='5' where cSysID='FA' and cName='sDeprMethodNum'");
  const FrmFLBMB& form = open();
  selectNode(form, "TvLeft", "(02)机器设备");
  press(form, "增加");
  EXPECT_EQ(codeOf(form), "02.3...");
  EXPECT_TRUE(control<QLineEdit>(form, "TxtBM0").isReadOnly());
  EXPECT_FALSE(control<QLineEdit>(form, "TxtBM1").isReadOnly());
  EXPECT_EQ(textOf(form, "TxtZJFF") + textOf(form, "TxtKPYS") + textOf(form, "TxtLBMC"),
            "年数总和法通用样式");
  type(form, "TxtBM1", "78");
  EXPECT_EQ(textOf(form, "TxtBM1"), "7") << "a part of one character";
  type(form, "TxtLBMC", "仪器");
  type(form, "TxtSYNX", "5年x");
  type(form, "TxtJCZL", "4.5%");
  EXPECT_EQ(textOf(form, "TxtSYNX") + "|" + textOf(form, "TxtJCZL"), "5|4.5");
  type(form, "TxtJLDW", "台");
  choose(form, "ComboJTSX", "总提折旧");
  press(form, "保存");
  EXPECT_EQ(stored("027"), "仪器|60|0.045|台|2|5|1|2|02");
  EXPECT_EQ(row("select lChilds from fa_AssetTypes where sNum='02'"), "3");
  EXPECT_EQ(enabledCommands(form), "增加 修改 刷新 退出 ") << "back to browsing, on 02";
  EXPECT_EQ(listOf(form).back(), "  027|仪器|5|4.50%|台|总提折旧|年数总和法|通用样式");
}

TEST_F(FrmFLBMBTest, addsAFirstLevelWithBlankFields) {
  const FrmFLBMB& form = open();
  press(form, "增加");
  EXPECT_EQ(codeOf(form), "07....");
  press(form, "保存");
  EXPECT_EQ(stored("07"), "|60|0|~|1|2|1|1|~");
  EXPECT_EQ(row("select lChilds from fa_AssetTypes where sNum='&'"), "7");
}

TEST_F(FrmFLBMBTest, changesACategoryAndLeavesItsChildren) {
  const FrmFLBMB& form = open();
  selectNode(form, "TvLeft", "(04)电子设备");
  press(form, "修改");
  type(form, "TxtBM0", "08");
  type(form, "TxtLBMC", "电脑");
  press(form, "保存");
  EXPECT_TRUE(stored("08").starts_with("电脑|36|0.05|"));
  EXPECT_EQ(row("select sNum1 from fa_AssetTypes where sNum='08'"), "04");
  EXPECT_TRUE(stored("041").ends_with("|04"));
}

TEST_F(FrmFLBMBTest, keepsACodeThatIsLongerThanTheRuleOfToday) {
  execute("update AccInformation set cValue='1112' where cSysID='FA' and cName='sTypeNumType'");
  const FrmFLBMB& form = open();
  selectNode(form, "TvLeft", "(04)电子设备");
  press(form, "修改");
  type(form, "TxtLBMC", "电脑");
  press(form, "保存");
  EXPECT_TRUE(stored("04").starts_with("电脑|"));
}

TEST_F(FrmFLBMBTest, offersAFirstLevelWhateverTheRule) {
  execute("update AccInformation set cValue='0000' where cSysID='FA' and cName='sTypeNumType'");
  const FrmFLBMB& form = open();
  EXPECT_EQ(enabledCommands(form), "增加 刷新 退出 ");
}

TEST_F(FrmFLBMBTest, refusesACodeThatIsTaken) {
  const FrmFLBMB& form = open();
  selectNode(form, "TvLeft", "(04)电子设备");
  press(form, "修改");
  type(form, "TxtBM0", "05");
  dialogs.expectOk(kTaken, Icon::Exclamation, kTitle);
  press(form, "保存");
  EXPECT_TRUE(stored("04").starts_with("电子设备|"));
  EXPECT_TRUE(command(form, "保存").isEnabled()) << "one may go on typing";
  dialogs.expectYesNo("是否取消本次操作?", Answer::No, Icon::Question, kTitle);
  press(form, "取消");
  EXPECT_EQ(textOf(form, "TxtBM0"), "05");
  dialogs.expectYesNo("是否取消本次操作?", Answer::Yes, Icon::Question, kTitle);
  press(form, "取消");
  EXPECT_EQ(codeOf(form), "04....");
}

TEST_F(FrmFLBMBTest, asksBeforeDeleting) {
  const FrmFLBMB& form = open();
  selectNode(form, "TvLeft", "(05)工具器具");
  dialogs.expectYesNo("确定要删除当前所选记录吗?", Answer::No, Icon::Question, kTitle);
  press(form, "删除");
  EXPECT_TRUE(stored("05").starts_with("工具器具|"));
  dialogs.expectYesNo("确定要删除当前所选记录吗?", Answer::Yes, Icon::Question, kTitle);
  press(form, "删除");
  EXPECT_EQ(stored("05"), "(none)");
  EXPECT_EQ(row("select lChilds from fa_AssetTypes where sNum='&'"), "5");
}

TEST_F(FrmFLBMBTest, refusesAnUnknownMethod) {
  FrmFLBMB& form = open();
  form.activateWindow();
  settle();
  press(form, "增加");
  type(form, "TxtZJFF", "随便");
  dialogs.expectOk("折旧方法名称错误！", Icon::Exclamation, kTitle);
  sendKey(control<QLineEdit>(form, "TxtZJFF"), Qt::Key_Return);
  EXPECT_EQ(codeOf(form), "07....");
  EXPECT_EQ(stored("07"), "(none)");
}

TEST_F(FrmFLBMBTest, takesAMethodFromThePicker) {
  const FrmFLBMB& form = open();
  press(form, "增加");
  inModalForm([](QWidget& picker) {
    EXPECT_EQ(nodesOf(picker, "TvLeft").size(), 7u);
    EXPECT_EQ(textOf(picker, "TxtZJFF"), "平均年限法(一)");
    type(picker, "TxtZJFF", "法");
    emit control<UpDown>(picker, "UpDown1").stepped(-1);
    EXPECT_EQ(textOf(picker, "TxtZJFF"), "平均年限法(二)");
    emit control<UpDown>(picker, "UpDown1").stepped(-1);
    EXPECT_EQ(textOf(picker, "TxtZJFF"), "工作量法");
    click(picker, "CmdYes");
  });
  click(form, "CmdZJFF");
  EXPECT_EQ(textOf(form, "TxtZJFF"), "工作量法");
  inModalForm([](QWidget& picker) { sendKey(picker, Qt::Key_Escape); });
  click(form, "CmdZJFF");
  EXPECT_EQ(textOf(form, "TxtZJFF"), "工作量法");
}

TEST_F(FrmFLBMBTest, obeysTheKeyboard) {
  FrmFLBMB& form = open();
  form.activateWindow();
  settle();
  press(form, "增加");
  type(form, "TxtLBMC", "仪器");
  auto& name = control<QLineEdit>(form, "TxtLBMC");
  QTest::keyClick(&name, Qt::Key_Return);
  EXPECT_TRUE(control<QLineEdit>(form, "TxtSYNX").hasFocus()) << "Enter moves on";
  QTest::keyClick(&name, Qt::Key_S, Qt::ControlModifier);
  EXPECT_TRUE(stored("07").starts_with("仪器|")) << "Ctrl+S saves";
  execute("update fa_AssetTypes set sName='仪表' where sNum='07'");
  QTest::keyClick(&control<QTreeWidget>(form, "TvLeft"), Qt::Key_F5);
  EXPECT_EQ(nodesOf(form, "TvLeft").back(), "  (07)仪表") << "F5 refreshes";
}

TEST_F(FrmFLBMBTest, endsTheProcessWhenItIsLeft) {
  const FrmFLBMB& form = open();
  press(form, "退出");
  EXPECT_EQ(endStatus(), 0);
}

TEST_F(FrmFLBMBTest, reportsAQuoteAndEndsTheProcess) {
  const FrmFLBMB& form = open();
  press(form, "增加");
  type(form, "TxtLBMC", "O'Brien");
  dialogs.expectOk(
      "实时错误 '3134':\nINSERT INTO 语句的语法错误。 在查询表达式 "
      "'('07','O'Brien',60,0,Null,1,'2','1','07','','','',1,0,"
      "'16',1,NULL,1)' 中。",
      Icon::Critical);
  testing::internal::CaptureStderr();
  press(form, "保存");
  EXPECT_NE(testing::internal::GetCapturedStderr().find("3134"), std::string::npos);
  EXPECT_EQ(endStatus(), 1);
  EXPECT_EQ(stored("07"), "(none)");
}

TEST_F(FrmFLBMBTest, tellsWhenTheDataFileIsGoneAndKeepsWhatWasSaved) {
  const FrmFLBMB& form = open();
  press(form, "增加");
  type(form, "TxtLBMC", "仪器");
  press(form, "保存");
  press(form, "增加");
  type(form, "TxtLBMC", "家具");
  const auto away = directory / "Elsewhere.Mdb";
  std::filesystem::rename(context.gstrZtFile, away);
  dialogs.expectOk("实时错误 '3024':\n找不到文件 '" + context.gstrZtFile + "'。", Icon::Critical);
  testing::internal::CaptureStderr();
  press(form, "保存");
  testing::internal::GetCapturedStderr();
  EXPECT_EQ(endStatus(), 1);
  std::filesystem::rename(away, context.gstrZtFile);
  EXPECT_TRUE(stored("07").starts_with("仪器|"));
  EXPECT_EQ(stored("08"), "(none)");
}

TEST_F(FrmFLBMBTest, standsAnEmptyArchive) {
  execute("delete from fa_AssetTypes");
  const FrmFLBMB& form = open();
  EXPECT_EQ(nodesOf(form, "TvLeft"), std::vector<std::string>{""});
  EXPECT_EQ(enabledCommands(form), "增加 刷新 退出 ");
}

}  // namespace
}  // namespace zelkor::test
