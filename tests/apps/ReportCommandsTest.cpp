#include <algorithm>
#include <set>
#include <sstream>

#include "apps/zelkorctl/ReportCommands.h"
#include "support/AccountSetFixture.h"
#include "support/Paths.h"
#include "support/ProgramRun.h"

namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

struct Outcome {
  int status;
  std::string output;
  std::string problems;
};

class ReportCommandsTest : public AccountSetTest {
 protected:
  /// In May 2020, with 生产部 and its one card.
  ReportCommandsTest() {
    execute(
        "insert into fa_Cards (sCardID,sCardNum,sAssetNum,sAssetName,sDeptNum,sTypeNum,dblValue) "
        "values ('1','00001','A1','车床','301','021',1000)");
    execute(
        "insert into fa_DeprTransactions (sCardNum,sMonthStatusID,dblInputValue,dblDeprT1) "
        "values ('00001','11',1000,250.5)");
    engine.flush();
  }

  static ReportOptions options(const std::string& report) {
    ReportOptions asked;
    asked.report = report;
    return asked;
  }
  std::string arguments() const {
    return context.gstrZtFile + ",陈会计,2020-05-15,25," + context.gstrZkSysFile + "," + account;
  }
  Outcome run(const ReportOptions& asked) const {
    std::ostringstream output;
    std::ostringstream problems;
    const int status =
        reportCommand({.arguments = arguments(), .today = std::nullopt}, asked, output, problems);
    return {status, output.str(), problems.str()};
  }
  /// By the program, which writes no file larger than that.
  ProgramResult called(std::vector<std::string> words, unsigned long largest = 0) const {
    words.insert(words.begin(), {"report", arguments()});
    return ProgramRun(zelkorctlProgram(), words, directory.path(), {.display = "", .largestFile = largest})
        .finish();
  }
  fs::path file(const char* name) const { return directory / name; }

  std::string account = "001";
};

TEST_F(ReportCommandsTest, NamesAnAccountSetThatTheSystemFileDoesNotHave) {
  for (const char* asked : {"001", "009"}) {
    account = asked;
    testing::internal::CaptureStderr();
    const Outcome outcome = run(options("价值结构分析表"));
    const std::string told = testing::internal::GetCapturedStderr();
    EXPECT_EQ(outcome.status, 0) << outcome.problems;
    EXPECT_EQ(outcome.output.find("Label1"), std::string::npos) << outcome.output;
    EXPECT_EQ(told, account == "001" ? "" : "系统文件“" + context.gstrZkSysFile + "”中没有账套“009”\n");
  }
}

TEST_F(ReportCommandsTest, TellsWhatThereIsInsteadOfWhatIsNot) {
  struct Case {
    const char* report;
    std::vector<std::string> conditions;
    std::string problem;
  };
  const Case cases[] = {
      {"固定资产总帐", {}, "没有报表“固定资产总帐”，只有：\n  部门构成分析表\n"},
      {"固定资产总账", {"x=1"}, "没有条件“x”，只有：period、period-to、department、category\n"},
      {"固定资产总账", {"department=9"}, "没有部门“9”\n"},
      {"固定资产总账", {"category=99"}, "没有类别“99”\n"},
      {"固定资产总账", {"period=2021.01"}, "没有“2021.01”，只有：2020.01、"},
      {"固定资产总账", {"period"}, "条件“period”不是 条件=值 的形式\n"},
      {"部门构成分析表", {"department=3"}, "没有条件“department”，只有：period、composition\n"},
      {"固定资产统计表", {"layout=all"}, "没有“all”，只有：both、department、category\n"},
  };
  for (const Case& c : cases) {
    ReportOptions asked = options(c.report);
    asked.conditions = c.conditions;
    const Outcome outcome = run(asked);
    EXPECT_EQ(outcome.status, 2) << c.problem;
    EXPECT_NE(outcome.problems.find(c.problem), std::string::npos) << outcome.problems;
    EXPECT_EQ(outcome.output, "");
  }
  for (const std::string format : {"xlsx", "pdf"}) {
    ReportOptions asked = options("固定资产总账");
    asked.format = format;
    const Outcome outcome = run(asked);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.problems, format + " 要用 --out 指定文件\n");
  }
}

