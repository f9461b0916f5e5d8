#include "changes/frmDepart.h"
#include "changes/frmMoreDep.h"
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
  const auto& form = host.show<frmDepart>();
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
  fill(form, 2, 1, "302");
  fill(form, 2, 2, "1");
  tells("使用部门比例总和不等于100%，请调整使用比例数值！", Icon::Information);
  click(form, "cmdOK");
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

using frmMoreDepTest = FormTest;

TEST_F(frmMoreDepTest, givesTheChosenUse) {
  const struct {
    const char* option;
    std::function<void(QWidget&)> leave;
    int chosen;
  } cases[] = {
      {"opS", [](QWidget& form) { click(form, "cmdOK"); }, frmMoreDep::OneDepartment},
      {"opM", [](QWidget& form) { sendKey(control<QWidget>(form, "opM"), Qt::Key_Return); },
       frmMoreDep::SeveralDepartments},
      {"opM", [](QWidget& form) { sendKey(form, Qt::Key_Escape); }, frmMoreDep::Cancelled},
  };
  for (const auto& c : cases) {
    frmMoreDep& form = host.show<frmMoreDep>();
    click(form, c.option);
    c.leave(form);
    EXPECT_EQ(form.chosen(), c.chosen) << c.option;
    EXPECT_FALSE(form.isVisible());
  }
}

}  // namespace
}  // namespace zelkor::test
