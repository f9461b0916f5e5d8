#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <nlohmann/json.hpp>

#include "startup/SingleInstance.h"
#include "support/Paths.h"
#include "support/ProgramTest.h"

// The real programs, from their command line to their exit status.
namespace zelkor::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* kHeader =
    "固定资产名称,类别编号,部门名称,增加方式,使用状况,使用年限,折旧方法,开始使用日期,原值,净残值率,"
    "对应折旧科目\n";
constexpr const char* kSecondCopy = "程序已打开，如要再次打开，请关闭已打开的程序！";

class ProgramsTest : public ProgramTest {
 protected:
  ProgramResult import(const std::string& csv) {
    writeFile(home / "register.csv", csv);
    return ctl({"cards", "import", arguments("5"), home / "register.csv", "--today", "2020-01-31"});
  }
};

TEST_F(ProgramsTest, AMonthFromAnEmptyDirectory) {
  create("set", {"--sample", "--name", "东厂", "--unit", "甲公司", "--manager", "李四"});
  EXPECT_EQ(
      done({"sql", file("set", "ZkSystem.Mdb"), "select cAcc_Name,cUnitName,cAcc_Master from za_account"}),
      "cAcc_Name\tcUnitName\tcAcc_Master\n东厂\t甲公司\t李四\n");
  const ProgramResult imported =
      import(std::string(kHeader) +
             "车床,021,301,101,11,120,平均年限法(一),2018-03-05,12000,0.05,410502\n"
             "铣床,021,301,101,11,120,平均年限法(一),2018-03-05,24000,0.05,410502\n"
             "MEN'S BOOTS,06,1,101,11,60,平均年限法(一),2018-03-05,100,0.05,550202\n");
  EXPECT_EQ(imported.status, 1);
  EXPECT_EQ(imported.output, "共 3 行：已保存 2 行，拒绝 1 行\n");
  EXPECT_EQ(imported.errors, "第4行，列“固定资产名称”：值中有单引号（'），会打断保存卡片的语句\n");

  const ProgramResult run = ctl({"run", arguments("8"), "--answers", "y,y,n", "--today", "2020-01-31"});
  EXPECT_EQ(run.status, 0) << run.errors;
  EXPECT_NE(run.output.find("请您确定在继续操作之前"), std::string::npos);
  EXPECT_NE(run.output.find("折旧分配表"), std::string::npos);
  EXPECT_NE(run.output.find("== 固定资产 ==（警告）\n计提折旧完成!"), std::string::npos);
  EXPECT_EQ(sql("select ccode,cdept_id,md,mc from fa_ZWVouchers where coutsign='折旧计提' order by inid"),
            "ccode\tcdept_id\tmd\tmc\n410502\t301\t284.4\t0\n\\N\t\\N\t0\t284.4\n");
}

TEST_F(ProgramsTest, AnswersEndARunWithoutWork) {
  create();
  const ProgramResult refused = ctl({"run", arguments("8"), "--answers", "n"});
  EXPECT_EQ(refused.status, 0);
  EXPECT_EQ(sql("select count(*) as n from fa_ZWVouchers"), "n\n0\n");
  const ProgramResult unanswered = ctl({"run", arguments("8")});
  EXPECT_EQ(unanswered.status, 1);
  EXPECT_NE(unanswered.errors.find("没有可读的回答"), std::string::npos);

  const ProgramResult reset = ctl({"run", arguments("23"), "--yes"});
  EXPECT_EQ(reset.status, 0) << reset.errors;
  EXPECT_NE(reset.output.find("已重新初始化账套！"), std::string::npos);
  const ProgramResult balance = ctl({"run", arguments("21")});
  EXPECT_EQ(balance.status, 0);
  EXPECT_NE(balance.output.find("== 与账务对账结果 =="), std::string::npos);
  EXPECT_EQ(ctl({"run", arguments("99")}).status, 0);
  const ProgramResult screen = ctl({"run", arguments("4")});
  EXPECT_EQ(screen.status, 1);
  EXPECT_EQ(screen.output + screen.errors, "本程序中没有“FrmFLBMB”，运行类型4不能在此执行！\n")
      << "told once";
}

