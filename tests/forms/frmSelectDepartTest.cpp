#include "archives/frmSelectDepart.h"
#include "archives/frmSelectUseStatus.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class frmSelectDepartTest : public FormTest {
 protected:
  frmSelectDepart& open() { return host.show<frmSelectDepart>(); }
  static std::string selected(const QWidget& form) { return selectedNode(form, "TreeView1"); }
  static std::string answer(const std::optional<ArchiveEntry>& chosen) {
    return chosen ? chosen->code + "|" + chosen->name : "(none)";
  }
};

TEST_F(frmSelectDepartTest, givesCodeAndNameOfAnyDepartment) {
  execute("update fa_departments set sName='一 车间' where sNum='301'");
  for (const auto& [node, expected] :
       {std::pair{"3 生产部", "3|生产部"}, std::pair{"301 一 车间", "301|一 车间"}}) {
    const frmSelectDepart& form = open();
    selectNode(form, "TreeView1", node);
    EXPECT_EQ(textOf(form, "TxtZJFF"), node);
    sendKey(control<QTreeWidget>(form, "TreeView1"), Qt::Key_Return);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(answer(form.chosen()), expected);
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
  click(form, "cmdYes");
  form.show();
  click(form, "cmdCancel");
  EXPECT_EQ(answer(form.chosen()), "(none)") << "an earlier choice is forgotten";
  leaveNext();
  EXPECT_FALSE(pickDepartment(host));
  execute("delete from fa_departments where sNum<>'&'");
  EXPECT_EQ(nodesOf(open(), "TreeView1").size(), 1u);
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
  for (const char* match : {"302 二车间", "303 机修车间", "301 一车间"}) {
    enter(form, "TxtZJFF", "车间");
    EXPECT_EQ(selected(form), match) << "it goes round";
  }
}

TEST_F(frmSelectDepartTest, theStatusPickerOffersStatusesOrReductions) {
  pickNext("TreeView1", "13 经营性出租", "cmdYes");
  EXPECT_EQ(answer(pickUseStatus(host, StatusPick::Statuses)), "13|经营性出租");
  pickNext("TreeView1", "205 报废", "cmdYes");
  EXPECT_EQ(answer(pickUseStatus(host, StatusPick::Reductions)), "205|报废");
  frmSelectUseStatus& form = host.show<frmSelectUseStatus>(StatusPick::Statuses);
  EXPECT_EQ(form.windowTitle() + nodesOf(form, "TreeView1").front().c_str(), "使用状况参照使用状况目录表");
  form.setCode("21");
  EXPECT_EQ(textOf(form, "TxtZJFF"), "21 未使用");
  const auto& ways = host.show<frmSelectUseStatus>(StatusPick::Reductions);
  EXPECT_EQ(ways.windowTitle() + nodesOf(ways, "TreeView1").front().c_str(), "增减方式参照增减方式目录表");
}

}  // namespace
}  // namespace zelkor::test
