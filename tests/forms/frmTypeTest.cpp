#include "archives/frmType.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class frmTypeTest : public FormTest {
 protected:
  frmType& open() {
    auto& form = host.show<frmType>();
    form.setZkDataPath(context.gstrZtFile);
    return form;
  }
};

TEST_F(frmTypeTest, readsABranchWhenItIsOpened) {
  execute("update fa_Origins set lChilds=1 where sID='203'");
  execute("insert into fa_Origins (sID,sName,sParentID,lChilds) values ('20301','对外投资','203',0)");
  const frmType& form = open();
  Lines nodes = nodesOf(form, "tvwType");
  ASSERT_EQ(nodes.size(), 9u) << "the root, the ways of reduction, seven of them";
  nodes.resize(3);
  EXPECT_EQ(nodes, (Lines{"增减方式", "  (2)减少方式", "    (201)出售"}));
  for (int i = 0; i < 2; ++i) {
    control<QTreeWidget>(form, "tvwType").collapseAll();
    control<QTreeWidget>(form, "tvwType").expandAll();
  }
  EXPECT_EQ(nodesOf(form, "tvwType").size(), 10u);
  EXPECT_EQ(nodesOf(form, "tvwType")[5], "      (20301)对外投资");
}

TEST_F(frmTypeTest, givesIdAndNameOfTheWay) {
  frmType& form = open();
  selectNode(form, "tvwType", "增减方式");
  click(form, "cmdYes");
  EXPECT_TRUE(form.isVisible());
  selectNode(form, "tvwType", "(205)报废");
  sendKey(control<QTreeWidget>(form, "tvwType"), Qt::Key_Return);
  EXPECT_FALSE(form.isVisible());
  EXPECT_EQ(form.chosen()->code + "|" + form.chosen()->name, "205|报废");
  form.show();
  click(form, "cmdCancel");
  EXPECT_FALSE(form.chosen());
}

}  // namespace
}  // namespace zelkor::test
