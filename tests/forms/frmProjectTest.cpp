#include "changes/frmProject.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class frmProjectTest : public FormTest {
 protected:
  /// Codes of the projects that are shown.
  static std::string shownIn(const QWidget& form) {
    const TextGrid& grid = gridOf(form, "MSFG1").grid();
    std::string codes;
    for (std::size_t row = grid.headerRows(); row < grid.rows(); ++row) {
      if (!grid.rowHidden(row)) codes += grid.text(row, 0) + " ";
    }
    return codes;
  }
  static std::string currentOf(const QWidget& form) {
    const auto& grid = gridOf(form, "MSFG1");
    return grid.currentGridRow() ? grid.grid().text(*grid.currentGridRow(), 0) : "";
  }
};

TEST_F(frmProjectTest, showsTheProjectsOfAClassAndOfAGroup) {
  for (const char* statement :
       {"insert into fitem (citem_class,citem_name) values ('01','科研项目')",
        "insert into fitem (citem_class,citem_name) values ('02','技改项目')",
        "create table fitemss02 (citemcode text(20), citemname text(60), bclose bit, citemccode text(20))",
        "insert into fitemss02 (citemcode,citemname,citemccode) values ('T1','节能','1')",
        "create table fitemss01 (citemcode text(20), citemname text(60), bclose bit, citemccode text(20), "
        "cDirection text(10))",
        "insert into fitemss01 (citemcode,citemname,citemccode,cDirection) values "
        "('A1','材料','2','流入')"}) {
    execute(statement);
  }
  const frmProject& form = host.show<frmProject>();
  EXPECT_EQ(nodesOf(form, "TreeView1"),
            (Lines{"项目大类", "  工程项目", "    土建工程", "    安装工程", "  科研项目", "  技改项目"}));
  EXPECT_EQ(shownIn(form), "01 02 03 04 ");
  const auto heading = [&form] { return textsOf(gridOf(form, "MSFG1").grid()).at(0); };
  const Lines plain = {"项目编码", "项目名称", "是否结算", "所属分类码"};
  EXPECT_EQ(heading(), plain);
  EXPECT_EQ(body(form, "MSFG1").at(3), "04|办公楼节能改造|是|1");
  selectNode(form, "TreeView1", "安装工程");
  EXPECT_EQ(shownIn(form), "03 ");
  selectNode(form, "TreeView1", "科研项目");
  EXPECT_EQ(shownIn(form), "A1 ");
  EXPECT_EQ(heading().back(), "方向");
  selectNode(form, "TreeView1", "技改项目");
  EXPECT_EQ(shownIn(form), "T1 ");
  EXPECT_EQ(heading(), plain) << "its table has no direction";
  selectNode(form, "TreeView1", "工程项目");
  EXPECT_EQ(nodesOf(form, "TreeView1").size(), 6u) << "groups come in once";
}

TEST_F(frmProjectTest, locatesByTheKindOfMatch) {
  const frmProject& form = host.show<frmProject>();
  const struct {
    const char* option;
    const char* text;
    const char* found;
  } cases[] = {{"opC", "仓库", "02"},         {"opL", "数控", "03"}, {"opR", "改造", "04"},
               {"opA", "立体仓库建设", "02"}, {"opA", "01", "01"},   {"opA", "立体", "01"}};
  for (const auto& c : cases) {
    click(form, c.option);
    type(form, "Text1", c.text);
    EXPECT_EQ(currentOf(form), c.found) << c.option << " " << c.text;
  }
  click(form, "opC");
  type(form, "Text1", "建");
  for (const char* next : {"02", "01"}) {
    sendKey(control<QLineEdit>(form, "Text1"), Qt::Key_Return);
    EXPECT_EQ(currentOf(form), next) << "round at the end";
  }
}

TEST_F(frmProjectTest, givesThePickedProjectOrNone) {
  frmProject& form = host.show<frmProject>();
  press(form, "确定");
  EXPECT_TRUE(form.isVisible()) << "nothing is selected";
  gridOf(form, "MSFG1").selectGridRow(3);
  press(form, "确定");
  EXPECT_EQ(form.picked().classNumber + "|" + form.picked().code + "|" + form.picked().name,
            "00|03|数控生产线安装");
  EXPECT_FALSE(form.isVisible());
  frmProject& left = host.show<frmProject>();
  gridOf(left, "MSFG1").selectGridRow(3);
  sendKey(left, Qt::Key_Escape);
  EXPECT_EQ(left.picked().code, "");
  execute("delete from fitem");
  const frmProject& empty = host.show<frmProject>();
  EXPECT_EQ(nodesOf(empty, "TreeView1"), Lines{"项目大类"});
  type(empty, "Text1", "建");
  press(empty, "确定");
  EXPECT_TRUE(empty.isVisible());
}

}  // namespace
}  // namespace zelkor::test
