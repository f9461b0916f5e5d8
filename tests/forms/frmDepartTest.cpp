#include "changes/frmDepart.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

constexpr const char* kTitle = "固定资产";

class frmDepartTest : public FormTest {
 protected:
  static FlexGrid& gridOf(const QWidget& form) { return control<FlexGrid>(form, "MSFl1"); }
  static std::string cells(const QWidget& form, std::size_t row) {
    std::string line;
    for (std::size_t column = 1; column < 6; ++column) line += gridOf(form).grid().text(row, column) + "|";
    return line;
  }
  /// Types into a cell and leaves it by Enter.
  static void fill(const QWidget& form, std::size_t row, std::size_t column, const QString& text) {
    gridOf(form).selectCell(row, column);
    sendKey(gridOf(form), Qt::Key_Return);
    type(form, "txtEdit", text);
    sendKey(control<QLineEdit>(form, "txtEdit"), Qt::Key_Return);
    sendKey(control<QLineEdit>(form, "txtEdit"), Qt::Key_Escape);
  }
  /// Opens the picker of a cell, in which `action` is done.
  static void pick(const QWidget& form, std::size_t row, std::size_t column,
                   std::function<void(QWidget&)> action) {
    gridOf(form).selectCell(row, column);
    sendKey(gridOf(form), Qt::Key_Return);
    inModalForm(std::move(action));
    click(form, "cmdScanf");
  }
};

TEST_F(frmDepartTest, takesDepartmentsSubjectsAndProjects) {
  const auto& form = host.show<frmDepart>();
  pick(form, 1, 1, [](QWidget& picker) {
    EXPECT_EQ(picker.windowTitle(), "部门参照");
    selectNode(picker, "TvAssentTypes", "一车间");
    click(picker, "CmdOK");
  });
  fill(form, 1, 2, "60x%");
  pick(form, 1, 3, [](QWidget& picker) {
    selectNode(picker, "TvCode", "410502 折旧费");
    click(picker, "cmdOK");
  });
  pick(form, 1, 5, [](QWidget& picker) {
    control<FlexGrid>(picker, "MSFG1").selectGridRow(3);
    press(picker, "确定");
  });
  EXPECT_EQ(cells(form, 1), "301,一车间|60|410502,折旧费|00|03,数控生产线安装|");
  fill(form, 2, 1, "财务部");
  fill(form, 2, 2, "40");
  EXPECT_EQ(textOf(form, "lblTotal"), "比例合计：100%");
  click(form, "cmdOK");
  EXPECT_FALSE(form.isVisible());
  const DepartSplit& split = form.split();
  EXPECT_EQ(split.codes + split.names + split.scales, "301/2/一车间/财务部/60/40/");
  EXPECT_EQ(split.subjects + split.itemClasses + split.projects, "410502,折旧费//00//03,数控生产线安装//");
}

TEST_F(frmDepartTest, refusesWhatIsNoSplit) {
  const auto& form = host.show<frmDepart>();
  gridOf(form).selectCell(2, 1);
  click(form, "cmdDel");
  dialogs.expectOk("资产多部门使用模式下，使用部门至少为两个", Icon::Information, kTitle);
  click(form, "cmdOK");
  click(form, "cmdAdd");
  fill(form, 1, 1, "301");
  fill(form, 1, 2, "100");
  fill(form, 2, 1, "3");
  EXPECT_EQ(cells(form, 2), "|||||") << "a department with others below it";
  dialogs.expectOk("使用部门非末级部门或不存在，请重新录入或参照选择", Icon::Information, kTitle);
  click(form, "cmdOK");
  dialogs.expectOk("使用部门不允许重复，请重新录入或参照选择", Icon::Information, kTitle);
  fill(form, 2, 1, "301,一车间");
  EXPECT_EQ(cells(form, 2), "|||||");
  EXPECT_TRUE(form.split().empty());
}

TEST_F(frmDepartTest, refusesADepartmentTwiceAndSharesThatAreNotTheWhole) {
  const auto& form = host.show<frmDepart>();
  fill(form, 1, 1, "301");
  fill(form, 1, 2, "50");
  dialogs.expectOk("使用部门不允许重复，请重新录入或参照选择", Icon::Information, kTitle);
  pick(form, 2, 1, [](QWidget& picker) {
    selectNode(picker, "TvAssentTypes", "一车间");
    click(picker, "CmdOK");
  });
  fill(form, 2, 1, "302");
  fill(form, 2, 2, "49");
  dialogs.expectOk("使用部门比例总和不等于100%，请调整使用比例数值！", Icon::Information, kTitle);
  click(form, "cmdOK");
  EXPECT_TRUE(form.isVisible());
  EXPECT_TRUE(form.split().empty());
}

TEST_F(frmDepartTest, takesTwentyDepartmentsAndNoMore) {
  frmDepart& form = host.show<frmDepart>();
  for (int i = 0; i < 25; ++i) click(form, "cmdAdd");
  EXPECT_EQ(gridOf(form).grid().rows(), 21u) << "with the heading; nothing is said";
  sendKey(control<QLineEdit>(form, "txtEdit"), Qt::Key_Escape);
  EXPECT_TRUE(form.isVisible()) << "Esc leaves the cell first";
  sendKey(form, Qt::Key_Escape);
  EXPECT_FALSE(form.isVisible());
  EXPECT_TRUE(form.split().empty());
}

}  // namespace
}  // namespace zelkor::test
