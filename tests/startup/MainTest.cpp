#include <gtest/gtest.h>

#include "startup/CloseObject.h"
#include "startup/Logs.h"
#include "startup/Main.h"
#include "startup/ProgramEnd.h"
#include "support/AccountSetFixture.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

constexpr const char* kWorkloadQuestion =
    "请您确定在继续操作之前,是否已正确输入了工作量!\n如果没有请退出(否),并进行工作量输入!\n继续?";
constexpr const char* kFirstWarning =
    "此操作将删除本账套中所有业务数据，并不能以任何方式恢复账套当前的所有数据，是否继续？";
constexpr const char* kSecondWarning = "此项操作对所有业务数据将造成不可恢复删除，请再次确认是否要继续？";
constexpr const char* kWizardQuestion = "这是第一次打开此账套,还未进行过初始化,是否进行初始化?";

/// Main with jobs that only note what they were given.
class MainTest : public AccountSetTest {
 protected:
  MainTest() {
    for (int runType = 0; runType <= 25; ++runType) note(std::string(findRunType(runType)->job));
    note("SyncDepartments");
  }

  void note(const std::string& name) {
    jobs.add(name, [this, name](RunContext&, const ScreenProperties& properties) {
      started.push_back(name);
      given = properties;
    });
  }

  std::string argumentsOf(const std::string& runType) const {
    return context.gstrZtFile + ",陈会计,2020-5-15," + runType + "," + context.gstrZkSysFile + ",001";
  }

  /// Exit status where the program was ended, nothing where Main returned.
  std::optional<int> run(const std::string& runType) {
    started.clear();
    try {
      Main(context, argumentsOf(runType), jobs, [this] { return onlyInstance; });
      return std::nullopt;
    } catch (const EndProgram& end) {
      return end.status;
    }
  }

  void setStartDate(const std::string& value) {
    execute("update AccInformation set cValue=" + value + " where cSysID='FA' and cName='dStartDate'");
  }

  RunTypeJobs jobs;
  std::vector<std::string> started;
  ScreenProperties given;
  bool onlyInstance = true;
};

TEST_F(MainTest, EveryRunTypeStartsItsJob) {
  for (std::vector<std::string> wanted : casesIn("startup/run-types.txt")) {
    const std::string runType = wanted.front();
    wanted.erase(wanted.begin());
    EXPECT_EQ(run(runType), std::nullopt) << runType;
    EXPECT_EQ(started, wanted) << runType;
  }
  EXPECT_TRUE(context.dbZKData.isOpen());
  EXPECT_TRUE(context.dbZKSystem.isOpen());
  EXPECT_EQ(context.gstrDeprStates[2], "总提折旧");
}

TEST_F(MainTest, ChangeSheetsAreToldTheirKind) {
  for (const auto& [runType, kind] : {std::pair("14", "使用状况调整"),
                                      {"15", "累计折旧调整"},
                                      {"16", "使用年限调整"},
                                      {"17", "净残值调整"},
                                      {"18", "部门转移"},
                                      {"24", "原值增加"}}) {
    run(runType);
    EXPECT_EQ(started, std::vector<std::string>{"frmAssetsAlteration"}) << runType;
    EXPECT_EQ(given.BillType, kind) << runType;
  }
}

TEST_F(MainTest, CardScreensAreToldWhatToShow) {
  run("5");
  EXPECT_EQ(given.frmType, 1);
  EXPECT_EQ(given.CardID, "52");
  run("6");
  EXPECT_EQ(given.frmType, 2);
  EXPECT_EQ(given.CardID, "");
  for (const char* runType : {"7", "11", "12", "22"}) {
    run(runType);
    EXPECT_EQ(given.ZkDataPath, context.gstrZtFile) << runType;
  }
}

TEST_F(MainTest, ArchiveScreensWorkOnTheClockAndForNobody) {
  run("2");
  EXPECT_EQ(context.gOpArgs.OpDate(), clock.now());
  EXPECT_EQ(context.gOpArgs.User(), "");
  EXPECT_EQ(context.gOpArgs.RunType(), 3);
  EXPECT_EQ(context.gdOpDate, day("2020-5-15"));
  EXPECT_EQ(context.gstrUser, "陈会计");
  run("3");
  EXPECT_EQ(context.gOpArgs.OpDate(), clock.now());
  EXPECT_EQ(context.gOpArgs.RunType(), 3);
  run("5");
  EXPECT_EQ(context.gOpArgs.OpDate(), day("2020-5-15"));
  EXPECT_EQ(context.gOpArgs.User(), "陈会计");
}