TEST_F(ProgramsTest, SqlPrintsRowsAndCounts) {
  create("set", {});
  EXPECT_EQ(sql("insert into Fa_log (dDate,mMemo) values (#2020-1-31#,'a\tb\\c')"), "1\n");
  EXPECT_EQ(sql("select dDate,sOperater,mMemo from fa_LOG"),
            "dDate\tsOperater\tmMemo\n2020-01-31 00:00:00\t\\N\ta\\tb\\\\c\n");
  EXPECT_EQ(sql("update Fa_log set mMemo='账' where 1=0"), "0\n");
  EXPECT_EQ(sql("select * into copied from Fa_log"), "1\n");
  EXPECT_EQ(sql("create table b (oBytes longbinary)"), "0\n");
  EXPECT_EQ(sql("insert into b values ('a,\\')"), "1\n");
  EXPECT_EQ(sql("select * from b"), "oBytes\n612C5C\n");

  const auto rows = nlohmann::json::parse(
      ctl({"sql", file(), "select dDate,sOperater,True as yes,1.5 as n,len(mMemo) as l from copied",
           "--json"})
          .output);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0]["dDate"], "2020-01-31 00:00:00");
  EXPECT_TRUE(rows[0]["sOperater"].is_null());
  EXPECT_EQ(rows[0]["n"], 1.5);
  EXPECT_EQ(rows[0]["l"], 5);
  EXPECT_EQ(nlohmann::json::parse(ctl({"sql", file(), "select * from copied where 1=0", "--json"}).output),
            nlohmann::json::array());
}

TEST_F(ProgramsTest, TranslateSpeaksBothEngines) {
  const std::string statement = "select sCardNum from FA_cards where sAssetName like 'a*'";
  const ProgramResult sqlite = ctl({"translate", statement});
  const ProgramResult postgres = ctl({"translate", statement, "--engine", "postgresql"});
  EXPECT_EQ(sqlite.status, 0) << sqlite.errors;
  EXPECT_EQ(postgres.status, 0) << postgres.errors;
  EXPECT_NE(sqlite.output, postgres.output);
  EXPECT_NE(postgres.output.find("\"fa_cards\""), std::string::npos);
  const ProgramResult broken = ctl({"translate", "select from where"});
  EXPECT_EQ(broken.status, 1);
  EXPECT_NE(broken.errors.find("3075"), std::string::npos);
}

struct BadInput {
  std::vector<std::string> arguments;
  int status;
  const char* message;
};

