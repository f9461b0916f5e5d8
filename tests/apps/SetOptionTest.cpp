#include <gmock/gmock.h>
#include <pwd.h>
#include <unistd.h>

#include "apps/JobTest.h"
#include "apps/zelkorctl/CommandLine.h"
#include "apps/zelkorctl/Connections.h"

// Jobs that are given an account set instead of an argument string.
namespace zelkor::test {
namespace {

using testing::HasSubstr;

class SetOptionTest : public JobTest {
 protected:
  std::string folder() const { return home / "set"; }
};

TEST_F(SetOptionTest, AMonthByTheAccountSetAlone) {
  create();
  const auto succeeds = [this](const std::vector<std::string>& call) {
    const ProgramResult result = ctl(call);
    EXPECT_EQ(result.status, 0) << call[0] << result.output << result.errors;
    return result.output;
  };
  succeeds({"cards", "import", "--set", folder(), registerOf({"12000"}), "--user", "李会计"});
  EXPECT_EQ(sql("select dInputDate,sOperator from fa_Cards"),
            "dInputDate\tsOperator\n2020-01-31 00:00:00\t李会计\n");
  succeeds({"run", "8", "--set", file(), "--answers", "y,y,n"});
  EXPECT_EQ(sql("select distinct cbill from fa_ZWVouchers"),
            std::string("cbill\n") + ::getpwuid(::getuid())->pw_name + "\n");
  succeeds({"run", "20", "--set", folder(), "--yes"});
  EXPECT_THAT(succeeds({"report", "固定资产总账", "--set=" + folder()}), HasSubstr("2020.02"));
  EXPECT_THAT(succeeds({"vouchers", "pending", "--set", folder(), "--date", "2020-01-05"}),
              HasSubstr("94.80"));
}

TEST_F(SetOptionTest, SaysWhyAnAccountSetDoesNotDo) {
  create("new", {});
  create("a,b");
  create();
  sql("update AccInformation set cValue='13' where cSysID='FA' and cName='iLastPeriod'");
  const std::tuple<std::vector<std::string>, int, std::string> cases[] = {
      {{"run", "21", "--set", home / "new"}, 1, "错误 5：账套没有未结账的月份"},
      {{"run", "21", "--set", folder()}, 1, "请用 --date 给出操作日期"},
      {{"run", "21", "--set", home / "a,b"}, 1, "“" + (home / "a,b/ZkData.Mdb").string() + "”中有逗号"},
      {{"run", "21", "--set", home / "none"}, 1, "找不到文件"},
      {{"run", "--set", folder()}, 2, "缺少 RUNTYPE"},
      {{"run", arguments("21"), "--set", folder()}, 2, "RUNTYPE"},
      {{"run", "21", "--date", "2020-01-31"}, 2, "--date 要与 --set 一起用"},
      {{"run", "21", "--set", folder(), "--date", "31.1."}, 2, "“31.1.”不是 yyyy-mm-dd 形式的日期"},
      {{"vouchers", "list", arguments("12"), "--set", folder()}, 2, "多余的参数"},
      {{"cards", "import", arguments("5"), "none.csv"}, 1, "不能读文件“none.csv”：没有这个文件\n"},
      {{"backup", "--set", folder(), "--label", "\xB1\xB8"}, 2, "说明不是 UTF-8 编码的文字"},
      {{"backup", "--set", folder(), "--label", "a\nb"}, 2, "说明只能是一行文字"},
      {{"backup", "--set", folder(), "--label", std::string(201, 'x')}, 2, "说明有 201 个字，最多 200 个"},
      {{"backups", home / "none"}, 1, "不能读文件夹“" + (home / "none").string() + "”：没有这个文件夹\n"}};
  for (const auto& [call, status, message] : cases) {
    const ProgramResult result = ctl(call);
    EXPECT_EQ(result.status, status) << message;
    EXPECT_THAT(result.errors, HasSubstr(message));
    EXPECT_EQ(result.output, "");
  }
}

// Whose connection is told of with --verbose.
TEST_F(SetOptionTest, TheBooksAreThoseOfTheSetAndNotTheFileOfRows) {
  create();
  const std::string set = folder();
  const std::pair<std::vector<const char*>, std::string> cases[] = {
      {{"cards", "import", "rows.csv", "--set", set.c_str()}, file()},
      {{"workload", "import", "a.Mdb,b,2020-01-31,8,c.Mdb,001", "rows.csv"}, "a.Mdb"},
      {{"sql", "a.Mdb", "select 1"}, "a.Mdb"}};
  for (auto [words, books] : cases) {
    words.insert(words.begin(), "zelkorctl");
    EXPECT_EQ(booksOf(parseCall(static_cast<int>(words.size()), words.data()).asked), books);
  }
}

}  // namespace
}  // namespace zelkor::test
