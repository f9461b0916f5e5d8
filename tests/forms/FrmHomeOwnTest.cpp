#include <QClipboard>
#include <QFileDialog>

#include "forms/HomeTest.h"
#include "reports/ConditionTexts.h"
#include "reports/ReportCatalogue.h"

// What the workbench does beside starting the module: checks, backups, what was done last.
namespace zelkor::test {
namespace {

constexpr const char* kResetQuestion =
    "“重新初始化账套”做了以后不能撤消，只能恢复以前的备份。\n\n先备份账套？\n\n本月还没有备份。";

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

/// While the backup is looked for the person goes on to another day's books.
TEST_F(FrmHomeTest, ALateAnswerAboutReopeningIsDropped) {
  useBooks();
  backUp({.data = context.gstrZtFile, .system = context.gstrZkSysFile, .now = day("2020-2-1")});
  execute("update AccInformation set cValue='2' where cSysID='FA' and cName='iLastPeriod'");
  engine.flush();
  QWidget& form = home();
  press(form, "恢复到结账前…");
  click(form, "CmdNext");
  untilTold(form, "LblHeadline", "2020年2月，下一步");
  EXPECT_TRUE(control<QPushButton>(form, "CmdStep2").isEnabled());
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

/// The whole name counts, which is longer than what is typed.
TEST_F(FrmHomeTest, WhatIsThereIsReplacedOnlyWhereItIsAgreed) {
  useBooks();
  RecentReports(RecentReports::usualFile())
      .remember({context.gstrZtFile, "001", "价值结构分析表", {"period=2020.01"}, day("2020-1-31")});
  QWidget& form = home();
  const auto saveAs = [&](QWidget& over, const char* button, const char* name, Answer answer) {
    const std::string kept = (directory / (std::string(name) + ".xlsx")).string();
    writeFile(kept, "before");
    dialogs.expectYesNo("文件“" + kept + "”已存在，是否替换？", answer, Icon::Question, "另存为");
    inModalForm([&](QWidget& window) {
      dynamic_cast<QFileDialog&>(window).selectFile(toQt((directory / name).string()));
      dynamic_cast<QDialog&>(window).accept();
    });
    click(over, button);
    return kept;
  };
  EXPECT_EQ(readFile(saveAs(form, "CmdWorkbook", "report", Answer::No)), "before");
  const std::string report = saveAs(form, "CmdWorkbook", "report", Answer::Yes);
  untilTold(form, "LblStatus", "已保存到“" + report);
  EXPECT_TRUE(readFile(report).starts_with("PK"));
  inModalForm([&](QWidget& preview) {
    until([&] { return preview.findChild<FlexGrid*>("Grid2") != nullptr; }, "computed");
    EXPECT_EQ(readFile(saveAs(preview, "CmdSave", "run.2020", Answer::No)), "before");
    click(preview, "CmdClose");
  });
  press(form, "预览计提");
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
  untilTold(form, "LblStatus", "“固定资产总账”已结束");
  EXPECT_EQ(readFile(given()).substr(0, 21), "--screen\nlast-report\n");
  EXPECT_EQ(RecentReports(RecentReports::usualFile()).of(context.gstrZtFile, "001").front().name,
            "固定资产总账")
      << "it is the one that the module shows";
}

TEST_F(FrmHomeTest, EachChartOpensItsReport) {
  useBooks();
  context.gdOpDate = day("2020-3-31");
  QWidget& form = home("exit 0", "2020年3月");
  sendKey(control<frmChart>(form, "ChartDepartments"), Qt::Key_Return);
  untilTold(form, "LblStatus", "“折旧分配表”已结束");
  const std::tuple<const char*, const char*, Lines> cases[] = {
      {"ChartCategories", "价值结构分析表", {"period=2020.03"}},
      {"ChartMonths", "固定资产总账", {"period=2020.01", "period-to=2020.03"}}};
  for (const auto& [chart, report, conditions] : cases) {
    sendKey(control<frmChart>(form, chart), Qt::Key_Return);
    untilTold(form, "LblStatus", "“" + std::string(report) + "”已结束");
    const RecentReport last = RecentReports(RecentReports::usualFile()).of(context.gstrZtFile, "001").front();
    EXPECT_EQ(last.name, report);
    EXPECT_EQ(last.conditions, conditions);
    ASSERT_TRUE(findReport(report));
    EXPECT_EQ(
        conditionTexts(*findReport(report), readConditions(context, *findReport(report), conditions))[0],
        conditions[0]);
  }
  std::filesystem::remove_all(directory / "config");
  writeFile(directory / "config", "in the way of the folder");
  std::filesystem::remove(given());
  sendKey(control<frmChart>(form, "ChartMonths"), Qt::Key_Return);
  untilTold(form, "LblStatus", "不能直接打开“固定资产总账”");
  EXPECT_FALSE(std::filesystem::exists(given())) << "it would be another report";
}

}  // namespace
}  // namespace zelkor::test