TEST_F(MainTest, OnlyAnUninitialisedAccountSetIsOfferedTheWizard) {
  setStartDate("'2020-01-01'");
  EXPECT_EQ(run("0"), 0);
  EXPECT_TRUE(started.empty());

  for (const char* empty : {"''", "Null"}) {
    setStartDate(empty);
    dialogs.expectYesNo(kWizardQuestion, Answer::No, Icon::Information, "固定资产");
    EXPECT_EQ(run("0"), 0);
    EXPECT_TRUE(started.empty());
  }

  execute("delete from AccInformation where cName='dStartDate'");
  dialogs.expectYesNo(kWizardQuestion, Answer::Yes, Icon::Information, "固定资产");
  EXPECT_EQ(run("0"), std::nullopt);
  EXPECT_EQ(started, std::vector<std::string>{"FrmInit"});
}

TEST_F(MainTest, TheMonthlyRunAsksForTheWorkloadFirst) {
  dialogs.expectYesNo(kWorkloadQuestion, Answer::No, Icon::Information, "");
  EXPECT_EQ(run("8"), 0);
  EXPECT_TRUE(started.empty());
  dialogs.expectYesNo(kWorkloadQuestion, Answer::Yes, Icon::Information, "");
  EXPECT_EQ(run("8"), std::nullopt);
  EXPECT_EQ(started, std::vector<std::string>{"RunMonthDepr"});
}

TEST_F(MainTest, ReinitialisationIsConfirmedTwice) {
  dialogs.expectYesNo(kFirstWarning, Answer::No, Icon::Question, "固定资产");
  EXPECT_EQ(run("23"), 0);
  dialogs.expectYesNo(kFirstWarning, Answer::Yes, Icon::Question, "固定资产");
  dialogs.expectYesNo(kSecondWarning, Answer::No, Icon::Question, "固定资产");
  EXPECT_EQ(run("23"), 0);
  EXPECT_TRUE(started.empty());
  dialogs.expectYesNo(kFirstWarning, Answer::Yes, Icon::Question, "固定资产");
  dialogs.expectYesNo(kSecondWarning, Answer::Yes, Icon::Question, "固定资产");
  dialogs.expectOk("已重新初始化账套！", Icon::Information, "固定资产");
  EXPECT_EQ(run("23"), std::nullopt);
  EXPECT_EQ(started, std::vector<std::string>{"ReinitialiseAccount"});
}

TEST_F(MainTest, ASecondCopyIsRefusedBeforeAnythingIsOpened) {
  onlyInstance = false;
  context.dbZKData.Close();
  dialogs.expectOk("程序已打开，如要再次打开，请关闭已打开的程序！", Icon::Exclamation, "凭证");
  EXPECT_EQ(run("4"), 2);
  EXPECT_FALSE(context.dbZKData.isOpen());
}

TEST_F(MainTest, OnlyTheCardEditorsShowMayFail) {
  const auto failing = [](RunContext&, const ScreenProperties&) {
    throw RuntimeError(ErrorNumber::Overflow);
  };
  jobs.add("FrmAddCards", failing);
  jobs.add("FrmManageCards", failing);
  EXPECT_EQ(run("5"), std::nullopt);
  EXPECT_EQ(run("6"), std::nullopt);
  EXPECT_EQ(errorOf([&] { run("7"); }), 6);
}

TEST_F(MainTest, AScreenThatIsNotThereIsSaidSo) {
  jobs = RunTypeJobs();
  dialogs.expectOk("本程序中没有“FrmFLBMB”，运行类型4不能在此执行！", Icon::Exclamation, "固定资产");
  EXPECT_EQ(run("4"), 1);
}

TEST_F(MainTest, AScreenWithoutRunTypeHoldsTheRuleOfOneCopy) {
  note("frmGZL");
  const auto start = [this](const std::string& name) {
    startExtraScreen(context, name, argumentsOf("8"), jobs, [this] { return onlyInstance; });
  };
  start("workload");
  EXPECT_EQ(started, std::vector<std::string>{"frmGZL"});
  EXPECT_EQ(context.gdOpDate, day("2020-5-15"));
  EXPECT_EQ(errorOf([&] { start("voucher-types"); }), 5) << "a program without it";
  EXPECT_EQ(errorOf([&] { start("frmGZL"); }), 5);
  onlyInstance = false;
  dialogs.expectOk("程序已打开，如要再次打开，请关闭已打开的程序！", Icon::Exclamation, "凭证");
  EXPECT_THROW(start("workload"), EndProgram);
}