TEST_F(ProgramsTest, EveryBadInputIsAnsweredClearly) {
  create();
  const fs::path empty = home / "empty.csv";
  writeFile(empty, "");
  const fs::path text = home / "text.Mdb";
  writeFile(text, std::string(4096, 'x'));
  const fs::path jet = home / "jet.Mdb";
  writeFile(jet, std::string("\x00\x01\x00\x00Standard Jet DB\x00", 20) + std::string(4076, '\0'));
  const fs::path kept = home / "kept.Mdb";
  fs::copy_file(file(), kept);
  fs::permissions(kept, fs::perms::owner_read);
  const std::string system = "," + file("set", "ZkSystem.Mdb") + ",001";
  const auto withPath = [&](const fs::path& path) { return path.string() + ",u,2020-1-31,21" + system; };

  const BadInput cases[] = {
      {{}, 2, "用法错误"},
      {{"fly"}, 2, "用法错误"},
      {{"create"}, 2, "用法错误"},
      {{"create", home / "x", "--month", "13"}, 2, "用法错误"},
      {{"translate", "select 1", "--engine", "jet"}, 2, "用法错误"},
      {{"run", arguments("8"), "--answers", "y,maybe"}, 2, "用法错误"},
      {{"run", arguments("8"), "--today", "31.1."}, 2, "用法错误"},
      {{"cards", "import", arguments("5"), empty.string(), "--new-type", "3"}, 2, "用法错误"},
      {{"create", home / "set"}, 1, "已"},
      {{"sql", home / "none.Mdb", "select 1"}, 1, "none.Mdb"},
      {{"sql", home.path(), "select 1"}, 1, "错误"},
      {{"sql", text.string(), "select 1"}, 1, "3343"},
      {{"sql", jet.string(), "select 1"}, 1, "导入"},
      {{"sql", file(), "select * from nowhere"}, 1, "nowhere"},
      {{"sql", file(), "select 'it's'"}, 1, "3075"},
      {{"run", withPath(home / "none.Mdb")}, 1, "none.Mdb"},
      {{"run", withPath(home.path())}, 1, "实时错误"},
      {{"run", withPath(text)}, 1, "3343"},
      {{"run", withPath(jet)}, 1, "导入"},
      {{"run", withPath(kept)}, 1, "只读"},
      {{"run", ""}, 1, "第4个参数"},
      {{"run", "a,b"}, 1, "第4个参数"},
      {{"run", arguments("x")}, 1, "'13'"},
      {{"run", arguments("70000")}, 1, "'6'"},
      {{"run", file() + ",u,tomorrow,21" + system}, 1, "“tomorrow”"},
      {{"cards", "import", arguments("5"), home / "none.csv"}, 1, "none.csv"},
      {{"cards", "import", arguments("5"), home.path()}, 1, "目录"},
      {{"cards", "import", arguments("5"), empty.string()}, 1, "没有表头"},
      {{"cards", "import", "a,b", empty.string()}, 1, "第4个参数"},
  };
  for (const BadInput& c : cases) {
    const ProgramResult result = ctl(c.arguments);
    std::string call = "zelkorctl";
    for (const std::string& word : c.arguments) call += " " + word;
    EXPECT_EQ(result.status, c.status) << call << "\n" << result.errors;
    EXPECT_NE(result.errors.find(c.message), std::string::npos) << call << "\n" << result.errors;
  }
  EXPECT_FALSE(fs::exists(home / "x"));
  EXPECT_EQ(sql("select count(*) as n from fa_Cards"), "n\n0\n");
}

TEST_F(ProgramsTest, AClosedOutputIsReported) {
  create();
  ProgramRun run(zelkorctlProgram(), {"sql", file(), "select * from code, AccInformation"}, home.path());
  run.closeOutput();
  const ProgramResult result = run.finish();
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.errors.find("输出已关闭"), std::string::npos) << result.errors;
}

TEST_F(ProgramsTest, ASignalEndsTheWaitForAnAnswer) {
  create();
  for (const auto& [signal, status] : {std::pair(SIGTERM, 143), {SIGHUP, 129}}) {
    ProgramRun asking(zelkorctlProgram(), {"run", arguments("8")}, home.path());
    ASSERT_TRUE(asking.waitForOutput("继续?"));
    asking.signal(signal);
    EXPECT_EQ(asking.finish().status, status);
  }
}

