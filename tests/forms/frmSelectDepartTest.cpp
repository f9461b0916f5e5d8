#include "archives/frmSelectDepart.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class frmSelectDepartTest : public FormTest {
 protected:
  frmSelectDepart& open() { return host.show<frmSelectDepart>(); }
  static std::string selected(const QWidget& form) {
    const QTreeWidgetItem* item = control<QTreeWidget>(form, "TreeView1").currentItem();
    return item ? item->text(0).toStdString() : "";
  }
  static std::string answer(const frmSelectDepart& form) {
    return form.chosen() ? form.chosen()->code + "|" + form.chosen()->name : "(none)";
  }
};

TEST_F(frmSelectDepartTest, givesCodeAndNameOfAnyDepartment) {
  execute("update fa_departments set sName='一 车间' where sNum='301'");
  for (const auto& [node, expected] :
       {std::pair{"3 生产部", "3|生产部"}, std::pair{"301 一 车间", "301|一 车间"}}) {
    frmSelectDepart& form = open();
    selectNode(form, "TreeView1", node);
    EXPECT_EQ(textOf(form, "TxtZJFF"), node);
    click(form, "cmdYes");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(answer(form), expected);
  }
}

TEST_F(frmSelectDepartTest, takesNothingFromTheHeadAndNothingWhenLeft) {
  frmSelectDepart& form = open();
  click(form, "cmdYes");
  selectNode(form, "TreeView1", "固定资产部门编码目录");
  click(form, "cmdYes");
  click(form, "cmdHelp");
  EXPECT_TRUE(form.isVisible());
  selectNode(form, "TreeView1", "2 财务部");
  click(form, "cmdCancel");
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(answer(form), "(none)");
  inModalForm([](QWidget& picker) {
    selectNode(picker, "TreeView1", "402 工艺组");
    sendKey(control<QTreeWidget>(picker, "TreeView1"), Qt::Key_Return);
  });
  const auto picked = pickDepartment(host);
  ASSERT_TRUE(picked);
  EXPECT_EQ(picked->code, "402");
  inModalForm([](QWidget& picker) { sendKey(picker, Qt::Key_Escape); });
  EXPECT_FALSE(pickDepartment(host));
}

TEST_F(frmSelectDepartTest, stepsThroughTheMatchesAndShowsThem) {
  const frmSelectDepart& form = open();
  auto& step = control<UpDown>(form, "UpDown1");
  type(form, "TxtZJFF", "3");
  emit step.stepped(-1);
  EXPECT_EQ(selected(form), "") << "no name has a 3 in it";
  click(form, "OptionBM");
  std::string found;
  for (int i = 0; i < 3; ++i) {
    emit step.stepped(-1);
    EXPECT_EQ(textOf(form, "TxtZJFF"), selected(form));
    found += selected(form) + "/";
  }
  EXPECT_EQ(found, "3 生产部/301 一车间/302 二车间/");
  emit step.stepped(1);
  EXPECT_EQ(selected(form), "301 一车间");
  click(form, "OptionMC");
  type(form, "TxtZJFF", "车间");
  sendKey(control<QLineEdit>(form, "TxtZJFF"), Qt::Key_Return);
  EXPECT_EQ(selected(form), "302 二车间");
}

TEST_F(frmSelectDepartTest, showsFiveThousandDepartmentsAndAnEmptyArchive) {
  execute("delete from fa_departments where sNum<>'&'");
  EXPECT_EQ(nodesOf(open(), "TreeView1").size(), 1u);
  for (int i = 1; i <= 5000; ++i) {
    const std::string code = std::to_string(10000 + i);
    execute("insert into fa_departments (sNum,sName,sParentNum,iLevel) values ('" + code + "','部门" + code +
            "','" + (i % 2 == 0 ? "10001" : "") + "'," + (i % 2 == 0 ? "2" : "1") + ")");
  }
  frmSelectDepart& form = open();
  EXPECT_EQ(nodesOf(form, "TreeView1").size(), 5001u);
  type(form, "TxtZJFF", "15000");
  sendKey(control<QLineEdit>(form, "TxtZJFF"), Qt::Key_Return);
  EXPECT_EQ(selected(form), "15000 部门15000");
  click(form, "cmdYes");
  EXPECT_EQ(answer(form), "15000|部门15000");
}

}  // namespace
}  // namespace zelkor::test
