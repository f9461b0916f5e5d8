#include <algorithm>
#include <functional>

#include "archives/FrmFATypes.h"
#include "support/Widgets.h"

namespace zelkor::test {
namespace {

using Lines = std::vector<std::string>;

class FrmFATypesTest : public FormTest {
 protected:
  FrmFATypes& open(ArchiveKind kind) { return host.show<FrmFATypes>(kind); }
  static std::string answer(const FrmFATypes& form) {
    return form.RetName() + "|" + form.RetValue() + "|" + form.AssetTypeID();
  }
  static std::string selected(const QWidget& form) {
    const QTreeWidgetItem* item = control<QTreeWidget>(form, "TvAssentTypes").currentItem();
    return item ? item->text(0).toStdString() : "";
  }
};

TEST_F(FrmFATypesTest, offersEachArchiveBelowItsRoot) {
  const struct {
    ArchiveKind kind;
    const char* caption;
    Lines first;
  } cases[] = {
      {ArchiveKind::AssetTypes,
       "固定资产类别参照",
       {"固定资产分类编码表", "  房屋及建筑物", "    生产用房屋"}},
      {ArchiveKind::Departments, "部门参照", {"固定资产部门编码目录", "  总经理办公室", "  财务部"}},
      {ArchiveKind::Origins, "增减方式参照", {"增减方式", "  增加方式", "    直接购入"}},
      {ArchiveKind::Statuses, "使用状态参照", {"使用状况", "  使用中", "    在用"}},
      {ArchiveKind::Methods, "折旧方法参照", {"不提折旧", "平均年限法(一)", "平均年限法(二)"}},
  };
  for (const auto& c : cases) {
    const FrmFATypes& form = open(c.kind);
    EXPECT_EQ(form.windowTitle().toStdString(), c.caption);
    Lines nodes = nodesOf(form, "TvAssentTypes");
    ASSERT_GE(nodes.size(), 3u) << c.caption;
    nodes.resize(3);
    EXPECT_EQ(nodes, c.first);
  }
}

TEST_F(FrmFATypesTest, takesOnlyEntriesWithoutOthersBelowThem) {
  const struct {
    ArchiveKind kind;
    const char* parent;
    const char* leaf;
    const char* answer;
  } cases[] = {
      {ArchiveKind::AssetTypes, "机器设备", "动力设备", "动力设备|022|022"},
      {ArchiveKind::Departments, "生产部", "一车间", "一车间|301|301"},
      {ArchiveKind::Origins, "增加方式", "盘盈", "盘盈|104|104"},
      {ArchiveKind::Statuses, "使用中", "大修理停用", "大修理停用|14|14"},
  };
  for (const auto& c : cases) {
    FrmFATypes& form = open(c.kind);
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
    FrmFATypes& form = open(ArchiveKind::Methods);
    selectNode(form, "TvAssentTypes", name);
    click(form, "CmdOK");
    EXPECT_EQ(answer(form), std::string(name) + "|" + code + "|" + code);
  }
}

TEST_F(FrmFATypesTest, answersMinusOneHoweverItIsLeft) {
  const std::function<void(QWidget&)> ways[] = {
      [](QWidget& form) { click(form, "CmdCancel"); },
      [](QWidget& form) { sendKey(form, Qt::Key_Escape); },
      [](QWidget& form) { form.close(); },
  };
  for (const auto& leave : ways) {
    FrmFATypes& form = open(ArchiveKind::Statuses);
    selectNode(form, "TvAssentTypes", "在用");
    leave(form);
    EXPECT_FALSE(form.isVisible());
    EXPECT_EQ(answer(form), "-1|-1|-1");
  }
}

TEST_F(FrmFATypesTest, forgetsAnEarlierChoiceWhenItIsLeftTheNextTime) {
  FrmFATypes& form = open(ArchiveKind::Statuses);
  selectNode(form, "TvAssentTypes", "在用");
  click(form, "CmdOK");
  form.show();
  click(form, "CmdCancel");
  EXPECT_EQ(answer(form), "-1|-1|-1");
}

TEST_F(FrmFATypesTest, givesItsCallerTheEntryOrNothing) {
  inModalForm([](QWidget& form) {
    EXPECT_EQ(selected(form), "动力设备") << "the entry so far is shown";
    selectNode(form, "TvAssentTypes", "生产用房屋");
    sendKey(control<QTreeWidget>(form, "TvAssentTypes"), Qt::Key_Return);
  });
  const auto picked = pickFromArchive(host, ArchiveKind::AssetTypes, "022");
  ASSERT_TRUE(picked);
  EXPECT_EQ(picked->name + "|" + picked->value + "|" + picked->assetTypeID, "生产用房屋|011|011");
  inModalForm([](QWidget& form) { click(form, "CmdCancel"); });
  EXPECT_FALSE(pickFromArchive(host, ArchiveKind::AssetTypes));
}

TEST_F(FrmFATypesTest, stepsThroughWhatIsSearched) {
  const FrmFATypes& form = open(ArchiveKind::AssetTypes);
  auto& step = control<UpDown>(form, "VScrollChange");
  type(form, "TxtSearch", "运输");
  Lines found;
  for (int i = 0; i < 3; ++i) {
    emit step.stepped(-1);
    found.push_back(selected(form));
  }
  EXPECT_EQ(found, (Lines{"运输设备", "道路运输车辆", "运输设备"})) << "it goes round";
  EXPECT_EQ(textOf(form, "TxtSearch"), "运输");
  click(form, "OptSearch0");
  type(form, "TxtSearch", "04");
  sendKey(control<QLineEdit>(form, "TxtSearch"), Qt::Key_Return);
  EXPECT_EQ(selected(form), "电子设备");
  emit step.stepped(1);
  EXPECT_EQ(selected(form), "通讯与办公电子设备") << "upwards from the first match";
}

TEST_F(FrmFATypesTest, hangsAnEntryWithoutAParentBelowTheRoot) {
  execute("update fa_AssetTypes set sParentID='77' where sNum='021'");
  execute("update fa_AssetTypes set sID='0' where sNum='&'");
  execute("update fa_AssetTypes set sParentID=Null where sNum='03'");
  const Lines nodes = nodesOf(open(ArchiveKind::AssetTypes), "TvAssentTypes");
  EXPECT_EQ(nodes.front(), "固定资产分类编码表");
  EXPECT_EQ(std::ranges::count(nodes, "  生产设备"), 1);
  EXPECT_EQ(std::ranges::count(nodes, "  运输设备"), 1);
}

TEST_F(FrmFATypesTest, staysEmptyWithoutEntriesOrWithoutItsFile) {
  execute("delete from fa_Depreciations");
  FrmFATypes& form = open(ArchiveKind::Methods);
  EXPECT_TRUE(nodesOf(form, "TvAssentTypes").empty());
  emit control<UpDown>(form, "VScrollChange").stepped(-1);
  click(form, "CmdOK");
  EXPECT_TRUE(form.isVisible());
  ClsOpArgs elsewhere;
  elsewhere.setZkDataPath(missingFile());
  form.setDispType(ArchiveKind::Statuses);
  EXPECT_EQ(form.windowTitle(), "使用状态参照");
  EXPECT_FALSE(nodesOf(form, "TvAssentTypes").empty());
  form.setoClsOpArgs(elsewhere);
  EXPECT_TRUE(nodesOf(form, "TvAssentTypes").empty());
}

}  // namespace
}  // namespace zelkor::test
