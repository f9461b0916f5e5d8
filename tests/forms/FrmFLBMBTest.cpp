#include <QTest>

#include "archives/FrmFLBMB.h"
#include "support/Widgets.h"
#include "ui/UpDown.h"

namespace zelkor::test {
namespace {

class FrmFLBMBTest : public FormTest {
 protected:
  FrmFLBMB& open() { return host.show<FrmFLBMB>(); }
  static Lines listOf(const QWidget& form) { return body(form, "MSFlexGrid1"); }
  static std::string codeOf(const QWidget& form) {
    return textsOf(form, {"TxtBM0", "TxtBM1", "TxtBM2", "TxtBM3"});
  }
  static std::string enabledCommands(const QWidget& form) {
    return enabledOf(form, {"增加", "删除", "修改", "取消", "保存", "刷新", "退出"});
  }
  std::string stored(const std::string& code) {
    return row(
        "select sName,iLife,dblBVRate,sUnit,iDeprType,sDeprMethodNum,sModelID,iLevel,sParentNum from "
        "fa_AssetTypes where sNum='" +
        code + "'");
  }
  /// Begins to change a category.
  static void change(const QWidget& form, const QString& category, const char* field, const QString& text) {
    selectNode(form, "TvLeft", category);
    press(form, "修改");
    type(form, field, text);
  }
};

TEST_F(FrmFLBMBTest, showsTheTreeAndTheListOfItsSelection) {
  FrmFLBMB& form = open();
  keepPicture(form, "FrmFLBMB-list");
  const Lines nodes = nodesOf(form, "TvLeft");
  EXPECT_EQ(nodes[0] + nodes[1], "固定资产分类编码表  (01)房屋及建筑物");
  EXPECT_EQ(nodes[2].substr(0, 9), "    (011)");
  EXPECT_EQ(listOf(form).size(), 6u) << "the first levels";
  EXPECT_EQ(enabledCommands(form), "增加 刷新 退出 ");
  selectNode(form, "TvLeft", "(04)电子设备");
  EXPECT_EQ(listOf(form).size(), 3u);
  EXPECT_TRUE(listOf(form)[0].starts_with("04|电子设备|3|5.00%|")) << listOf(form)[0];
  EXPECT_EQ(codeOf(form), "04|||");
  EXPECT_EQ(enabledCommands(form), "增加 修改 刷新 退出 ");
  selectNode(form, "TvLeft", "(05)工具器具");
  EXPECT_EQ(enabledCommands(form), "增加 删除 修改 刷新 退出 ");
  press(form, "修改");
  EXPECT_EQ(enabledCommands(form), "取消 保存 退出 ");
  EXPECT_FALSE(isEnabled(form, "TvLeft") || isEnabled(form, "MSFlexGrid1"));
  setParameter("sTypeNumType", "2100");
  const FrmFLBMB& twoLevels = open();
  selectNode(twoLevels, "TvLeft", "(01)房屋及建筑物");
  gridOf(twoLevels, "MSFlexGrid1").selectGridRow(2);
  EXPECT_EQ(codeOf(twoLevels) + enabledCommands(twoLevels), "01|1||删除 修改 刷新 退出 ");
}

TEST_F(FrmFLBMBTest, addsBelowTheSelectedCategory) {
  setParameter("sDeprMethodNum", "5");
  FrmFLBMB& form = open();
  selectNode(form, "TvLeft", "(02)机器设备");
  press(form, "增加");
  keepPicture(form, "FrmFLBMB-add");
  EXPECT_EQ(codeOf(form), "02|3||");
  EXPECT_TRUE(control<QLineEdit>(form, "TxtBM0").isReadOnly());
  EXPECT_EQ(textsOf(form, {"TxtZJFF", "TxtKPYS", "TxtLBMC"}), "年数总和法|通用样式|");
  type(form, "TxtBM1", "78");
  type(form, "TxtLBMC", "仪器");
  type(form, "TxtSYNX", "5年x");
  type(form, "TxtJCZL", "4.5%");
  EXPECT_EQ(textsOf(form, {"TxtBM1", "TxtSYNX", "TxtJCZL"}), "7|5|4.5") << "a part of one character";
  type(form, "TxtJLDW", "台");
  choose(form, "ComboJTSX", "总提折旧");
  press(form, "保存");
  EXPECT_EQ(stored("027"), "仪器|60|0.045|台|2|5|1|2|02");
  EXPECT_EQ(enabledCommands(form), "增加 修改 刷新 退出 ") << "back to browsing, on 02";
  EXPECT_EQ(listOf(form).back(), "  027|仪器|5|4.50%|台|总提折旧|年数总和法|通用样式");
}

TEST_F(FrmFLBMBTest, changesACategory) {
  setParameter("sTypeNumType", "1112");
  const FrmFLBMB& form = open();
  change(form, "(04)电子设备", "TxtLBMC", "电脑");
  press(form, "保存");
  EXPECT_TRUE(stored("04").starts_with("电脑|36|0.05|")) << "a code longer than the rule of today is kept";
}

TEST_F(FrmFLBMBTest, showsAChangedCodeInItsBoxes) {
  const FrmFLBMB& form = open();
  change(form, "(021)生产设备", "TxtBM1", "7");
  press(form, "保存");
  change(form, "(027)生产设备", "TxtLBMC", "机床");
  EXPECT_EQ(codeOf(form), "02|7||");
  press(form, "保存");
  EXPECT_TRUE(stored("027").starts_with("机床|")) << "under the code that it has by now";
}

TEST_F(FrmFLBMBTest, refusesACodeThatIsTaken) {
  const FrmFLBMB& form = open();
  change(form, "(04)电子设备", "TxtBM0", "05");
  tells("已存在相同编码或名称\n请试着修改编码或名称后再保存。");
  press(form, "保存");
  EXPECT_TRUE(stored("04").starts_with("电子设备|"));
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    asks("是否取消本次操作?", answer);
    press(form, "取消");
    EXPECT_EQ(textOf(form, "TxtBM0"), answer == Answer::No ? "05" : "04");
  }
}

TEST_F(FrmFLBMBTest, asksBeforeDeleting) {
  const FrmFLBMB& form = open();
  selectNode(form, "TvLeft", "(05)工具器具");
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    asks("确定要删除当前所选记录吗?", answer);
    press(form, "删除");
    EXPECT_EQ(stored("05") == "(none)", answer == Answer::Yes);
  }
  press(form, "退出");
  EXPECT_EQ(endStatus(), 0);
}

