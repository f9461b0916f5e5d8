#include <gmock/gmock.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "apps/JobTest.h"

// zelkorctl check: its status, its forms; and the calls that only read.
namespace zelkor::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class CheckCommandTest : public JobTest {
 protected:
  std::string folder() const { return home / "set"; }
  void keepBooks() {
    create();
    for (const Words& call : {Words{"cards", "import", registerOf({"12000", "8000"}), "--set", folder()},
                              Words{"run", "8", "--set", folder(), "--answers", "y,y,n"}})
      EXPECT_EQ(ctl(call).status, 0);
  }
  Words withSet(Words call, const std::string& date = "2020-01-31") const {
    call.insert(call.end(), {"--set", folder(), "--date", date});
    return call;
  }
  const std::vector<Words> kReading{{"check"}, {"status"}, {"plan"}, {"run", "8", "--preview"}};
  std::map<std::string, std::string> filesOfSet() const {
    std::map<std::string, std::string> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder()))
      files[entry.path().filename()] = readFile(entry.path());
    return files;
  }
};

TEST_F(CheckCommandTest, TellsInThreeFormsWhatIsToBePutRight) {
  keepBooks();
  const ProgramResult sound = ctl({"check", "--set", folder()});
  EXPECT_EQ(sound.status, 0) << sound.output;
  EXPECT_THAT(sound.output, HasSubstr("检查完成：错误 0 项，警告 0 项，说明 0 项\n"));

  sql("update fa_Cards set lUsedMonths=500 where sCardNum='00002'");
  const ProgramResult text = ctl({"check", arguments("21")});
  EXPECT_EQ(text.status, 1);
  EXPECT_THAT(text.output, HasSubstr("C09 警告"));
  EXPECT_THAT(text.output, HasSubstr("    卡片 00002  版本 2  已计提 500 个月，年限 120 个月\n  处理："));
  const ProgramResult csv = ctl({"check", "--set", folder(), "--csv"});
  EXPECT_EQ(csv.status, 1);
  EXPECT_THAT(csv.output, HasSubstr("\r\nC09,警告,00002,版本 2,,,"));
  const ProgramResult json = ctl({"check", "--set", folder(), "--json"});
  const auto whole = nlohmann::json::parse(json.output);
  EXPECT_EQ(whole["sound"], false);
  EXPECT_EQ(whole["findings"].size(), 1U);
  EXPECT_EQ(whole["findings"][0]["card"], "00002");
}

TEST_F(CheckCommandTest, ReadsAndWritesNothing) {
  keepBooks();
  for (const char* file : {"ZkData.Mdb", "ZkSystem.Mdb"})
    fs::permissions(fs::path(folder()) / file, fs::perms::owner_read);
  const auto before = filesOfSet();
  for (const Words& call : kReading) {
    const ProgramResult result = ctl(withSet(call));
    EXPECT_EQ(result.status, 0) << call.front() << result.errors;
    EXPECT_EQ(filesOfSet(), before) << call.front();
  }
}

TEST_F(CheckCommandTest, AMonthOutsideTheBooksIsTold) {
  keepBooks();
  for (const Words& call : kReading) {
    const ProgramResult before = ctl(withSet(call, "2019-12-31"));
    EXPECT_EQ(before.status, 2) << call.front();
    EXPECT_EQ(before.errors, "操作日期在2019年12月，账套从2020年1月开始：请另给操作日期。\n");
    EXPECT_EQ(before.output, "");
    const ProgramResult behind = ctl(withSet(call, "2022-01-31"));
    EXPECT_EQ(behind.errors, "") << call.front();
    EXPECT_THAT(behind.output, HasSubstr("2020年1月")) << call.front() << ": the open one";
  }
}

TEST_F(CheckCommandTest, WhoCannotReadTheBooksIsSentToTheCheck) {
  create();
  sql("drop table fa_DeprTransactions");
  const ProgramResult result = ctl(withSet({"status"}));
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.errors, HasSubstr("（账套的表或数据有错，请用 zelkorctl check 查明）\n"));
}

TEST_F(CheckCommandTest, AWrongCallIsStatusTwo) {
  create();
  EXPECT_EQ(ctl({"check", "--set", folder(), "--json", "--csv"}).status, 2);
  EXPECT_EQ(ctl({"check", "a,b"}).status, 2);
  EXPECT_EQ(ctl({"check", "a,b,no day,21,c,001"}).status, 2);
  EXPECT_EQ(ctl({"check"}).status, 2);
  EXPECT_EQ(ctl({"check", "--set", home / "none"}).status, 1);
}

}  // namespace
}  // namespace zelkor::test
