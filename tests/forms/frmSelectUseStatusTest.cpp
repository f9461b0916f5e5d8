#include "archives/frmSelectUseStatus.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

using frmSelectUseStatusTest = FormTest;

TEST_F(frmSelectUseStatusTest, offersStatusesOrReductions) {
  const struct {
    StatusPick offered;
    const char* caption;
    const char* head;
    std::size_t nodes;
    const char* node;
    const char* picked;
  } cases[] = {
      {StatusPick::Statuses, "使用状况参照", "使用状况目录表", 10, "13 经营性出租", "13|经营性出租"},
      {StatusPick::Reductions, "增减方式参照", "增减方式目录表", 9, "205 报废", "205|报废"},
  };
  for (const auto& c : cases) {
    inModalForm([&c](QWidget& form) {
      EXPECT_EQ(form.windowTitle(), c.caption);
      const auto nodes = nodesOf(form, "TreeView1");
      EXPECT_EQ(nodes.size(), c.nodes);
      EXPECT_EQ(nodes.front(), c.head);
      selectNode(form, "TreeView1", c.node);
      click(form, "cmdYes");
    });
    const auto picked = pickUseStatus(host, c.offered);
    ASSERT_TRUE(picked);
    EXPECT_EQ(picked->code + "|" + picked->name, c.picked);
  }
}

TEST_F(frmSelectUseStatusTest, selectsTheStatusSoFarAndForgetsAChoiceThatIsLeft) {
  frmSelectUseStatus& form = host.show<frmSelectUseStatus>(StatusPick::Statuses);
  form.setCode("21");
  EXPECT_EQ(textOf(form, "TxtZJFF"), "21 未使用");
  click(form, "cmdYes");
  EXPECT_EQ(form.chosen()->name, "未使用");
  form.show();
  click(form, "cmdCancel");
  EXPECT_FALSE(form.chosen());
}

TEST_F(frmSelectUseStatusTest, showsAStatusWithoutItsParentBelowTheHead) {
  execute("delete from fa_Status where sID='3'");
  const auto nodes = nodesOf(host.show<frmSelectUseStatus>(StatusPick::Statuses), "TreeView1");
  EXPECT_EQ(nodes.back(), "  31 不需用");
}

}  // namespace
}  // namespace zelkor::test