TEST_F(FrmFLBMBTest, takesAMethodFromThePickerAndNoUnknownOne) {
  FrmFLBMB& form = open();
  activate(form);
  press(form, "增加");
  tells("折旧方法名称错误！");
  enter(form, "TxtZJFF", "随便");
  tells("折旧方法名称错误！");
  press(form, "保存");
  EXPECT_EQ(stored("07"), "(none)");
  type(form, "TxtZJFF", "平均年限法(一)");
  inModalForm([](QWidget& picker) {
    EXPECT_EQ(textOf(picker, "TxtZJFF"), "平均年限法(一)");
    selectNode(picker, "TvLeft", "工作量法");
    click(picker, "CmdYes");
  });
  for (int time = 0; time < 2; ++time) {
    click(form, "CmdZJFF");
    EXPECT_EQ(textOf(form, "TxtZJFF"), "工作量法");
    leaveNext();
  }
  click(form, "CmdZJFF");
  inModalForm([](QWidget& picker) {
    type(picker, "TxtZJFF", "平均");
    sendKey(control<QTreeWidget>(picker, "TvLeft"), Qt::Key_Return);
  });
  click(form, "CmdZJFF");
  EXPECT_EQ(textOf(form, "TxtZJFF"), "工作量法") << "the entry, not what was typed to find it";
  for (const char* typed : {"直线法", "", "随便"}) {
    inModalForm([typed](QWidget& picker) {
      type(picker, "TxtZJFF", typed);
      sendKey(control<QLineEdit>(picker, "TxtZJFF"), Qt::Key_Tab);
      click(picker, "CmdYes");
    });
    if (std::string(typed) == "随便") tells("折旧方法名称错误！");
    click(form, "CmdZJFF");
    EXPECT_EQ(textOf(form, "TxtZJFF"), std::string(typed).empty() ? "直线法" : typed);
  }
}

TEST_F(FrmFLBMBTest, obeysTheKeyboard) {
  FrmFLBMB& form = open();
  activate(form);
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

TEST_F(FrmFLBMBTest, standsAnEmptyArchive) {
  execute("delete from fa_AssetTypes");
  const FrmFLBMB& form = open();
  EXPECT_EQ(nodesOf(form, "TvLeft"), Lines{""});
  EXPECT_EQ(enabledCommands(form), "增加 刷新 退出 ");
}

}  // namespace
}  // namespace zelkor::test
