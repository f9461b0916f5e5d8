#include <QDateEdit>

#include "forms/HomeTest.h"
#include "home/FrmAccountSets.h"
#include "home/FrmNewAccountSet.h"

// The account sets that a person knows.
namespace zelkor::test {
namespace {

class FrmAccountSetsTest : public FrmHomeTest {};

TEST_F(FrmAccountSetsTest, ASetIsOpenedByWhomAndForWhichDay) {
  list.remember(opened().set);
  list.remember(
      {"/books/002/ZkData.Mdb", "/books/002/ZkSystem.Mdb", "002", "西厂", "", "李会计", day("2019-12-31")});
  auto& form = host.show<FrmAccountSets>(list);
  until([&] { return columnOf(form, "GridSets", 4) == Lines{"正常", "找不到"}; }, "looked at");
  keepPicture(form, "FrmAccountSets");
  gridOf(form, "GridSets").selectGridRow(2);
  EXPECT_FALSE(control<QPushButton>(form, "CmdOpen").isEnabled());
  EXPECT_NE(textOf(form, "LblDetail").find("找不到文件"), std::string::npos);
  gridOf(form, "GridSets").selectGridRow(1);
  inModalForm([&](QWidget& login) {
    EXPECT_EQ(control<QDateEdit>(login, "DateOp").date(), QDate(2020, 1, 31)) << "the open month's last day";
    control<QDateEdit>(login, "DateOp").setDate(QDate(2020, 3, 31));
    EXPECT_NE(textOf(login, "LblWarning").find("还没有轮到"), std::string::npos);
    type(login, "TxtUser", "王,会计");
    dialogs.expectOk("参数串以逗号分隔，操作员“王,会计”中有逗号或首尾有空格，不能传递。", Icon::Exclamation,
                     "固定资产工作台");
    click(login, "CmdOK");
    type(login, "TxtUser", "王会计");
    keepPicture(login, "FrmLogin");
    click(login, "CmdOK");
  });
  click(form, "CmdOpen");
  ASSERT_TRUE(form.opened());
  EXPECT_EQ(form.opened()->user, "王会计");
  EXPECT_EQ(form.opened()->date, day("2020-3-31"));
  EXPECT_EQ(AccountSetList(directory / "config/account-sets.tsv").sets().front().user, "王会计");
}

TEST_F(FrmAccountSetsTest, ASetThatIsNotKnownYetIsOpenedOnceItIs) {
  list.remember(opened().set);
  auto& form = host.show<FrmAccountSets>(list);
  inComingForm([](QWidget& login) { click(login, "CmdOK"); });
  click(form, "CmdOpen");
  until([&] { return form.opened().has_value(); }, "opened");
}

TEST_F(FrmAccountSetsTest, ANewSetIsMadeAndListed) {
  auto& form = host.show<FrmAccountSets>(list);
  keepPicture(form, "FrmAccountSets-empty");
  EXPECT_TRUE(control<QPushButton>(form, "CmdNew").isDefault());
  const std::string folder = (directory / "new").string();
  inModalForm([&](QWidget& create) {
    type(create, "TxtName", "新厂");
    type(create, "TxtUnit", "甲公司");
    control<QLineEdit>(create, "TxtFolder").setText("relative");
    dialogs.expectOk("请指明账套放在哪个文件夹（从 / 开始的路径）！", Icon::Exclamation, "固定资产工作台");
    click(create, "CmdOK");
    control<QLineEdit>(create, "TxtFolder").setText(QString::fromStdString(folder));
    keepPicture(create, "FrmNewAccountSet");
    click(create, "CmdOK");
    tells("正在建立账套，请等它结束。", Icon::Information, "固定资产工作台");
    click(create, "CmdCancel");
    until([&] { return !create.isVisible(); }, "made");
  });
  click(form, "CmdNew");
  EXPECT_EQ(columnOf(form, "GridSets", 0), Lines{"新厂"});
  EXPECT_TRUE(control<QPushButton>(form, "CmdOpen").isDefault());
  until([&] { return columnOf(form, "GridSets", 4) == Lines{"未初始化"}; }, "looked at");
  dialogs.expectYesNo("从列表移除“新厂”？账套的文件不会删除。", Answer::Yes, Icon::Question,
                      "固定资产工作台");
  click(form, "CmdRemove");
  EXPECT_TRUE(list.sets().empty());
  EXPECT_TRUE(std::filesystem::exists(folder + "/ZkData.Mdb"));
}

}  // namespace
}  // namespace zelkor::test
