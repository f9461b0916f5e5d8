#include "changes/frmMoreDep.h"
#include "changes/frmProject.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class frmProjectTest : public FormTest {
 protected:
  /// Codes of the projects that are shown.
  static std::string shownIn(const QWidget& form) {
    const TextGrid& grid = control<FlexGrid>(form, "MSFG1").grid();
    std::string codes;
    for (std::size_t row = grid.headerRows(); row < grid.rows(); ++row) {
      if (!grid.rowHidden(row)) codes += grid.text(row, 0) + " ";
    }
    return codes;
  }
  static std::string currentOf(const QWidget& form) {
    const auto& grid = control<FlexGrid>(form, "MSFG1");
    const auto row = grid.currentGridRow();
    return row ? grid.grid().text(*row, 0) : "";
  }
  static std::string headingOf(const QWidget& form) {
    std::string heading;
    const TextGrid& grid = control<FlexGrid>(form, "MSFG1").grid();
    for (std::size_t column = 0; column < grid.columns(); ++column) heading += grid.text(0, column) + "|";
    return heading;
  }
};

TEST_F(frmProjectTest, showsTheProjectsOfAClassAndOfAGroup) {
  execute("insert into fitem (citem_class,citem_name) values ('01','科研项目')");
  execute("insert into fitem (citem_class,citem_name) values ('02','技改项目')");
  execute("create table fitemss02 (citemcode text(20), citemname text(60), bclose bit, citemccode text(20))");
  execute("insert into fitemss02 (citemcode,citemname,citemccode) values ('T1','节能','1')");
  execute(
      "create table fitemss01 (citemcode text(20), citemname text(60), bclose bit, citemccode text(20), "
      "cDirection text(10))");
  execute(
      "insert into fitemss01 (citemcode,citemname,citemccode,cDirection) values ('A1','材料','2','流入')");
  const frmProject& form = host.show<frmProject>();
  EXPECT_EQ(nodesOf(form, "TreeView1"),
            (std::vector<std::string>{"项目大类", "  工程项目", "    土建工程", "    安装工程", "  科研项目",
                                      "  技改项目"}));
  EXPECT_EQ(shownIn(form), "01 02 03 04 ");
  EXPECT_EQ(headingOf(form), "项目编码|项目名称|是否结算|所属分类码|");
  EXPECT_EQ(textsOf(control<FlexGrid>(form, "MSFG1").grid()).at(4),
            (std::vector<std::string>{"04", "办公楼节能改造", "是", "1"}));
  selectNode(form, "TreeView1", "安装工程");
  EXPECT_EQ(shownIn(form), "03 ");
  selectNode(form, "TreeView1", "科研项目");
  EXPECT_EQ(shownIn(form), "A1 ");
  EXPECT_EQ(headingOf(form), "项目编码|项目名称|是否结算|所属分类码|方向|");
  selectNode(form, "TreeView1", "技改项目");
  EXPECT_EQ(shownIn(form), "T1 ");
  EXPECT_EQ(headingOf(form), "项目编码|项目名称|是否结算|所属分类码|") << "its table has no direction";
  selectNode(form, "TreeView1", "工程项目");
  EXPECT_EQ(nodesOf(form, "TreeView1").size(), 6u) << "groups come in once";
}

TEST_F(frmProjectTest, locatesByTheKindOfMatch) {
  struct Case {
    const char* option;
    const char* text;
    const char* found;
  };
  const frmProject& form = host.show<frmProject>();
  for (const Case& c : {Case{"opC", "仓库", "02"},
                        {"opL", "数控", "03"},
                        {"opR", "改造", "04"},
                        {"opA", "立体仓库建设", "02"},
                        {"opA", "01", "01"}}) {
    click(form, c.option);
    type(form, "Text1", c.text);
    EXPECT_EQ(currentOf(form), c.found) << c.option << " " << c.text;
  }
  type(form, "Text1", "立体");
  EXPECT_EQ(currentOf(form), "01") << "the whole text is asked for";
  click(form, "opC");
  type(form, "Text1", "建");
  EXPECT_EQ(currentOf(form), "01");
  sendKey(control<QLineEdit>(form, "Text1"), Qt::Key_Return);
  EXPECT_EQ(currentOf(form), "02");
  sendKey(control<QLineEdit>(form, "Text1"), Qt::Key_Return);
  EXPECT_EQ(currentOf(form), "01") << "round at the end";
}

TEST_F(frmProjectTest, givesThePickedProjectOrNone) {
  frmProject& form = host.show<frmProject>();
  press(form, "确定");
  EXPECT_TRUE(form.isVisible()) << "nothing is selected";
  control<FlexGrid>(form, "MSFG1").selectGridRow(3);
  press(form, "确定");
  EXPECT_EQ(form.picked().classNumber + "|" + form.picked().code + "|" + form.picked().name,
            "00|03|数控生产线安装");
  EXPECT_FALSE(form.isVisible());
  frmProject& other = host.show<frmProject>();
  control<FlexGrid>(other, "MSFG1").selectGridRow(3);
  sendKey(other, Qt::Key_Escape);
  EXPECT_EQ(other.picked().code, "");
  EXPECT_FALSE(other.isVisible());
}

TEST_F(frmProjectTest, standsAnAccountSetWithoutProjects) {
  execute("delete from fitem");
  const frmProject& form = host.show<frmProject>();
  EXPECT_EQ(nodesOf(form, "TreeView1"), std::vector<std::string>{"项目大类"});
  type(form, "Text1", "建");
  press(form, "确定");
  EXPECT_TRUE(form.isVisible());
}

using frmMoreDepTest = FormTest;

TEST_F(frmMoreDepTest, givesTheChosenUse) {
  struct Case {
    const char* option;
    const char* button;
    int chosen;
  };
  for (const Case& c : {Case{"opS", "cmdOK", 1}, {"opM", "cmdOK", 2}, {"opM", "cmdCancel", 0}}) {
    const frmMoreDep& form = host.show<frmMoreDep>();
    click(form, c.option);
    click(form, c.button);
    EXPECT_EQ(form.chosen(), c.chosen) << c.option << " " << c.button;
    EXPECT_FALSE(form.isVisible());
  }
}

TEST_F(frmMoreDepTest, obeysTheKeyboard) {
  frmMoreDep& form = host.show<frmMoreDep>();
  sendKey(control<QWidget>(form, "opS"), Qt::Key_Return);
  EXPECT_EQ(form.chosen(), frmMoreDep::OneDepartment);
  frmMoreDep& other = host.show<frmMoreDep>();
  sendKey(other, Qt::Key_Escape);
  EXPECT_FALSE(other.isVisible());
  EXPECT_EQ(other.chosen(), frmMoreDep::Cancelled);
}

}  // namespace
}  // namespace zelkor::test
