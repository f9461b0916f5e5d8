#include <sys/stat.h>

#include <QClipboard>
#include <QCompleter>
#include <QDateEdit>
#include <QElapsedTimer>
#include <sstream>

#include "cards/CardImport.h"
#include "depreciation/RunMonthDepr.h"
#include "home/FrmAccountSets.h"
#include "home/FrmHome.h"
#include "home/FrmNewAccountSet.h"
#include "support/MonthlyRun.h"
#include "support/Paths.h"
#include "support/Widgets.h"
#include "transfer/backup/Backup.h"
#include "ui/FlexGrid.h"

// The workbench on a set whose reader is a thread of its own, with a script in the module's place.
namespace zelkor::test {
namespace {

constexpr const char* kResetQuestion =
    "“重新初始化账套”做了以后不能撤消，只能恢复以前的备份。\n\n先备份账套？\n\n本月还没有备份。";

class FrmHomeTest : public FormTest {
 protected:
  FrmHomeTest() {
    context.gdOpDate = day("2020-1-31");
    setenv("HOME", directory.path().c_str(), 1);
  }

  OpenedSet opened() const {
    return {{context.gstrZtFile, context.gstrZkSysFile, "001", "示例账套", "", "陈会计", day("2020-1-1")},
            "陈会计",
            context.gdOpDate};
  }
  /// Enters the register and runs the month, as other programs would have.
  void useBooks() {
    std::ostringstream problems;
    importCards(context, readFile(dataFolder() / "sample-register.csv"), 1, problems);
    execute("update fa_departments set sSubjectNum='550202' where sNum<>'&'");
    expectWholeRun(dialogs);
    RunMonthDepr(context, {.depreciationList = [] {}, .allocationTable = [] {}});
    engine.flush();
  }
  /// Puts a program in the module's place that keeps its arguments, and then does as it is told.
  std::string module(const std::string& does) {
    const std::filesystem::path script = directory / "module";
    writeFile(script, "#!/bin/sh\nprintf '%s\\n' \"$@\" >'" + given().string() + "'\n" + does + "\n");
    ::chmod(script.c_str(), S_IRWXU);
    return script.string();
  }
  std::filesystem::path given() const { return directory / "given"; }
  /// Does something in the modal form that comes once a child has ended.
  static void inComingForm(std::function<void(QWidget&)> action) {
    auto* look = new QTimer;
    QObject::connect(look, &QTimer::timeout, [look, action = std::move(action)] {
      QWidget* form = QApplication::activeModalWidget();
      if (form == nullptr) return;
      look->stop();
      look->deleteLater();
      action(*form);
    });
    look->start(5);
  }
  /// A voucher of all that is staged, so that nothing but check and backup is left before the closing.
  void billAll() {
    execute("update fa_ZWVouchers set cDefine1='1'");
    engine.flush();
  }
  std::vector<ListedBackup> backups() const { return backupsIn(backupsBeside(context.gstrZtFile)); }

  /// Lets the event loop work until it is so.
  template <typename Condition>
  static void until(Condition holds, const char* what) {
    constexpr int kPatience = 20'000;
    QElapsedTimer waiting;
    waiting.start();
    while (!holds() && waiting.elapsed() < kPatience) QApplication::processEvents(QEventLoop::AllEvents, 20);
    EXPECT_TRUE(holds()) << what;
  }
  static void untilTold(const QWidget& form, const char* label, const std::string& text) {
    until([&] { return textOf(form, label).find(text) != std::string::npos; }, text.c_str());
    EXPECT_NE(textOf(form, label).find(text), std::string::npos) << textOf(form, label);
  }
  FrmHome& home(const std::string& does = "exit 0") {
    auto& form = host.show<FrmHome>(list, opened(), HomePrograms{module(does), zelkorctlProgram()});
    untilTold(form, "LblHeadline", "2020年1月");
    until([&] { return !textOf(form, "LblFigure0").empty(); }, "read to the end");
    return form;
  }