/// A script that was promised a file is told that there is none.
TEST_F(ReportCommandsTest, WritesNoFileOfWhatNothingComputes) {
  ReportOptions asked = options("评估汇总表");
  EXPECT_EQ(run(asked).status, 0);
  asked.file = file("report").string();
  const Outcome outcome = run(asked);
  EXPECT_EQ(outcome.status, 1);
  EXPECT_EQ(outcome.problems, "报表“评估汇总表”没有内容，没有写出文件\n");
  EXPECT_FALSE(fs::exists(file("report")));
}

TEST_F(ReportCommandsTest, SetsTheConditionsThatThePageHas) {
  ReportOptions asked = options("固定资产总账");
  asked.conditions = {"department=3", "category=01"};
  EXPECT_NE(run(asked).output.find("资产类别：房屋及建筑物\n使用部门：生产部\n"), std::string::npos);
  asked.conditions = {"department=3"};
  EXPECT_NE(run(asked).output.find("250.5  749.5\n合计"), std::string::npos) << run(asked).output;
  asked = options("(固定资产原值)一览表");
  asked.conditions = {"from-level=2", "to-level=2"};
  EXPECT_NE(run(asked).output.find("汇总部门：2---2"), std::string::npos) << run(asked).output;
}

TEST_F(ReportCommandsTest, NamesAnAccountThatTheSystemFileDoesNotHave) {
  context.dbZKSystem.Execute("delete from za_account");
  engine.flush();
  const Outcome outcome = run(options("固定资产总账"));
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.problems, "系统文件的 za_account 中没有账套“001”，报表不含使用单位\n");
  EXPECT_EQ(outcome.output.find("Label1"), std::string::npos);
}

TEST_F(ReportCommandsTest, WritesEveryForm) {
  const std::pair<const char*, const char*> forms[] = {{"text", "固定资产总账\n"},
                                                       {"csv", "固定资产总账\r\n"},
                                                       {"html", "<!DOCTYPE html>"},
                                                       {"xlsx", "PK"},
                                                       {"pdf", "%PDF"}};
  for (const auto& [format, beginning] : forms) {
    ReportOptions asked = options("固定资产总账");
    asked.format = format;
    asked.file = file("report").string();
    EXPECT_EQ(run(asked).status, 0) << format;
    EXPECT_TRUE(readFile(file("report")).starts_with(beginning)) << format;
    fs::remove(file("report"));
  }
}

/// What is filed at a closing. A report that divides by nothing is left out, and told.
TEST_F(ReportCommandsTest, WritesAllReportsOfTheMonth) {
  ReportOptions asked = options("");
  asked.all = true;
  for (const bool lacking : {false, true}) {
    if (lacking) execute("update fa_DeprTransactions set dblDeprT1=1000");
    engine.flush();
    for (const std::string format : {"pdf", "xlsx"}) {
      asked.format = format;
      fs::create_directory(file("filed"));
      for (const char* name : {"all", "filed"}) {
        asked.file = file(name).string();
        const Outcome outcome = run(asked);
        EXPECT_EQ(outcome.status, lacking ? 1 : 0) << outcome.problems;
        EXPECT_EQ(outcome.problems.find("报表“固定资产使用状况分析表”未写出") != std::string::npos, lacking);
      }
      const auto written = std::distance(fs::directory_iterator(file("filed")), fs::directory_iterator());
      EXPECT_EQ(written, lacking ? 13 : 14);
      EXPECT_TRUE(fs::exists(file("filed") / ("(单个)固定资产明细账." + format)));
      EXPECT_TRUE(readFile(file("all")).starts_with(format == "pdf" ? "%PDF" : "PK"));
      fs::remove(file("all"));
      fs::remove_all(file("filed"));
    }
  }
}

