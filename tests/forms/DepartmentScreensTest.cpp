#include <QTest>

#include "archives/FrmDepartment.h"
#include "archives/FrmDepartPzCode.h"
#include "archives/SyncDepartments.h"
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
  FrmDepartment& form = open();
  EXPECT_EQ(textOf(form, "LblCodeSet"), "编码原则： * **");
  const Lines nodes = nodesOf(form, "TvLeft");
  EXPECT_EQ(nodes[0] + nodes[2] + nodes[3], "(1)总经理办公室(3)生产部  (301)一车间");
  selectNode(form, "TvLeft", "(301)一车间");
  EXPECT_EQ(textsOf(form, {"TxtEdit0", "TxtEdit1"}), "301|一车间");
  EXPECT_TRUE(control<QLineEdit>(form, "TxtEdit1").isReadOnly());
  keepPicture(form, "FrmDepartment");
  press(form, "修改");
  control<QLineEdit>(form, "TxtEdit6").setText("两班制");
  keepPicture(form, "FrmDepartment-edit");
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
    keepPicture(picker, "FrmAllPerson");
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

TEST_F(FrmDepartmentTest, keepsAPersonWhoLeftUntilTheFieldIsCleared) {
  execute("update department set cDepPerson='gone' where cDepCode='2'");
  FrmDepartment& form = open();
  activate(form);
  selectNode(form, "TvLeft", "(2)财务部");
  press(form, "修改");
  type(form, "TxtEdit1", "财务中心");
  for (const char* next : {"TxtEdit2", "CmdFindPerson", "TxtEdit3"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(control<QWidget>(form, next).hasFocus()) << next;
  }
  press(form, "保存");
  EXPECT_TRUE(stored("2").starts_with("财务中心|1|gone|")) << stored("2");
  press(form, "修改");
  type(form, "TxtEdit2", "某");
  type(form, "TxtEdit2", "");
  press(form, "保存");
  EXPECT_TRUE(stored("2").starts_with("财务中心|1|~|")) << stored("2");
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

class FrmDepartPzCodeTest : public FormTest {
 protected:
  FrmDepartPzCodeTest() {
    context.gOpArgs.setZkDataPath(context.gstrZtFile);
    execute("update fa_departments set sSubjectNum=Null,sSubjectName=Null");
  }

  FrmDepartPzCode& open() { return host.show<FrmDepartPzCode>(); }
  /// Departments that have a subject, "code|subject|name".
  Lines subjects() {
    return rows(
        "select sNum,sSubjectNum,sSubjectName from fa_departments where sSubjectNum<>'' order by sNum");
  }
  static void begin(const QWidget& form, const QString& department, const QString& subject) {
    selectNode(form, "TvLeft", department);
    press(form, "修改");
    type(form, "TxtGDZCDZKM", subject);
  }
};

TEST_F(FrmDepartPzCodeTest, showsTheDepartmentsWithTheirSubjects) {
  execute("update fa_departments set sSubjectNum='410502',sSubjectName='折旧费' where sNum='301'");
  FrmDepartPzCode& form = open();
  keepPicture(form, "FrmDepartPzCode-list");
  EXPECT_EQ(nodesOf(form, "TvLeft")[0] + nodesOf(form, "TvLeft")[1], "固定资产部门编码目录  (1)总经理办公室");
  EXPECT_EQ(body(form, "MSFlexGrid1").size(), 7u) << "the first levels";
  EXPECT_FALSE(command(form, "修改").isEnabled()) << "refused on the root";
  selectNode(form, "TvLeft", "(3)生产部");
  EXPECT_EQ(body(form, "MSFlexGrid1").size(), 4u);
  EXPECT_EQ(body(form, "MSFlexGrid1")[1], "301|一车间|410502,折旧费");
  selectNode(form, "TvLeft", "(301)一车间");
  EXPECT_EQ(textsOf(form, {"LblBMBM1", "LblBMBM2", "LblBMMC", "LblSJMC", "LblZJKM"}),
            "3|01|一车间|生产部|410502,折旧费");
  press(form, "修改");
  EXPECT_EQ(textOf(form, "TxtGDZCDZKM"), "410502");
  keepPicture(form, "FrmDepartPzCode-edit");
}

TEST_F(FrmDepartPzCodeTest, refusesWhatIsNoDetailSubject) {
  const FrmDepartPzCode& form = open();
  for (const char* subject : {"9999", "4105", "1002,银行存款"}) {
    begin(form, "(2)财务部", subject);
    tells("录入科目错误！\n科目不存在或科目非明细级！", Icon::Critical);
    press(form, "保存");
    asks("是否取消本次操作?", Answer::Yes);
    press(form, "取消");
  }
  EXPECT_EQ(subjects(), Lines{});
}

TEST_F(FrmDepartPzCodeTest, storesAndClearsTheSubjectOfADepartment) {
  const FrmDepartPzCode& form = open();
  begin(form, "(301)一车间", "410502,写什么都行");
  press(form, "保存");
  EXPECT_EQ(subjects(), Lines{"301|410502|折旧费"});
  EXPECT_EQ(textOf(form, "LblZJKM"), "410502,折旧费");
  begin(form, "(301)一车间", "");
  press(form, "保存");
  EXPECT_EQ(subjects(), Lines{});
}

TEST_F(FrmDepartPzCodeTest, asksWhetherTheDepartmentsBelowFollow) {
  const FrmDepartPzCode& form = open();
  const std::string question =
      "是否将[生产部]部门的所有下级部门的折旧科目替换为[410502]?\n如果选择是,请在成功保存后点[刷新]查看。";
  begin(form, "(3)生产部", "410502");
  asks(question, Answer::No);
  press(form, "保存");
  EXPECT_EQ(subjects(), Lines{}) << "No writes nothing at all";
  begin(form, "(3)生产部", "410502");
  sendKey(control<QLineEdit>(form, "TxtGDZCDZKM"), Qt::Key_Return);
  EXPECT_EQ(subjects(), Lines{"3|410502|折旧费"}) << "Enter stores this one without asking";
  begin(form, "(3)生产部", "410502");
  asks(question, Answer::Yes);
  press(form, "保存");
  EXPECT_EQ(subjects().size(), 4u);
  SyncDepartments(context);
  EXPECT_EQ(subjects(), Lines{}) << "lost when the mirror is rebuilt";
}

}  // namespace
}  // namespace zelkor::test
