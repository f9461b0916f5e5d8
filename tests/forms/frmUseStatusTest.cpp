#include "archives/frmUseStatus.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

constexpr const char* kTitle = "固定资产";

class frmUseStatusTest : public FormTest {
 protected:
  frmUseStatus& open() { return host.show<frmUseStatus>(); }
  std::string stored(const std::string& id) {
    return row(
        "select sName,sEngName,sParentID,bNeedDepr,lchilds,Num1,Num2,iLevel,iDefineType from fa_Status where "
        "sID='" +
        id + "'");
  }
  static std::vector<std::vector<std::string>> listOf(const QWidget& form) {
    return textsOf(control<FlexGrid>(form, "MSFlexGrid1").grid());
  }
};

TEST_F(frmUseStatusTest, showsTreeListAndRecord) {
  const frmUseStatus& form = open();
  const auto nodes = nodesOf(form, "TreeView1");
  ASSERT_EQ(nodes.size(), 10u);
  EXPECT_EQ(nodes[0] + "|" + nodes[1] + "|" + nodes[2], "使用状况目录表|  使用中|    在用");
  EXPECT_EQ(listOf(form).size(), 11u) << "all rows under one header";
  selectNode(form, "TreeView1", "未使用");
  const auto list = listOf(form);
  ASSERT_EQ(list.size(), 3u);
  EXPECT_EQ(list[1][0] + "|" + list[1][1], "  未使用|否");
  EXPECT_EQ(list[2][0], "    未使用");
  control<FlexGrid>(form, "MSFlexGrid1").selectGridRow(2);
  EXPECT_EQ(textOf(form, "Text1") + "|" + textOf(form, "Text2"), "未使用|未使用");
  EXPECT_EQ(control<QComboBox>(form, "Combo1").currentText(), "不提折旧");
}

TEST_F(frmUseStatusTest, numbersANewStatusBehindTheLastOne) {
  const frmUseStatus& form = open();
  selectNode(form, "TreeView1", "使用中");
  press(form, "tlAdd");
  EXPECT_EQ(textOf(form, "Text1"), "使用中");
  type(form, "Text2", "  ");
  dialogs.expectOk("名称不能为空！", Icon::Exclamation, kTitle);
  press(form, "tlSave");
  type(form, "Text2", "试用");
  choose(form, "Combo1", "要提折旧");
  press(form, "tlSave");
  EXPECT_EQ(stored("15"), "试用||1|True|0|1|5|2|1");
  execute("update fa_Status set sID='29' where sID='21'");
  press(form, "tlRefresh");
  selectNode(form, "TreeView1", "不需用");
  selectNode(form, "TreeView1", "使用状况目录表");
  EXPECT_FALSE(command(form, "tlAdd").isEnabled());
  control<FlexGrid>(form, "MSFlexGrid1").selectGridRow(8);
  EXPECT_EQ(textOf(form, "Text2"), "未使用");
  press(form, "tlAdd");
  type(form, "Text2", "封存");
  press(form, "tlSave");
  EXPECT_TRUE(stored("30").starts_with("封存||2|False|0|2|0|2|1"));
}

TEST_F(frmUseStatusTest, changesNameAndRule) {
  const frmUseStatus& form = open();
  selectNode(form, "TreeView1", "大修理停用");
  press(form, "tlModify");
  type(form, "Text2", "大修");
  choose(form, "Combo1", "不提折旧");
  dialogs.expectYesNo("是否取消本次操作？", Answer::No, Icon::Question, kTitle);
  press(form, "tlCancel");
  EXPECT_EQ(textOf(form, "Text2"), "大修");
  press(form, "tlSave");
  EXPECT_TRUE(stored("14").starts_with("大修|Under repair|1|False|"));
  press(form, "tlModify");
  type(form, "Text2", "别的");
  dialogs.expectYesNo("是否取消本次操作？", Answer::Yes, Icon::Question, kTitle);
  emit control<Toolbar>(form, "Toolbar1").ButtonClick("tlCanel");
  EXPECT_EQ(textOf(form, "Text2"), "大修") << "the second key cancels as well";
}

TEST_F(frmUseStatusTest, asksWhenARecordIsLeftUnsaved) {
  const frmUseStatus& form = open();
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    selectNode(form, "TreeView1", "季节性停用");
    press(form, "tlModify");
    type(form, "Text3", "Off season");
    dialogs.expectYesNo("是否保存数据？", answer, Icon::Question, kTitle);
    selectNode(form, "TreeView1", "在用");
    EXPECT_EQ(textOf(form, "Text2"), "在用");
    EXPECT_EQ(stored("12").find("Off season") != std::string::npos, answer == Answer::Yes);
  }
}

TEST_F(frmUseStatusTest, deletesAfterAsking) {
  const frmUseStatus& form = open();
  selectNode(form, "TreeView1", "在用");
  dialogs.expectYesNo("确定要删除当前所选记录吗？", Answer::No, Icon::Question, kTitle);
  press(form, "tlDelete");
  EXPECT_NE(stored("11"), "(none)");
  dialogs.expectYesNo("确定要删除当前所选记录吗？", Answer::Yes, Icon::Question, kTitle);
  press(form, "tlDelete");
  EXPECT_EQ(stored("11"), "(none)");
}

TEST_F(frmUseStatusTest, hidesAndShowsTheTree) {
  const frmUseStatus& form = open();
  EXPECT_EQ(textOf(form, "Command1"), "隐藏目录");
  click(form, "Command1");
  EXPECT_TRUE(control<QTreeWidget>(form, "TreeView1").isHidden());
  EXPECT_EQ(textOf(form, "Command1"), "显示目录");
  EXPECT_EQ(command(form, "ShowCatalog").text(), "显示目录");
  press(form, "tlView");
  EXPECT_FALSE(control<QTreeWidget>(form, "TreeView1").isHidden());
  press(form, "ShowCatalog");
  EXPECT_TRUE(control<QTreeWidget>(form, "TreeView1").isHidden());
  press(form, "ShowCatalog");
  EXPECT_EQ(textOf(form, "Command1"), "隐藏目录");
  EXPECT_FALSE(control<QTreeWidget>(form, "TreeView1").isHidden());
}

}  // namespace
}  // namespace zelkor::test