TEST_F(ReportCommandsTest, LeavesNothingWhereATableIsMissing) {
  execute("drop table fa_status");
  engine.flush();
  fs::create_directory(file("filed"));
  ReportOptions asked = options("");
  asked.all = true;
  asked.format = "pdf";
  for (const char* name : {"all", "filed"}) {
    asked.file = file(name).string();
    EXPECT_EQ(errorOf([&] { run(asked); }), 3078) << name;
  }
  EXPECT_FALSE(fs::exists(file("all")));
  EXPECT_TRUE(fs::is_empty(file("filed")));
}

TEST_F(ReportCommandsTest, RefusesCallsThatContradictThemselves) {
  struct Case {
    std::string report;
    const char* format;
    const char* problem;
  };
  EXPECT_EQ(run(options("")).problems, "缺少 NAME（全部报表用 --all）\n");
  const Case cases[] = {{"固定资产总账", "pdf", "--all 与报表名称只能给出一个\n"},
                        {"", "csv", "--all 的形式只有 xlsx、pdf\n"},
                        {"", "pdf", "pdf 要用 --out 指定文件\n"}};
  for (const Case& c : cases) {
    ReportOptions asked = options(c.report);
    asked.all = true;
    asked.format = c.format;
    const Outcome outcome = run(asked);
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.problems, c.problem);
  }
}

/// As in the window, where a name follows its code after a blank.
TEST_F(ReportCommandsTest, TakesANameFromBehindItsFirstBlank) {
  execute("update fa_Departments set sName='生产 一 部' where sNum='3'");
  engine.flush();
  ReportOptions asked = options("固定资产总账");
  asked.conditions = {"department=3"};
  EXPECT_NE(run(asked).output.find("使用部门：一 部\n"), std::string::npos) << run(asked).output;
}

TEST_F(ReportCommandsTest, LeavesNoHalfWrittenFile) {
  ReportOptions asked = options("固定资产使用状况分析表");
  asked.force = true;
  execute("update fa_DeprTransactions set dblDeprT1=1000");
  engine.flush();
  writeFile(file("kept"), "before");
  for (const char* format : {"text", "csv", "html", "xlsx", "pdf"}) {
    asked.format = format;
    asked.file = file("kept").string();
    EXPECT_EQ(errorOf([&] { run(asked); }), 6) << format << ": 0 divided by 0";
    EXPECT_EQ(readFile(file("kept")), "before") << format;
    asked.report = "固定资产总账";
    asked.file = (file("missing") / "report").string();
    EXPECT_EQ(errorOf([&] { run(asked); }), 57) << format;
    asked.report = "固定资产使用状况分析表";
  }
  for (const auto& entry : fs::directory_iterator(directory.path())) {
    EXPECT_FALSE(entry.path().filename().string().starts_with(".")) << entry.path();
  }
}

/// The account set's own files are never written, by whatever name or link.
TEST_F(ReportCommandsTest, LeavesTheAccountSetAlone) {
  fs::create_hard_link(file("ZkData.Mdb"), file("other.txt"));
  fs::create_symlink(file("ZkSystem.Mdb"), file("link.txt"));
  fs::create_directory(file("folder"));
  fs::create_symlink(directory.path(), file("folder/up"));
  ReportOptions asked = options("固定资产总账");
  asked.force = true;
  const std::string before = readFile(file("ZkSystem.Mdb"));
  for (const char* name :
       {"ZkData.Mdb", "ZkSystem.Mdb", "ZkData.Mdb-wal", "ZkData.Mdb-shm", "ZkSystem.Mdb-journal", "other.txt",
        "link.txt", "folder/../ZkData.Mdb", "folder/up/ZkSystem.Mdb-wal"}) {
    asked.file = file(name).string();
    EXPECT_EQ(errorOf([&] { run(asked); }), 57) << name;
  }
  EXPECT_EQ(readFile(file("ZkSystem.Mdb")), before);
  EXPECT_FALSE(fs::exists(file("ZkSystem.Mdb-journal")));
  EXPECT_EQ(row("select count(*) from fa_Cards"), "1");
}

