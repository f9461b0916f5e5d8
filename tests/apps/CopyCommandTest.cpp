#include <gmock/gmock.h>

#include <memory>

#include "store/accountset/DbEngine.h"
#include "support/AccountSetCopy.h"
#include "support/Paths.h"
#include "support/ProgramTest.h"
#include "transfer/EngineSource.h"
#include "transfer/Transfer.h"

// Account sets that are copied from the command line: between files, or to a server and back.
namespace zelkor::test {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

class CopyCommandTest : public ProgramTest {
 protected:
  ProgramResult copyFile(const std::string& from, const std::string& to,
                         const std::vector<std::string>& more) {
    std::vector<std::string> call{"copy", from, to};
    call.insert(call.end(), more.begin(), more.end());
    return ctl(call);
  }
  /// Copies both files of a set, with the check.
  void copySet(const std::string& from, const std::string& to, std::vector<std::string> more) {
    more.emplace_back("--check");
    std::filesystem::create_directory(home / to);
    for (const char* name : kAccountSetFiles) {
      const ProgramResult result = copyFile(file(from, name), file(to, name), more);
      EXPECT_EQ(result.status, 0) << result.output << result.errors;
      EXPECT_THAT(result.output, EndsWith("问题 0 个\n已建立 " + file(to, name) + "\n核对一致\n"));
    }
  }
  /// Enters the sample register, runs the month and closes it; gives all that was printed.
  std::string workThroughMonth(const std::string& set) {
    std::string printed;
    for (const std::vector<std::string>& call : std::vector<std::vector<std::string>>{
             {"cards", "import", arguments("5", set), dataFolder() / "sample-register.csv"},
             {"run", arguments("8", set), "--answers", "y,y,n"},
             {"vouchers", "make", arguments("8", set), "--merge"},
             {"run", arguments("20", set), "--yes"}}) {
      std::vector<std::string> withDay = call;
      withDay.insert(withDay.end(), {"--today", "2020-01-31"});
      const ProgramResult result = ctl(withDay);
      printed += std::to_string(result.status) + '\n' + result.output + result.errors;
    }
    return printed;
  }
  std::string report(const std::string& set) {
    return ctl({"report", arguments("8", set, "2020-02-01"), "固定资产总账", "--today", "2020-02-01"}).output;
  }
};

std::vector<std::string> reasons(const std::vector<TransferProblem>& problems) {
  std::vector<std::string> texts;
  for (const TransferProblem& problem : problems) texts.push_back(problem.table + ": " + problem.reason);
  return texts;
}

TEST_F(CopyCommandTest, ACopyLivesOnAsTheOriginalDoes) {
  const auto database = onServer() ? std::make_unique<TestDatabase>("template0") : nullptr;
  std::vector<std::string> where;
  if (database) where = {"--server", database->conninfo()};
  create("first");
  copySet("first", "second", where);
  const std::string schema = database ? ServerFile::read(file("second")).schema : "zksecond_data";
  EXPECT_EQ(schema, "zksecond_data");

  const std::string printed = workThroughMonth("first");
  EXPECT_THAT(printed, HasSubstr("已保存 62 行"));
  EXPECT_EQ(workThroughMonth("second"), printed);
  copySet("second", "third", {});
  const auto first = openSource(file("first"));
  EXPECT_THAT(reasons(compareTables(*first, *openSource(file("second")))), IsEmpty());
  EXPECT_THAT(reasons(compareTables(*first, *openSource(file("third")))), IsEmpty());
  const std::string ledger = report("first");
  EXPECT_THAT(ledger, HasSubstr("固定资产总账"));
  EXPECT_EQ(report("second"), ledger);
  EXPECT_EQ(report("third"), ledger);
}

TEST_F(CopyCommandTest, PrintsRowsProblemsAndTheirSum) {
  create();
  for (const char* statement : {"create table t (s text(5), n integer)", "insert into t values ('a', 1)",
                                "drop index sNum on fa_departments",
                                "insert into fa_departments (sNum) select sNum from fa_departments"})
    sql(statement);
  const std::string target = home / "copy.Mdb";
  const ProgramResult result = copyFile(file("set"), target, {"--check"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.output, HasSubstr("\nt：读出 1 行，存入 1 行\n"));
  EXPECT_THAT(result.output, HasSubstr("\n表 fa_departments：索引 sNum 不能建立：由于将在索引"));
  EXPECT_THAT(result.output, HasSubstr(" 个表，读出 "));
  EXPECT_THAT(result.output, EndsWith("问题 1 个\n已建立 " + target + "\n核对一致\n"));
}

TEST_F(CopyCommandTest, SaysWhatCannotBeDone) {
  create();
  const std::string jet = home / "jet.Mdb";
  writeFile(jet, std::string("\0\1\0\0Standard Jet DB\0", 20));
  struct Case {
    std::vector<std::string> call;
    int status;
    const char* message;
  };
  for (const auto& [call, status, message] : std::vector<Case>{
           {{"copy", file("set"), file("set", "ZkSystem.Mdb")}, 1, "错误 3204：文件 '"},
           {{"copy", file("none"), home / "x.Mdb"}, 1, "错误 3024：找不到文件"},
           {{"copy", jet, home / "x.Mdb"}, 1, "错误 3343："},
           {{"copy", file("set"), file("none")}, 1, "错误 3051：无法建立文件"},
           {{"copy", file("set"), home / "x.Mdb", "--server", "host=x password=secret"},
            1,
            "错误 13：口令不写入账套文件"},
           {{"copy", file("set"), home / "x.Mdb", "--server", "host=" + home.path().string()},
            1,
            "错误 57：设备 I/O 错误：无法连接数据库服务器"},
           {{"copy", file("set"), home / "x.Mdb", "--server", ""}, 2, "没有连接参数"},
           {{"create", home / "x.Mdb", "--server", ""}, 2, "没有连接参数"},
           {{"copy", file("set"), home / "x.Mdb", "--schema", "s"}, 2, "--schema 要与 --server 一起用"},
           {{"copy", file("set")}, 2, "缺少 TARGET"}}) {
    const ProgramResult result = ctl(call);
    EXPECT_EQ(result.status, status) << message;
    EXPECT_THAT(result.errors, HasSubstr(message));
    EXPECT_EQ(result.output, "");
  }
  EXPECT_FALSE(std::filesystem::exists(home / "x.Mdb"));
}

}  // namespace
}  // namespace zelkor::test
