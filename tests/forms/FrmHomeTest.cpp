#include <QCompleter>
#include <QPointer>
#include <QToolButton>

#include "forms/HomeTest.h"

// What the workbench shows of the month, and how its commands are started.
namespace zelkor::test {
namespace {

TEST_F(FrmHomeTest, TheMonthIsShownAndItsNextStepIsTheDefault) {
  useBooks();
  QWidget& form = home();
  EXPECT_EQ(textOf(form, "LblHeadline"), "2020年1月，下一步：制单（待制 1 笔 239,253.00）。");
  EXPECT_EQ(textOf(form, "CmdNext"), "批量制单");
  EXPECT_TRUE(control<QPushButton>(form, "CmdNext").isDefault());
  EXPECT_EQ(textOf(form, "LblFigure3"), "239,253.00");
  EXPECT_FALSE(control<QPushButton>(form, "CmdStep0").isEnabled()) << "the wizard has been gone through";
  EXPECT_NE(control<frmChart>(form, "ChartDepartments").csv().indexOf("生产部"), -1);
  EXPECT_EQ(command(control<QToolButton>(form, "CmdMore6"), "more 凭证类别").text(), "凭证类别");
  EXPECT_EQ(form.height(), 680) << "as much as fits on a screen of 768 lines";
  keepPicture(form, "FrmHome");
  form.resize(1, 1);
  EXPECT_LE(form.height(), 680) << "its texts take no more lines where it is narrow";
}

TEST_F(FrmHomeTest, ACommandIsStartedAsTheShellWouldAndReadsAgainAtItsEnd) {
  QWidget& form = home();
  execute("update fa_departments set sSubjectNum='550202' where sNum<>'&'");
  engine.flush();
  EXPECT_NE(textOf(form, "LblCounts1").find("11 个部门没有设"), std::string::npos);
  activate(form);
  click(form, "CmdStep1");
  untilTold(form, "LblStatus", "“部门对应折旧科目”已结束");
  EXPECT_EQ(readFile(given()),
            context.gstrZtFile + ",陈会计,2020-01-31,3," + context.gstrZkSysFile + ",001\n");
  until([&] { return textOf(form, "LblCounts1").find("没有设") == std::string::npos; }, "read again");

  press(form, "工作量");
  until([&] { return control<QPushButton>(form, "CmdStep1").isEnabled(); }, "ended");
  EXPECT_EQ(readFile(given()), "--screen\nworkload\n" + context.gstrZtFile + ",陈会计,2020-01-31,8," +
                                   context.gstrZkSysFile + ",001\n");
}

TEST_F(FrmHomeTest, OneCommandAtATimeAndTheWindowStaysWhileItRuns) {
  const std::string gate = (directory / "gate").string();
  ASSERT_EQ(::mkfifo(gate.c_str(), S_IRWXU), 0);
  QWidget& form = home("read line <'" + gate + "'; exit 0");
  press(form, "部门档案");
  EXPECT_EQ(textOf(form, "LblStatus"), "正在进行：部门档案。关闭它以后才能开始别的命令。");
  EXPECT_FALSE(command(form, "资产类别").isEnabled());
  EXPECT_FALSE(control<QPushButton>(form, "CmdNext").isEnabled());
  tells("“部门档案”还开着，请先关闭它。", Icon::Information, "固定资产工作台");
  form.close();
  EXPECT_TRUE(form.isVisible());
  writeFile(gate, "on\n");
  untilTold(form, "LblStatus", "“部门档案”已结束");
  EXPECT_TRUE(command(form, "资产类别").isEnabled());
}

TEST_F(FrmHomeTest, WhatAFailedCommandToldCanBeRead) {
  QWidget& form = home("echo '实时错误 3051' >&2; echo '第二行' >&2; exit 1");
  press(form, "资产类别");
  untilTold(form, "LblStatus", "“资产类别”没有正常结束：实时错误 3051 第二行");
  inModalForm([](QWidget& detail) {
    EXPECT_NE(control<QPlainTextEdit>(detail, "TxtDetail").toPlainText().indexOf("第二行"), -1);
    click(detail, "CmdClose");
  });
  click(form, "CmdDetail");
}

TEST_F(FrmHomeTest, AKilledModuleAndAMissingOneAreTold) {
  QWidget& killed = home("kill -9 $$");
  press(killed, "资产类别");
  untilTold(killed, "LblStatus", "被信号 9 终止");
  std::filesystem::remove(directory / "module");
  press(killed, "资产类别");
  untilTold(killed, "LblStatus", "不能启动程序“" + (directory / "module").string() + "”：没有这个程序");
  EXPECT_TRUE(control<QPushButton>(killed, "CmdNext").isEnabled());
}

TEST_F(FrmHomeTest, ASetThatVanishesAndComesBack) {
  if (writesWithoutItsFile()) GTEST_SKIP();
  QWidget& form = home();
  context.dbZKData.Close();
  std::filesystem::rename(context.gstrZtFile, context.gstrZtFile + ".away");
  press(form, "刷新");
  untilTold(form, "LblHeadline", "账套现在读不出来");
  EXPECT_FALSE(control<QPushButton>(form, "CmdStep2").isEnabled());
  EXPECT_TRUE(control<QPushButton>(form, "CmdDetail").isVisible());
  EXPECT_FALSE(command(form, "检查账套").isEnabled());
  inModalForm([](QWidget& login) { click(login, "CmdOK"); });
  press(form, "操作员与操作日期…");
  EXPECT_EQ(textOf(form, "LblHeadline"), "正在读取…") << "nothing is known of what is opened now";
  EXPECT_EQ(textOf(form, "LblCounts1") + textOf(form, "LblFigure0"), "");
  untilTold(form, "LblHeadline", "账套现在读不出来");
  std::filesystem::rename(context.gstrZtFile + ".away", context.gstrZtFile);
  press(form, "刷新");
  untilTold(form, "LblHeadline", "2020年1月，下一步");
  EXPECT_TRUE(control<QPushButton>(form, "CmdStep2").isEnabled());
  EXPECT_FALSE(control<QPushButton>(form, "CmdDetail").isVisible());
}

TEST_F(FrmHomeTest, AClosedMonthOffersTheOpenOne) {
  execute("update AccInformation set cValue='2' where cSysID='FA' and cName='iLastPeriod'");
  engine.flush();
  QWidget& form = home();
  EXPECT_EQ(textOf(form, "CmdNext"), "改到2020年2月");
  click(form, "CmdNext");
  untilTold(form, "LblHeadline", "2020年2月，下一步");
}

TEST_F(FrmHomeTest, AfterTheYearsClosingTheNextStepIsWhatItsButtonSays) {
  execute("update AccInformation set cValue='13' where cSysID='FA' and cName='iLastPeriod'");
  engine.flush();
  context.gdOpDate = day("2021-1-31");
  QWidget& form = home("exit 0", "2021年1月");
  const std::string next = textOf(form, "CmdNext");
  click(form, "CmdNext");
  untilTold(form, "LblStatus", "“" + next + "”已结束");
}

TEST_F(FrmHomeTest, AMenuThatIsLookedAtStaysThroughAReading) {
  QWidget& form = home();
  execute("update fa_departments set sSubjectNum='550202' where sNum<>'&'");
  engine.flush();
  const QPointer<QMenu> menu = control<QToolButton>(form, "CmdMore1").menu();
  menu->popup(QPoint());
  press(form, "刷新");
  until([&] { return textOf(form, "LblCounts1").find("没有设") == std::string::npos; }, "read again");
  ASSERT_TRUE(menu);
  menu->close();
}

TEST_F(FrmHomeTest, ACommandIsFoundByItsName) {
  QWidget& form = home();
  type(form, "TxtCommand", "绝无");
  sendKey(control<QLineEdit>(form, "TxtCommand"), Qt::Key_Return);
  EXPECT_EQ(textOf(form, "LblStatus"), "没有名称中有“绝无”的命令。");
  type(form, "TxtCommand", "分配");
  sendKey(control<QLineEdit>(form, "TxtCommand"), Qt::Key_Return);
  untilTold(form, "LblStatus", "“折旧分配表”已结束");
  // While the list of names is shown it gets the keys.
  auto& field = control<QLineEdit>(form, "TxtCommand");
  type(form, "TxtCommand", "计提本月");
  field.completer()->complete();
  sendKey(*field.completer()->popup(), Qt::Key_Return);
  untilTold(form, "LblStatus", "“计提本月折旧”已结束");
}

}  // namespace
}  // namespace zelkor::test
