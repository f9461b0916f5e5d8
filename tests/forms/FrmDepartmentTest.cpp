#include "archives/FrmDepartment.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

constexpr const char* kTitle = "提示";

/// The screen on the sample archive, whose coding rule is 12.
class FrmDepartmentTest : public FormTest {
 protected:
  FrmDepartmentTest() { context.gOpArgs.setZkDataPath(context.gstrZtFile); }

  FrmDepartment& open() { return host.show<FrmDepartment>(); }
  std::string stored(const std::string& code) {
    return row(
        "select cDepName,iDepGrade,cDepPerson,cDepProp,cDepPhone,cDepAddress,cDepMemo,bDepEnd from "
        "department "
        "where cDepCode='" +
        code + "'");
  }
  static void enter(const QWidget& form, const QString& code, const QString& name) {
    type(form, "TxtEdit0", code);
    type(form, "TxtEdit1", name);
  }
};

TEST_F(FrmDepartmentTest, showsTheArchive) {
  const FrmDepartment& form = open();
  EXPECT_EQ(form.windowTitle(), "部门档案");
  EXPECT_EQ(textOf(form, "LblCodeSet"), "编码原则： * **");
  const auto nodes = nodesOf(form, "TvLeft");
  ASSERT_GE(nodes.size(), 5u);
  EXPECT_EQ(nodes[0], "(1)总经理办公室");
  EXPECT_EQ(nodes[2], "(3)生产部");
  EXPECT_EQ(nodes[3].substr(0, 7), "  (301)");
  selectNode(form, "TvLeft", "(3)生产部");
  EXPECT_EQ(textOf(form, "TxtEdit0") + textOf(form, "TxtEdit1"), "3生产部");
  EXPECT_TRUE(control<QLineEdit>(form, "TxtEdit1").isReadOnly());
  EXPECT_FALSE(command(form, "保存").isEnabled());
}

TEST_F(FrmDepartmentTest, refusesInTheOrderOfItsChecks) {
  const struct {
    const char* code;
    const char* name;
    const char* refusal;
  } cases[] = {
      {"3", "", "名称不能为空，请填写！"},
      {"3", "三", "已存在此分类编码，请重新输入！"},
      {"12", "十二", "此编码不符合分类编码规则，请重新编码！"},
      {"901", "九〇一", "不存在上级部门，请重新输入！"},
  };
  const FrmDepartment& form = open();
  press(form, "增加");
  for (const auto& c : cases) {
    enter(form, c.code, c.name);
    dialogs.expectOk(c.refusal, Icon::Exclamation, kTitle);
    press(form, "保存");
    EXPECT_TRUE(command(form, "保存").isEnabled()) << c.refusal;
  }
  EXPECT_EQ(stored("901"), "(none)");
}

TEST_F(FrmDepartmentTest, addsADepartmentBelowItsParent) {
  const FrmDepartment& form = open();
  press(form, "增加");
  enter(form, "304", "四车间");
  type(form, "TxtEdit3", "生产");
  inModalForm([](QWidget& picker) {
    auto& staff = control<FlexGrid>(picker, "GridPerson");
    EXPECT_EQ(staff.grid().text(0, 1), "职员名称");
    staff.selectGridRow(1);
    sendKey(staff, Qt::Key_Return);
  });
  click(form, "CmdFindPerson");
  const std::string person =
      row("select top 1 cPersonCode from Person,Department where "
          "Person.cDepCode=Department.cDepCode order by cPersonCode");
  EXPECT_NE(textOf(form, "TxtEdit2"), "");
  press(form, "保存");
  EXPECT_EQ(stored("304"), "四车间|2|" + person + "|生产|~|~|~|False");
  const auto nodes = nodesOf(form, "TvLeft");
  EXPECT_NE(std::ranges::find(nodes, "  (304)四车间"), nodes.end());
  EXPECT_FALSE(command(form, "保存").isEnabled());
}

TEST_F(FrmDepartmentTest, changesADepartment) {
  const FrmDepartment& form = open();
  selectNode(form, "TvLeft", "(2)财务部");
  press(form, "修改");
  EXPECT_FALSE(command(form, "保存").isEnabled()) << "nothing to save yet";
  type(form, "TxtEdit1", "财务中心");
  type(form, "TxtEdit6", "记账");
  press(form, "保存");
  EXPECT_TRUE(stored("2").starts_with("财务中心|1|"));
  EXPECT_NE(stored("2").find("|记账|"), std::string::npos);
  EXPECT_EQ(nodesOf(form, "TvLeft")[1], "(2)财务中心");
}

