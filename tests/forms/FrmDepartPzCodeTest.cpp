#include "archives/FrmDepartPzCode.h"
#include "archives/SyncDepartments.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

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
  const FrmDepartPzCode& form = open();
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