TEST_F(ProgramsTest, EachRunsACallOverManySets) {
  fs::create_directories(home / "sets/group");
  for (const char* set : {"sets/a", "sets/group/b", "sets/group/c"}) create(set);
  writeFile(file("sets/group/b"), std::string(4096, 'x'));
  const ProgramResult below = ctl({"each", home / "sets", "--jobs", "2", "--", "run", "21", "--yes"});
  EXPECT_EQ(below.status, 1);
  for (const char* line : {"/sets/a  状态 0  ", "/sets/group/b  状态 1  ", "/sets/group/c  状态 0  ",
                           "共 3 个账套：完成 2 个，失败 1 个，用时 "})
    EXPECT_NE(below.output.find(line), std::string::npos) << line << below.output;
  EXPECT_NE(below.errors.find("/sets/group/b：\n    zelkorctl: 错误 3343"), std::string::npos)
      << below.errors;

  fs::create_directory_symlink(home / "sets/a", home / "link");
  writeFile(home / "list", "\xEF\xBB\xBF" + (home / "sets/a").string() + "\r\n\n# 停用\n" +
                               (home / "sets/group/c").string() + "\n" + (home / "link").string() + "\n");
  const ProgramResult listed =
      ctl({"each", home / "list", "--", "sql", "{}/ZkData.Mdb", "insert into Fa_log (mMemo) values ('{}')"});
  EXPECT_EQ(listed.status, 0) << listed.errors;
  EXPECT_NE(listed.output.find("共 2 个账套："), std::string::npos) << listed.output;
  EXPECT_EQ(listed.errors,
            (home / "link").string() + "：与 " + (home / "sets/a").string() + " 是同一账套，只执行一次\n");
  for (const char* set : {"sets/a", "sets/group/c"})
    EXPECT_EQ(sql("select mMemo from Fa_log", set), "mMemo\n" + (home / set).string() + "\n");

  const std::pair<Words, const char*> refused[] = {{{home / "none", "--", "run", "8"}, "none"},
                                                   {{home / "sets", "--", "fly"}, "没有“fly”"},
                                                   {{home / "sets/group/b", "--", "each", "x"}, "没有“each"}};
  for (const auto& [words, reason] : refused) {
    Words call{"each"};
    call.insert(call.end(), words.begin(), words.end());
    const ProgramResult result = ctl(call);
    EXPECT_EQ(result.status, 1);
    EXPECT_NE(result.errors.find(reason), std::string::npos) << result.errors;
  }
}

#ifdef ZELKOR_SCREENS
TEST_F(ProgramsTest, TheModuleStartsAndEndsWithItsStatus) {
  create();
  const auto module = [this](const std::string& argumentString) {
    return ProgramRun(zelkorProgram(), {argumentString}, home.path()).finish();
  };
  EXPECT_EQ(module(arguments("99")).status, 0);
  const ProgramResult initialised = module(arguments("0"));
  EXPECT_EQ(initialised.status, 0);
  EXPECT_EQ(initialised.errors, "");
  const ProgramResult balance = module(arguments("21"));
  EXPECT_EQ(balance.status, 0);
  EXPECT_NE(balance.errors.find("与账务对账结果"), std::string::npos);
  const ProgramResult failed = module("");
  EXPECT_EQ(failed.status, 1);
  const std::size_t report = failed.errors.find("实时错误 '13'");
  EXPECT_NE(report, std::string::npos);
  EXPECT_EQ(failed.errors.find("实时错误", report + 1), std::string::npos) << "reported once";

  ::setenv("XDG_RUNTIME_DIR", home.path().c_str(), 1);  // as the programs have it
  SingleInstance first;
  EXPECT_TRUE(first.acquire());
  ::unsetenv("XDG_RUNTIME_DIR");
  const ProgramResult second = module(arguments("4"));
  EXPECT_EQ(second.status, 2);
  EXPECT_NE(second.errors.find(kSecondCopy), std::string::npos);
  EXPECT_EQ(ctl({"run", arguments("21")}).status, 0) << "no window";
  first = {};
  EXPECT_EQ(module(arguments("99")).status, 0) << "held by a file that was left";
}

TEST_F(ProgramsTest, TheModuleSaysThatItReachesNoScreen) {
  const auto errors = home / "errors";
  const std::pair<const char*, const char*> cases[] = {
      {"-u DISPLAY -u QT_QPA_PLATFORM", "没有显示器（DISPLAY 未设置）"},
      {"QT_QPA_PLATFORM=xcb DISPLAY=nowhere:1", "不能连接显示器（DISPLAY=nowhere:1，QT_QPA_PLATFORM=xcb）"}};
  for (const auto& [environment, why] : cases) {
    const std::string command = std::string("env -u WAYLAND_DISPLAY ") + environment + " '" +
                                zelkorProgram() + "' '" + arguments("4") + "' 2>'" + errors.string() + "'";
    EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 1);
    EXPECT_EQ(readFile(errors),
              std::string("zelkor: ") + why + "，不能打开窗口；批处理运行类型可用 zelkorctl run\n");
  }
}
#endif

}  // namespace
}  // namespace zelkor::test