/// Redirected by the shell, the output is written as the shell has opened it, unless it is the books.
TEST_F(ReportCommandsTest, WritesToWhereTheOutputWasRedirected) {
  const auto redirected = [&](const std::string& out, const std::string& to) {
    const std::string call = std::string("\"$0\" report \"$1\" 固定资产总账 --out ") + out + " " + to;
    return ProgramRun("/bin/sh", {"-c", call, zelkorctlProgram(), arguments()}, directory.path()).finish();
  };
  const std::string report = run(options("固定资产总账")).output;
  const std::string log = file("log").string();
  const std::pair<std::string, std::string> calls[] = {{"/dev/stdout", ">>" + log},
                                                       {"/dev/stderr", "2>>" + log},
                                                       {"/dev/fd/3", "3>>" + log},
                                                       {"/dev/fd/3", "3>&1 | cat >>" + log}};
  std::string written;
  for (const auto& [out, to] : calls) {
    EXPECT_EQ(redirected(out, to).status, 0) << out;
    EXPECT_EQ(readFile(log), written += report) << out << to;
  }
  const std::string own = file("ZkSystem.Mdb").string();
  const std::string before = readFile(own);
  EXPECT_EQ(redirected("/dev/stdout", ">>" + own).status, 1);
  EXPECT_EQ(readFile(own), before);
}

TEST_F(ReportCommandsTest, ReplacesAFileByForceAlone) {
  ReportOptions asked = options("固定资产总账");
  asked.file = file("report").string();
  writeFile(asked.file, "before");
  EXPECT_EQ(errorOf([&] { run(asked); }), 57);
  EXPECT_EQ(readFile(asked.file), "before");
  asked.force = true;
  EXPECT_EQ(run(asked).status, 0);
  EXPECT_TRUE(readFile(asked.file).starts_with("固定资产总账\n"));
}

/// The permissions of the books, and none that a replaced file did not give.
TEST_F(ReportCommandsTest, LetsNobodyElseRead) {
  ReportOptions asked = options("固定资产总账");
  asked.file = file("report").string();
  asked.force = true;
  const std::pair<int, int> modes[] = {{0600, 0600}, {0660, 0600}, {0640, 0600}};
  for (const auto& [books, report] : modes) {
    fs::permissions(file("ZkData.Mdb"), static_cast<fs::perms>(books));
    EXPECT_EQ(run(asked).status, 0);
    EXPECT_EQ(static_cast<int>(fs::status(asked.file).permissions()), report) << std::oct << books;
  }
  fs::remove(asked.file);
  EXPECT_EQ(run(asked).status, 0);
  EXPECT_EQ(static_cast<int>(fs::status(asked.file).permissions()), 0640);
}

/// No format may hold a character that XML has no place for.
TEST_F(ReportCommandsTest, WritesNoCharacterThatNoTextMayHold) {
  execute("update fa_Cards set sAssetName='车\xEF\xBF\xBE\x01床'");
  engine.flush();
  ReportOptions asked = options("固定资产登记簿");
  for (const char* format : {"text", "csv", "html"}) {
    asked.format = format;
    EXPECT_NE(run(asked).output.find("车\uFFFD\uFFFD床"), std::string::npos) << format << run(asked).output;
  }
}