  AccountSetList list{directory / "config/account-sets.tsv"};
};

TEST_F(FrmHomeTest, TheMonthIsShownAndItsNextStepIsTheDefault) {
  useBooks();
  QWidget& form = home();
  EXPECT_EQ(textOf(form, "LblHeadline"), "2020年1月，下一步：制单（待制 1 笔 239,253.00）。");
  EXPECT_EQ(textOf(form, "CmdNext"), "批量制单");
  EXPECT_TRUE(control<QPushButton>(form, "CmdNext").isDefault());
  EXPECT_EQ(textOf(form, "LblFigure3"), "239,253.00");
  EXPECT_FALSE(control<QPushButton>(form, "CmdStep0").isEnabled()) << "the wizard has been gone through";
  EXPECT_NE(control<frmChart>(form, "ChartDepartments").csv().indexOf("生产部"), -1);
  keepPicture(form, "FrmHome");
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
  untilTold(killed, "LblStatus", "不能启动程序");
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

TEST_F(FrmHomeTest, ACommandIsFoundByItsName) {
  QWidget& form = home();
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

TEST_F(FrmHomeTest, NothingIsResetBeforeTheNameIsTyped) {
  QWidget& form = home();
  leaveNext();
  press(form, "重新初始化账套");
  EXPECT_FALSE(std::filesystem::exists(given()));
  dialogs.expect({kResetQuestion, Buttons::YesNoCancel, Icon::Question, "固定资产工作台"}, Answer::No);
  inModalForm([](QWidget& confirm) {
    type(confirm, "TxtName", "示例");
    EXPECT_FALSE(control<QPushButton>(confirm, "CmdOK").isEnabled());
    type(confirm, "TxtName", "示例账套");
    keepPicture(confirm, "FrmConfirmName");
    click(confirm, "CmdOK");
  });
  press(form, "重新初始化账套");
  untilTold(form, "LblStatus", "“重新初始化账套”已结束");
}

TEST_F(FrmHomeTest, ACheckShowsWhatItFoundAndOpensTheScreenAboutIt) {
  useBooks();
  execute("update fa_Cards set sDeprSubjectNum='' where sCardNum='00002'");
  engine.flush();
  QWidget& form = home();
  inComingForm([](QWidget& findings) {
    const Lines rules = columnOf(findings, "GridFindings", 0);
    const auto row = std::ranges::find(rules, "C08") - rules.begin();
    gridOf(findings, "GridFindings").selectGridRow(static_cast<std::size_t>(row) + 1);
    EXPECT_NE(control<QPlainTextEdit>(findings, "TxtRemedy").toPlainText().indexOf("处理："), -1);
    EXPECT_EQ(textOf(findings, "CmdShow"), "打开卡片管理(&O)");
    click(findings, "CmdCopy");
    EXPECT_NE(QApplication::clipboard()->text().indexOf("位置：00002"), -1)
        << QApplication::clipboard()->text().toStdString();
    keepPicture(findings, "FrmFindings");
    click(findings, "CmdShow");
  });
  click(form, "CmdStep8");
  untilTold(form, "LblStatus", "“卡片管理”已结束");
  untilTold(form, "LblCounts8", "警告");
  EXPECT_TRUE(
      CheckMemory(directory / "config/checks.tsv").lastOf(context.gstrZtFile, "001", context.gdOpDate));
}

TEST_F(FrmHomeTest, ABackupIsMadeAndItsStepSaysWhen) {
  useBooks();
  billAll();
  QWidget& form = home();
  untilTold(form, "LblHeadline", "下一步：检查");
  click(form, "CmdStep9");
  untilTold(form, "LblStatus", "已备份到 ");
  untilTold(form, "LblCounts9", "已备份 ");
  ASSERT_EQ(backups().size(), 1U);
}

TEST_F(FrmHomeTest, TheClosingOffersABackupAndGoesOnBehindIt) {
  useBooks();
  QWidget& form = home();
  const std::string question =
      "“月末结账”做了以后不能撤消，只能恢复以前的备份。\n\n先备份账套？\n\n本月还没有备份。";
  dialogs.expect({question, Buttons::YesNoCancel, Icon::Question, "固定资产工作台"}, Answer::Cancel);
  click(form, "CmdStep10");
  EXPECT_FALSE(std::filesystem::exists(given()));
  dialogs.expect({question, Buttons::YesNoCancel, Icon::Question, "固定资产工作台"}, Answer::Yes);
  click(form, "CmdStep10");
  untilTold(form, "LblStatus", "“月末结账”已结束");
  ASSERT_EQ(backups().size(), 1U);
  EXPECT_EQ(backups().front().note.label, "结账前");
}

TEST_F(FrmHomeTest, AFailedBackupClosesNothing) {
  QWidget& form = home();
  writeFile(backupsBeside(context.gstrZtFile), "in the way of the folder");
  dialogs.expect({kResetQuestion, Buttons::YesNoCancel, Icon::Question, "固定资产工作台"}, Answer::Yes);
  inModalForm([](QWidget& confirm) {
    type(confirm, "TxtName", "示例账套");
    click(confirm, "CmdOK");
  });
  press(form, "重新初始化账套");
  untilTold(form, "LblStatus", "“备份账套”没有正常结束");
  EXPECT_FALSE(std::filesystem::exists(given()));
}

TEST_F(FrmHomeTest, AClosedMonthIsOpenedAgainFromItsBackup) {
  useBooks();
  backUp({.data = context.gstrZtFile,
          .system = context.gstrZkSysFile,
          .label = "结账前",
          .now = day("2020-2-1")});
  execute("update AccInformation set cValue='2' where cSysID='FA' and cName='iLastPeriod'");
  execute("delete from fa_Vouchers");
  execute("insert into fa_Vouchers (sNum) values ('00099')");
  engine.flush();
  QWidget& form = home();
  untilTold(form, "LblCounts9", "结账前的备份");
  context.dbZKData.Close();
  context.dbZKSystem.Close();
  const std::string question =
      "恢复到2020年1月结账以前，换成 2020-02-01 00:00:00 的备份（结账前）？\n\n"
      "备份以后做的都会丢失：\n　　2020年1月的结账，以及以后做的全部业务\n　　"
      "变动单 1 条\n\n现在的账套先备份到 " +
      backupsBeside(context.gstrZtFile).string() + "，说明为“恢复前”；恢复它就是撤消。";
  MessageBox box{question, Buttons::YesNo, Icon::Exclamation, "固定资产工作台"};
  box.defaultButton = DefaultButton::Second;
  dialogs.expect(box, Answer::Yes);
  press(form, "恢复到结账前…");
  untilTold(form, "LblStatus", "已恢复到2020年1月结账以前。");
  untilTold(form, "LblHeadline", "2020年1月，下一步");
  EXPECT_EQ(backups().size(), 2U) << "what was there is kept";
}

TEST_F(FrmHomeTest, WhatTheRunWouldBookAndWhatIsStillToCome) {
  useBooks();
  QWidget& form = home();
  inModalForm([&](QWidget& preview) {
    until([&] { return preview.findChild<FlexGrid*>("Grid2") != nullptr; }, "computed");
    EXPECT_EQ(columnOf(preview, "Grid0", 3).back(), "239253.00");
    keepPicture(preview, "FrmPreview");
    click(preview, "CmdClose");
  });
  press(form, "预览计提");
  inModalForm([&](QWidget& plan) {
    until([&] { return plan.findChild<FlexGrid*>("Grid2") != nullptr; }, "computed");
    EXPECT_NE(control<frmChart>(plan, "ChartMonths").csv().indexOf("2020.01,239253.00"), -1);
    keepPicture(plan, "FrmPlan");
    click(plan, "CmdClose");
  });
  press(form, "未来折旧");
}

TEST_F(FrmHomeTest, WhatWasDoneLastIsBelow) {
  useBooks();
  execute(
      "insert into GL_accvouch (iperiod,csign,ino_id,inid,dbill_date,cdigest,md,mc,ccodecontrol) values "
      "(1,'记',7,1,#2020-1-31#,'计提折旧',100,0,'FA,#')");
  engine.flush();
  const std::vector<std::string> conditions{"period=2020.01"};
  RecentReports(RecentReports::usualFile())
      .remember({context.gstrZtFile, "001", "固定资产总账", {"period=2020.02"}, day("2020-1-30")});
  RecentReports(RecentReports::usualFile())
      .remember({context.gstrZtFile, "001", "价值结构分析表", conditions, day("2020-1-31")});
  RecentReports(RecentReports::usualFile()).remember({"/other", "001", "固定资产总账", {}, day("2020-1-31")});
  QWidget& form = home();
  EXPECT_EQ(columnOf(form, "GridCards", 0).front(), "00062");
  EXPECT_EQ(columnOf(form, "GridVouchers", 0), Lines{"记-7"});
  control<QTabWidget>(form, "TabsRecent").setCurrentIndex(2);
  EXPECT_EQ(columnOf(form, "GridReports", 0), (Lines{"价值结构分析表", "固定资产总账"}));
  keepPicture(form, "FrmHome-reports");
  gridOf(form, "GridReports").selectGridRow(2);
  click(form, "CmdReport");
  untilTold(form, "LblStatus", "“最近的报表”已结束");
  EXPECT_EQ(readFile(given()).substr(0, 21), "--screen\nlast-report\n");
  EXPECT_EQ(RecentReports(RecentReports::usualFile()).of(context.gstrZtFile, "001").front().name,
            "固定资产总账")
      << "it is the one that the module shows";
}

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

TEST_F(FrmAccountSetsTest, ANewSetIsMadeAndListed) {
  auto& form = host.show<FrmAccountSets>(list);
  keepPicture(form, "FrmAccountSets-empty");
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
    until([&] { return !create.isVisible(); }, "made");
  });
  click(form, "CmdNew");
  EXPECT_EQ(columnOf(form, "GridSets", 0), Lines{"新厂"});
  until([&] { return columnOf(form, "GridSets", 4) == Lines{"未初始化"}; }, "looked at");
  dialogs.expectYesNo("从列表移除“新厂”？账套的文件不会删除。", Answer::Yes, Icon::Question,
                      "固定资产工作台");
  click(form, "CmdRemove");
  EXPECT_TRUE(list.sets().empty());
  EXPECT_TRUE(std::filesystem::exists(folder + "/ZkData.Mdb"));
}

}  // namespace
}  // namespace zelkor::test