/// The menus as a person reads them.
std::string menusText() {
  std::string text;
  for (const RunGroup group : runGroups()) {
    text += std::string(captionOf(group)) + ":";
    for (const RunTypeRow& row : runTypes())
      if (row.group == group) text += " " + std::to_string(row.runType);
    text += "\n";
  }
  return text;
}

TEST(RunTypesTest, EachMenuHasItsRunTypesAndTheGuideNamesThemAlike) {
  EXPECT_EQ(menusText(),
            "账套: 0 1 23\n档案: 2 3 4 13\n卡片: 5 6 7 22\n变动: 24 14 15 16 17 18 11\n"
            "处理: 8 9 19 10 12 21 20\n报表: 25\n");
  const std::string guide = readFile(testFolder() / "../docs/user-guide.md");
  const std::string table = guide.substr(guide.find("| 运行类型 | 做什么"), 2000);
  for (const RunTypeRow& row : runTypes()) {
    const std::string named = "| " + std::to_string(row.runType) + " | " + std::string(row.caption) + " |";
    EXPECT_NE(table.find(named), std::string::npos) << named;
  }
}

TEST_F(MainTest, EveryEndGivesItsStatusAndFailuresAreReported) {
  EXPECT_EQ(runToEnd(context, [] {}), std::nullopt);
  EXPECT_EQ(runToEnd(context, [] { throw EndProgram{}; }), 0);
  EXPECT_EQ(runToEnd(context, [] { throw EndProgram{2}; }), 2);

  dialogs.expectOk("实时错误 '6':\n溢出了", Icon::Critical);
  testing::internal::CaptureStderr();
  EXPECT_EQ(runToEnd(context, [] { throw RuntimeError(ErrorNumber::Overflow, "溢出了"); }), 1);
  EXPECT_NE(testing::internal::GetCapturedStderr().find("实时错误 '6'"), std::string::npos);
}

TEST_F(MainTest, WhatWasGatheredIsWrittenOutBeforeABoxAndAtTheEnd) {
  DbEngine other;
  Database seen = other.OpenDatabase(context.gstrZtFile);
  const auto memos = [&seen] {
    return rowsOf(seen.OpenRecordset("select mMemo from Fa_log order by mMemo"));
  };
  writeOutBeforeShowing(context);
  dialogs.expectOk("box");
  const auto status = runToEnd(context, [&] {
    WriteFaLog(context, "a");
    context.dialogs.MsgBox("box");
    EXPECT_EQ(memos(), (std::vector<std::string>{"a"}));
    WriteFaLog(context, "b");
    throw EndProgram{};
  });
  EXPECT_EQ(status, 0);
  EXPECT_EQ(memos(), (std::vector<std::string>{"a", "b"}));
  context.dialogs.setBeforeShowing({});
}

TEST_F(MainTest, ARunWhoseLastWriteFailsHasFailed) {
  if (writesWithoutItsFile()) GTEST_SKIP();
  const std::string away = context.gstrZtFile + ".away";
  testing::internal::CaptureStderr();
  dialogs.expectOk("实时错误 '3024':\n找不到文件 '" + context.gstrZtFile + "'。", Icon::Critical);
  EXPECT_EQ(runToEnd(context,
                     [&] {
                       WriteFaLog(context, "a");
                       std::filesystem::rename(context.gstrZtFile, away);
                     }),
            1);
  testing::internal::GetCapturedStderr();
  std::filesystem::rename(away, context.gstrZtFile);
}

class LogsTest : public AccountSetTest {};

TEST_F(LogsTest, AMemoHasOneRowWithTheNewestDateAndUser) {
  WriteFaLog(context, "月末结账");
  context.gstrUser = "李会计";
  context.gdOpDate = day("2020-6-30");
  WriteFaLog(context, "月末结账");
  EXPECT_EQ(rows("select dDate,sOperater,mMemo from Fa_log"),
            (std::vector<std::string>{"2020-6-30|李会计|月末结账"}));
  EXPECT_NE(errorOf([&] { WriteFaLog(context, "it's"); }), 0);
}

TEST_F(LogsTest, TheErrorLogWritesNothing) {
  WriteErrorLog(3, "文件[x]不存在！", "OpenZkData");
  EXPECT_FALSE(std::filesystem::exists("ZKBaseSet.log"));
}

TEST_F(LogsTest, CloseObjectReleasesWhatIsSet) {
  Recordset rows = db().OpenRecordset("select * from AccInformation");
  CloseObject(rows);
  CloseObject(rows);
  EXPECT_FALSE(rows.isOpen());
  CloseObject(context.dbZKSystem);
  EXPECT_FALSE(context.dbZKSystem.isOpen());
}

}  // namespace
}  // namespace zelkor::test
