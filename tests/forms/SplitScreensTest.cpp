#include "changes/frmDepart.h"
#include "changes/frmProject.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

constexpr const char* kRepeated = "使用部门不允许重复，请重新录入或参照选择";

class frmDepartTest : public FormTest {
 protected:
  static std::string listed(const QWidget& form, std::size_t row) { return body(form, "MSFl1").at(row - 1); }
  /// Opens a cell by Enter.
  static void openCell(const QWidget& form, std::size_t row, std::size_t column) {
    gridOf(form, "MSFl1").selectCell(row, column);
    sendKey(gridOf(form, "MSFl1"), Qt::Key_Return);
  }
  /// Types into a cell and leaves it by Enter.
  static void fill(const QWidget& form, std::size_t row, std::size_t column, const QString& text) {
    openCell(form, row, column);
    enter(form, "txtEdit", text);
    sendKey(control<QLineEdit>(form, "txtEdit"), Qt::Key_Escape);
  }
  /// Takes an entry in the picker of a cell.
  static void pick(const QWidget& form, std::size_t row, std::size_t column, const char* tree,
                   const char* entry, const char* button) {
    openCell(form, row, column);
    pickNext(tree, entry, button);
    click(form, "cmdScanf");
  }
};

TEST_F(frmDepartTest, takesDepartmentsSubjectsAndProjects) {
  auto& form = host.show<frmDepart>();
  pick(form, 1, 1, "TvAssentTypes", "一车间", "CmdOK");
  fill(form, 1, 2, "60x%");
  pick(form, 1, 3, "TvCode", "410502 折旧费", "cmdOK");
  openCell(form, 1, 5);
  inModalForm([](QWidget& picker) {
    gridOf(picker, "MSFG1").selectGridRow(3);
    press(picker, "确定");
  });
  click(form, "cmdScanf");
  EXPECT_EQ(listed(form, 1), "1|301,一车间|60|410502,折旧费|00|03,数控生产线安装");
  fill(form, 2, 1, "财务部");
  fill(form, 2, 2, "40");
  EXPECT_EQ(textOf(form, "lblTotal"), "比例合计：100%");
  keepPicture(form, "frmDepart");
  click(form, "cmdOK");
  EXPECT_FALSE(form.isVisible());
  const DepartSplit& split = form.split();
  EXPECT_EQ(split.codes + split.names + split.scales, "301/2/一车间/财务部/60/40/");
  EXPECT_EQ(split.subjects + split.itemClasses + split.projects, "410502,折旧费//00//03,数控生产线安装//");
}

TEST_F(frmDepartTest, refusesWhatIsNoSplit) {
  const auto& form = host.show<frmDepart>();
  gridOf(form, "MSFl1").selectCell(2, 1);
  click(form, "cmdDel");
  tells("资产多部门使用模式下，使用部门至少为两个", Icon::Information);
  click(form, "cmdOK");
  click(form, "cmdAdd");
  fill(form, 1, 1, "301");
  fill(form, 1, 2, "100");
  EXPECT_EQ(textOf(form, "lblTotal"), "比例合计：100%");
  fill(form, 2, 1, "3");
  EXPECT_EQ(listed(form, 2), "2|||||") << "a department with others below it";
  tells("使用部门非末级部门或不存在，请重新录入或参照选择", Icon::Information);
  click(form, "cmdOK");
  tells(kRepeated, Icon::Information);
  fill(form, 2, 1, "301,一车间");
  tells(kRepeated, Icon::Information);
  pick(form, 2, 1, "TvAssentTypes", "一车间", "CmdOK");
  EXPECT_EQ(listed(form, 2), "2|||||");
  EXPECT_TRUE(form.isVisible() && form.split().empty());
}

TEST_F(frmDepartTest, takesTwentyDepartmentsAndNoMore) {
  frmDepart& form = host.show<frmDepart>();
  for (int i = 0; i < 25; ++i) click(form, "cmdAdd");
  EXPECT_EQ(body(form, "MSFl1").size(), 20u) << "nothing is said";
  sendKey(control<QLineEdit>(form, "txtEdit"), Qt::Key_Escape);
  EXPECT_TRUE(form.isVisible()) << "Esc leaves the cell first";
  sendKey(form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
}

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
  frmProject& form = host.show<frmProject>();
  keepPicture(form, "frmProject");
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