/// A disk that fills up leaves last month's file, a device is written directly, and nobody hears the system
/// in English alone.
TEST_F(ReportCommandsTest, TellsOfAFullDisk) {
  for (const std::string format : {"text", "csv", "html", "xlsx", "pdf"}) {
    writeFile(file("kept"), "before");
    const auto written = [&](const std::string& name, unsigned long largest) {
      return called({"固定资产总账", "--format", format, "--out", name, "--force"}, largest);
    };
    const ProgramResult full = written(file("kept").string(), 100);
    EXPECT_EQ(full.status, 1) << format;
    EXPECT_EQ(full.errors.find("zelkorctl: 错误 57：不能写文件“" + file("kept").string() + "”"), 0U)
        << full.errors;
    EXPECT_EQ(std::count(full.errors.begin(), full.errors.end(), '\n'), 1) << full.errors;
    EXPECT_EQ(readFile(file("kept")), "before") << format;
    EXPECT_EQ(written("/dev/full", 0).status, 1) << format;
    EXPECT_EQ(written("/dev/stdout", 0).status, 0) << format;
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
  }
}

/// The letters' forms are those of one font by its name.
TEST_F(ReportCommandsTest, WritesTheSamePagesInEveryLocale) {
  std::set<std::string> documents;
  for (const char* locale : {"LC_ALL=C", "LC_ALL=ja_JP.UTF-8", "LC_ALL=zh_CN.UTF-8"}) {
    const ProgramResult result =
        ProgramRun("/usr/bin/env",
                   {locale, zelkorctlProgram(), "report", arguments(), "固定资产登记簿", "--format", "pdf",
                    "--out", file("a.pdf").string(), "--force"},
                   directory.path())
            .finish();
    EXPECT_EQ(result.status, 0) << result.errors;
    documents.insert(readFile(file("a.pdf")));
  }
  EXPECT_EQ(documents.size(), 1U);
}

/// The largest of the month's files does not fit any more: none takes its place.
TEST_F(ReportCommandsTest, LeavesNoFileOfTheMonthOnAFullDisk) {
  fs::create_directory(file("filed"));
  const std::vector<std::string> all{"--all", "--format", "xlsx", "--out", file("filed").string()};
  EXPECT_EQ(called(all).status, 0);
  std::uintmax_t largest = 0;
  for (const auto& one : fs::directory_iterator(file("filed"))) largest = std::max(largest, one.file_size());
  fs::remove_all(file("filed"));
  fs::create_directory(file("filed"));
  const ProgramResult full = called(all, largest - 1);
  EXPECT_EQ(full.status, 1);
  EXPECT_NE(full.errors.find("错误 57"), std::string::npos) << full.errors;
  EXPECT_TRUE(fs::is_empty(file("filed")));
}

/// Who reads the output goes away.
TEST_F(ReportCommandsTest, TellsThatItsOutputIsClosed) {
  for (const std::vector<std::string>& form :
       {std::vector<std::string>{"--format", "csv"}, {"--format", "pdf", "--out", "/dev/stdout"}}) {
    std::vector<std::string> words{"report", arguments(), "固定资产总账"};
    words.insert(words.end(), form.begin(), form.end());
    ProgramRun run(zelkorctlProgram(), words, directory.path());
    run.closeOutput();
    const ProgramResult result = run.finish();
    EXPECT_EQ(result.status, 1);
    EXPECT_TRUE(result.errors.starts_with("zelkorctl: ")) << result.errors;
    EXPECT_EQ(std::ranges::count(result.errors, '\n'), 1) << result.errors;
  }
}

TEST_F(ReportCommandsTest, TheProgramTellsItsStatus) {
  EXPECT_EQ(called({"固定资产总账"}).status, 0);
  EXPECT_EQ(called({"固定资产总账", "--format", "doc"}).status, 2);
  EXPECT_EQ(called({"固定资产总账", "--page", "a5"}).status, 2);
  execute("drop table fa_status");
  engine.flush();
  EXPECT_EQ(called({"固定资产使用状况分析表"}).status, 1);
}

}  // namespace
}  // namespace zelkor::test
