#include "archives/frmUseStatus.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class frmUseStatusTest : public FormTest {
 protected:
  frmUseStatus& open() { return host.show<frmUseStatus>(); }
  std::string stored(const std::string& id) {
    return row(
        "select sName,sEngName,sParentID,bNeedDepr,lchilds,Num1,Num2,iLevel,iDefineType from fa_Status where "
        "sID='" +
        id + "'");
  }
  /// Begins to change a status.
  static void change(const QWidget& form, const QString& status, const char* field, const QString& text) {
    selectNode(form, "TreeView1", status);
    press(form, "tlModify");
    type(form, field, text);
  }
};

TEST_F(frmUseStatusTest, showsTreeListAndRecord) {
  frmUseStatus& form = open();
  keepPicture(form, "frmUseStatus-list");
  Lines nodes = nodesOf(form, "TreeView1");
  EXPECT_EQ(nodes.size(), 10u);
  nodes.resize(3);
  EXPECT_EQ(nodes, (Lines{"使用状况目录表", "  使用中", "    在用"}));
  EXPECT_EQ(body(form, "MSFlexGrid1").size(), 10u) << "all rows";
  selectNode(form, "TreeView1", "未使用");
  EXPECT_EQ(columnOf(form, "MSFlexGrid1", 0), (Lines{"  未使用", "    未使用"}));
  EXPECT_EQ(columnOf(form, "MSFlexGrid1", 1).front(), "否");
  gridOf(form, "MSFlexGrid1").selectGridRow(2);
  EXPECT_EQ(textsOf(form, {"Text1", "Text2"}), "未使用|未使用");
  EXPECT_EQ(control<QComboBox>(form, "Combo1").currentText(), "不提折旧");
}

TEST_F(frmUseStatusTest, numbersANewStatusBehindTheLastOne) {
  frmUseStatus& form = open();
  selectNode(form, "TreeView1", "使用中");
  press(form, "tlAdd");
  keepPicture(form, "frmUseStatus-add");
  EXPECT_EQ(textOf(form, "Text1"), "使用中");
  type(form, "Text2", "  ");
  tells("名称不能为空！");
  press(form, "tlSave");
  type(form, "Text2", "试用");
  choose(form, "Combo1", "要提折旧");
  press(form, "tlSave");
  EXPECT_EQ(stored("15"), "试用||1|True|0|1|5|2|1");
  execute("update fa_Status set sID='29' where sID='21'");
  press(form, "tlRefresh");
  selectNode(form, "TreeView1", "使用状况目录表");
  EXPECT_FALSE(command(form, "tlAdd").isEnabled());
  gridOf(form, "MSFlexGrid1").selectGridRow(8);
  EXPECT_EQ(textOf(form, "Text2"), "未使用");
  press(form, "tlAdd");
  type(form, "Text2", "封存");
  press(form, "tlSave");
  EXPECT_TRUE(stored("30").starts_with("封存||2|False|0|2|0|2|1")) << "beside the one of the second level";
}

TEST_F(frmUseStatusTest, changesNameAndRule) {
  const frmUseStatus& form = open();
  change(form, "大修理停用", "Text2", "大修");
  choose(form, "Combo1", "不提折旧");
  asks("是否取消本次操作？", Answer::No);
  press(form, "tlCancel");
  press(form, "tlSave");
  EXPECT_TRUE(stored("14").starts_with("大修|Under repair|1|False|"));
  change(form, "大修", "Text2", "别的");
  asks("是否取消本次操作？", Answer::Yes);
  press(form, "tlCancel");
  EXPECT_EQ(textOf(form, "Text2"), "大修");
}

TEST_F(frmUseStatusTest, asksWhenARecordIsLeftUnsaved) {
  const frmUseStatus& form = open();
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    change(form, "季节性停用", "Text3", "Off season");
    asks("是否保存数据？", answer);
    selectNode(form, "TreeView1", "在用");
    EXPECT_EQ(textOf(form, "Text2"), "在用");
    EXPECT_EQ(stored("12").find("Off season") != std::string::npos, answer == Answer::Yes);
  }
}

TEST_F(frmUseStatusTest, deletesAfterAsking) {
  const frmUseStatus& form = open();
  selectNode(form, "TreeView1", "在用");
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    asks("确定要删除当前所选记录吗？", answer);
    press(form, "tlDelete");
    EXPECT_EQ(stored("11") == "(none)", answer == Answer::Yes);
  }
}

TEST_F(frmUseStatusTest, hidesAndShowsTheTree) {
  const frmUseStatus& form = open();
  EXPECT_EQ(textOf(form, "Command1"), "隐藏目录");
  click(form, "Command1");
  EXPECT_TRUE(control<QTreeWidget>(form, "TreeView1").isHidden());
  EXPECT_EQ(textOf(form, "Command1") + command(form, "ShowCatalog").text().toStdString(), "显示目录显示目录");
  press(form, "tlView");
  EXPECT_FALSE(control<QTreeWidget>(form, "TreeView1").isHidden());
  press(form, "ShowCatalog");
  EXPECT_TRUE(control<QTreeWidget>(form, "TreeView1").isHidden());
}

}  // namespace
}  // namespace zelkor::test