TEST_F(FrmDepartmentTest, asksWhenAChangedDepartmentIsLeft) {
  const FrmDepartment& form = open();
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    selectNode(form, "TvLeft", "(2)财务部");
    press(form, "修改");
    type(form, "TxtEdit4", "8001");
    dialogs.expectYesNo("部门档案信息已修改，保存修改结果吗？", answer, Icon::Question, "提示!");
    selectNode(form, "TvLeft", "(3)生产部");
    EXPECT_EQ(textOf(form, "TxtEdit1"), "生产部");
    EXPECT_EQ(stored("2").find("|8001|") != std::string::npos, answer == Answer::Yes);
  }
}

TEST_F(FrmDepartmentTest, goesWhereTheUserClickedAfterSavingANewDepartment) {
  const FrmDepartment& form = open();
  press(form, "增加");
  enter(form, "8", "质检部");
  dialogs.expectYesNo("部门档案信息已修改，保存修改结果吗？", Answer::Yes, Icon::Question, "提示!");
  selectNode(form, "TvLeft", "(2)财务部");
  EXPECT_EQ(textOf(form, "TxtEdit1"), "财务部");
  EXPECT_EQ(control<QTreeWidget>(form, "TvLeft").currentItem()->text(0), "(2)财务部");
  EXPECT_NE(stored("8"), "(none)");
}

TEST_F(FrmDepartmentTest, choosesNobodyWhenThePickerIsOnlyClosed) {
  const FrmDepartment& form = open();
  press(form, "增加");
  inModalForm([](QWidget& picker) {
    picker.activateWindow();
    settle();
    control<FlexGrid>(picker, "GridPerson").setFocus();
    picker.close();
  });
  click(form, "CmdFindPerson");
  EXPECT_EQ(textOf(form, "TxtEdit2"), "");
}

TEST_F(FrmDepartmentTest, givesBackWhatIsStored) {
  const FrmDepartment& form = open();
  press(form, "修改");
  type(form, "TxtEdit1", "别的");
  press(form, "恢复");
  EXPECT_EQ(textOf(form, "TxtEdit1"), "总经理办公室");
  EXPECT_FALSE(command(form, "保存").isEnabled());
  execute("update department set cDepName='总部' where cDepCode='1'");
  press(form, "刷新");
  EXPECT_EQ(textOf(form, "TxtEdit1"), "总部");
}

TEST_F(FrmDepartmentTest, deletesOnlyWhatHasNothingBelow) {
  const FrmDepartment& form = open();
  selectNode(form, "TvLeft", "(3)生产部");
  dialogs.expectOk("不能删除存在有下级部门的部门！", Icon::Exclamation, kTitle);
  press(form, "删除");
  selectNode(form, "TvLeft", "(2)财务部");
  dialogs.expectYesNo("确实要删除选中的部门吗？", Answer::No, Icon::Question, kTitle);
  press(form, "删除");
  EXPECT_NE(stored("2"), "(none)");
  dialogs.expectYesNo("确实要删除选中的部门吗？", Answer::Yes, Icon::Question, kTitle);
  press(form, "删除");
  EXPECT_EQ(stored("2"), "(none)");
  EXPECT_EQ(textOf(form, "TxtEdit1"), "生产部") << "the next one is shown";
}

TEST_F(FrmDepartmentTest, keepsSilentWhenTheArchiveCannotBeWritten) {
  const FrmDepartment& form = open();
  press(form, "增加");
  enter(form, "9", "O'Brien");
  press(form, "保存");
  EXPECT_EQ(stored("9"), "O'Brien|1|~|~|~|~|~|False") << "no statement is joined here";
  EXPECT_EQ(endStatus(), -1);
  form.window()->close();
  EXPECT_EQ(endStatus(), -1) << "the mirror is still to be rebuilt";
}

TEST_F(FrmDepartmentTest, showsFiveThousandDepartments) {
  execute("delete from department");
  for (int i = 0; i < 5000; ++i) {
    const std::string code = std::to_string(100 + i);
    const bool top = i < 9;
    const std::string number = top ? std::to_string(i + 1) : "1" + code;
    execute("insert into department (cDepCode,cDepName,iDepGrade) values ('" + number + "','部门" + number +
            "'," + (top ? "1" : "2") + ")");
  }
  const FrmDepartment& form = open();
  EXPECT_EQ(nodesOf(form, "TvLeft").size(), 5000u);
}

TEST_F(FrmDepartmentTest, standsAnEmptyArchive) {
  execute("delete from department");
  const FrmDepartment& form = open();
  EXPECT_TRUE(nodesOf(form, "TvLeft").empty());
  EXPECT_FALSE(command(form, "修改").isEnabled() || command(form, "删除").isEnabled());
  press(form, "增加");
  enter(form, "1", "总部");
  press(form, "保存");
  EXPECT_EQ(nodesOf(form, "TvLeft"), std::vector<std::string>{"(1)总部"});
}

}  // namespace
}  // namespace zelkor::test
