#include "archives/FrmFATypes.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

class FrmFATypesTest : public FormTest {
 protected:
  FrmFATypes& open(ArchiveKind kind) { return host.show<FrmFATypes>(kind); }
  static std::string answer(const FrmFATypes& form) {
    return form.RetName() + "|" + form.RetValue() + "|" + form.AssetTypeID();
  }
};

TEST_F(FrmFATypesTest, offersEachArchiveAndTakesEntriesWithoutOthersBelowThem) {
  const struct {
    ArchiveKind kind;
    const char* caption;
    const char* parent;  // may not be taken
    const char* leaf;
    const char* answer;
  } cases[] = {
      {ArchiveKind::AssetTypes, "固定资产类别参照", "机器设备", "动力设备", "动力设备|022|022"},
      {ArchiveKind::Departments, "部门参照", "生产部", "一车间", "一车间|301|301"},
      {ArchiveKind::Origins, "增减方式参照", "增加方式", "盘盈", "盘盈|104|104"},
      {ArchiveKind::Statuses, "使用状态参照", "使用中", "大修理停用", "大修理停用|14|14"},
  };
  for (const auto& c : cases) {
    FrmFATypes& form = open(c.kind);
    EXPECT_EQ(form.windowTitle(), c.caption);
    selectNode(form, "TvAssentTypes", c.parent);
    click(form, "CmdOK");
    EXPECT_TRUE(form.isVisible()) << c.parent << " has entries below it";
    EXPECT_EQ(answer(form), "||");
    selectNode(form, "TvAssentTypes", c.leaf);
    click(form, "CmdOK");
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(answer(form), c.answer);
  }
}

TEST_F(FrmFATypesTest, takesAnyMethod) {
  for (const auto& [name, code] : {std::pair{"不提折旧", "1"}, std::pair{"直线法", "6"}}) {
    const FrmFATypes& form = open(ArchiveKind::Methods);
    EXPECT_EQ(form.windowTitle(), "折旧方法参照");
    selectNode(form, "TvAssentTypes", name);
    click(form, "CmdOK");
    EXPECT_EQ(answer(form), std::string(name) + "|" + code + "|" + code);
  }
}

TEST_F(FrmFATypesTest, answersMinusOneHoweverItIsLeft) {
  FrmFATypes& form = open(ArchiveKind::Statuses);
  for (const auto& leave : waysToLeave("CmdCancel")) {
    form.show();
    selectNode(form, "TvAssentTypes", "在用");
    click(form, "CmdOK");
    EXPECT_EQ(answer(form), "在用|11|11");
    form.show();
    leave(form);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(answer(form), "-1|-1|-1") << "an earlier choice is forgotten";
  }
}

TEST_F(FrmFATypesTest, givesItsCallerTheEntryOrNothing) {
  inModalForm([](QWidget& form) {
    EXPECT_EQ(selectedNode(form, "TvAssentTypes"), "动力设备") << "the entry so far is shown";
    type(form, "TxtSearch", "运输");
    for (const char* match : {"运输设备", "道路运输车辆", "运输设备"}) {
      emit control<UpDown>(form, "VScrollChange").stepped(-1);
      EXPECT_EQ(selectedNode(form, "TvAssentTypes") + textOf(form, "TxtSearch"), std::string(match) + "运输");
    }
    selectNode(form, "TvAssentTypes", "生产用房屋");
    sendKey(control<QTreeWidget>(form, "TvAssentTypes"), Qt::Key_Return);
  });
  const auto picked = pickFromArchive(host, ArchiveKind::AssetTypes, "022");
  ASSERT_TRUE(picked);
  EXPECT_EQ(picked->name + "|" + picked->value + "|" + picked->assetTypeID, "生产用房屋|011|011");
  leaveNext();
  EXPECT_FALSE(pickFromArchive(host, ArchiveKind::AssetTypes));
}

TEST_F(FrmFATypesTest, staysEmptyWithoutEntriesOrWithoutItsFile) {
  execute("delete from fa_Depreciations");
  FrmFATypes& form = open(ArchiveKind::Methods);
  EXPECT_TRUE(nodesOf(form, "TvAssentTypes").empty());
  emit control<UpDown>(form, "VScrollChange").stepped(-1);
  click(form, "CmdOK");
  EXPECT_TRUE(form.isVisible());
  form.setDispType(ArchiveKind::Statuses);
  EXPECT_EQ(form.windowTitle(), "使用状态参照");
  EXPECT_FALSE(nodesOf(form, "TvAssentTypes").empty());
  ClsOpArgs elsewhere;
  elsewhere.setZkDataPath(missingFile());
  form.setoClsOpArgs(elsewhere);
  EXPECT_TRUE(nodesOf(form, "TvAssentTypes").empty());
}

}  // namespace
}  // namespace zelkor::test
