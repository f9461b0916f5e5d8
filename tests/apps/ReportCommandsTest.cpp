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
    return context.gstrZtFile + ",陈会计,2020-05-15,25," + context.gstrZkSysFile + ",001";
  }
  Outcome run(const ReportOptions& asked) const {
    std::ostringstream output;
    std::ostringstream problems;
    const int status =
        reportCommand({.arguments = arguments(), .today = std::nullopt}, asked, output, problems);
    return {status, output.str(), problems.str()};
  }
  fs::path file(const char* name) const { return directory / name; }
};

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
                                                       {"csv", "\xEF\xBB\xBF"},
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

TEST_F(ReportCommandsTest, LeavesNoHalfWrittenFile) {
  ReportOptions asked = options("固定资产使用状况分析表");
  execute("update fa_DeprTransactions set dblDeprT1=1000");
  engine.flush();
  writeFile(file("kept"), "before");
  for (const char* format : {"text", "csv", "html", "xlsx", "pdf"}) {
    asked.format = format;
    asked.file = file("kept").string();
    EXPECT_EQ(errorOf([&] { run(asked); }), 6) << format << ": 0 divided by 0";
    EXPECT_EQ(readFile(file("kept")), "before") << format;
    EXPECT_FALSE(fs::exists(file("kept.part"))) << format;
    asked.report = "固定资产总账";
    asked.file = (file("missing") / "report").string();
    EXPECT_EQ(errorOf([&] { run(asked); }), 57) << format;
    asked.report = "固定资产使用状况分析表";
  }
}

TEST_F(ReportCommandsTest, TheProgramTellsItsStatus) {
  const auto status = [&](const std::vector<std::string>& more) {
    std::vector<std::string> words{"report", arguments()};
    words.insert(words.end(), more.begin(), more.end());
    return ProgramRun(zelkorctlProgram(), words, directory.path()).finish().status;
  };
  EXPECT_EQ(status({"固定资产总账"}), 0);
  EXPECT_EQ(status({"固定资产总账", "--format", "doc"}), 2);
  execute("drop table fa_status");
  engine.flush();
  EXPECT_EQ(status({"固定资产使用状况分析表"}), 1);
}

}  // namespace
}  // namespace zelkor::test
