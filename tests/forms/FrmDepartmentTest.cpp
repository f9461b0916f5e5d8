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
        "department where cDepCode='" +
        code + "'");
  }
  static void enter(const QWidget& form, const QString& code, const QString& name) {
    type(form, "TxtEdit0", code);
    type(form, "TxtEdit1", name);
  }
  /// Opens the picker of persons, in which this is done.
  static void inPersons(const QWidget& form, void (*action)(QWidget& picker, FlexGrid& persons)) {
    inModalForm([action](QWidget& picker) { action(picker, gridOf(picker, "GridPerson")); });
    click(form, "CmdFindPerson");
  }
};

TEST_F(FrmDepartmentTest, showsTheArchive) {
  const FrmDepartment& form = open();
  EXPECT_EQ(textOf(form, "LblCodeSet"), "编码原则： * **");
  const Lines nodes = nodesOf(form, "TvLeft");
  EXPECT_EQ(nodes[0] + nodes[2] + nodes[3], "(1)总经理办公室(3)生产部  (301)一车间");
  selectNode(form, "TvLeft", "(3)生产部");
  EXPECT_EQ(textsOf(form, {"TxtEdit0", "TxtEdit1"}), "3|生产部");
  EXPECT_TRUE(control<QLineEdit>(form, "TxtEdit1").isReadOnly());
}

TEST_F(FrmDepartmentTest, addsADepartmentBelowItsParent) {
  const FrmDepartment& form = open();
  press(form, "增加");
  enter(form, "901", "九〇一");
  tells("不存在上级部门，请重新输入！", Icon::Exclamation, kTitle);
  press(form, "保存");
  EXPECT_EQ(stored("901"), "(none)");
  enter(form, "304", "四车间");
  type(form, "TxtEdit3", "生产");
  inPersons(form, [](QWidget& picker, FlexGrid& persons) {
    activate(picker);
    persons.setFocus();
    picker.close();
  });
  EXPECT_EQ(textOf(form, "TxtEdit2"), "") << "nobody is chosen by a look";
  inPersons(form, [](QWidget&, FlexGrid& persons) {
    persons.selectGridRow(1);
    sendKey(persons, Qt::Key_Return);
  });
  const std::string person =
      row("select top 1 cPersonCode from Person,Department where "
          "Person.cDepCode=Department.cDepCode order by cPersonCode");
  EXPECT_NE(textOf(form, "TxtEdit2"), "");
  press(form, "保存");
  EXPECT_EQ(stored("304"), "四车间|2|" + person + "|生产|~|~|~|False");
  EXPECT_EQ(selectedNode(form, "TvLeft"), "(304)四车间");
  EXPECT_FALSE(command(form, "保存").isEnabled());
  press(form, "增加");
  enter(form, "9", "O'Brien");
  press(form, "保存");
  EXPECT_EQ(stored("9"), "O'Brien|1|~|~|~|~|~|False") << "no statement is joined here";
}

TEST_F(FrmDepartmentTest, changesADepartmentOrGivesBackWhatIsStored) {
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
  press(form, "修改");
  type(form, "TxtEdit1", "别的");
  press(form, "恢复");
  EXPECT_EQ(textOf(form, "TxtEdit1"), "财务中心");
  execute("update department set cDepName='财务' where cDepCode='2'");
  press(form, "刷新");
  EXPECT_EQ(textOf(form, "TxtEdit1"), "财务");
}

TEST_F(FrmDepartmentTest, asksWhenAChangedDepartmentIsLeft) {
  const char* question = "部门档案信息已修改，保存修改结果吗？";
  const FrmDepartment& form = open();
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    selectNode(form, "TvLeft", "(2)财务部");
    press(form, "修改");
    type(form, "TxtEdit4", "8001");
    asks(question, answer, "提示!");
    selectNode(form, "TvLeft", "(3)生产部");
    EXPECT_EQ(textOf(form, "TxtEdit1"), "生产部");
    EXPECT_EQ(stored("2").find("|8001|") != std::string::npos, answer == Answer::Yes);
  }
  press(form, "增加");
  enter(form, "8", "质检部");
  asks(question, Answer::Yes, "提示!");
  selectNode(form, "TvLeft", "(2)财务部");
  EXPECT_EQ(textOf(form, "TxtEdit1") + selectedNode(form, "TvLeft"), "财务部(2)财务部")
      << "where the user clicked, not on the new one";
  EXPECT_NE(stored("8"), "(none)");
}

TEST_F(FrmDepartmentTest, deletesOnlyWhatHasNothingBelow) {
  FrmDepartment& form = open();
  selectNode(form, "TvLeft", "(3)生产部");
  tells("不能删除存在有下级部门的部门！", Icon::Exclamation, kTitle);
  press(form, "删除");
  selectNode(form, "TvLeft", "(2)财务部");
  for (const Answer answer : {Answer::No, Answer::Yes}) {
    asks("确实要删除选中的部门吗？", answer, kTitle);
    press(form, "删除");
    EXPECT_EQ(stored("2") == "(none)", answer == Answer::Yes);
  }
  EXPECT_EQ(textOf(form, "TxtEdit1"), "生产部") << "the next one is shown";
  form.close();
  EXPECT_EQ(endStatus(), -1) << "the mirror is still to be rebuilt";
}

TEST_F(FrmDepartmentTest, standsAnEmptyArchive) {
  execute("delete from department");
  const FrmDepartment& form = open();
  EXPECT_EQ(enabledOf(form, {"增加", "修改", "删除"}), "增加 ");
  press(form, "增加");
  enter(form, "1", "总部");
  press(form, "保存");
  EXPECT_EQ(nodesOf(form, "TvLeft"), Lines{"(1)总部"});
}

}  // namespace
}  // namespace zelkor::test
