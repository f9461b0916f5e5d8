#include <gmock/gmock.h>

#include <memory>

#include "apps/CallFixture.h"
#include "support/AccountSetCopy.h"
#include "support/jet/JetTables.h"
#include "transfer/EngineSource.h"
#include "transfer/Transfer.h"

// Account sets that come from Jet files by the command line.
namespace zelkor::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

class ImportCommandTest : public CallTest, public testing::WithParamInterface<JetVersion> {
 protected:
  ProgramResult work(const std::string& set, std::vector<std::string> call) {
    call.insert(call.begin() + (call[0] == "cards" ? 2 : 1), arguments("8", set));
    call.insert(call.end(), {"--today", "2020-01-31"});
    return ctl(call);
  }
  void createWithCards(const std::string& set) {
    create(set);
    ASSERT_EQ(work(set, {"cards", "import", (test::dataFolder() / "sample-register.csv").string()}).status,
              0);
  }
  /// Brings both files of a set to another one by way of Jet files.
  void bringOver(const std::string& from, const std::string& to, const std::vector<std::string>& more) {
    std::filesystem::create_directory(home / to);
    for (const char* name : accountSetFiles) {
      JetFileWriter writer(jet_, GetParam());
      writeTables(*openSource(file(from, name)), writer);
      writer.close();
      std::vector<std::string> call{"import", jet_, file(to, name), "--check"};
      call.insert(call.end(), more.begin(), more.end());
      const ProgramResult result = ctl(call);
      EXPECT_EQ(result.status, 0) << result.output << result.errors;
      EXPECT_THAT(result.output, AllOf(HasSubstr("问题 0 个\n"), HasSubstr("\n核对一致\n")));
    }
  }

  std::string jet_ = home / "Old.mdb";
};

TEST_P(ImportCommandTest, AnAccountSetWorksOnAsTheOneThatItCameFrom) {
  const auto database = onServer() ? std::make_unique<TestDatabase>("template0") : nullptr;
  createWithCards("first");
  bringOver(
      "first", "second",
      database ? std::vector<std::string>{"--server", database->conninfo()} : std::vector<std::string>{});
  const ProgramResult original = work("first", {"run", "--answers", "y,y,n"});
  const ProgramResult imported = work("second", {"run", "--answers", "y,y,n"});
  EXPECT_EQ(original.status, 0) << original.output << original.errors;
  EXPECT_EQ(imported.output, original.output);
  EXPECT_EQ(imported.status, 0) << imported.errors;
  for (const char* name : accountSetFiles) {
    std::string differences;
    for (const auto& problem :
         compareTables(*openSource(file("first", name)), *openSource(file("second", name))))
      differences += problem.table + ": " + problem.reason + "\n";
    EXPECT_EQ(differences, "");
  }
}

TEST_P(ImportCommandTest, PrintsWhatBecameOfTheTablesAndWhatTheFileLacks) {
  JetFileWriter writer(jet_, GetParam());
  JetTable& table = writer.table("fa_Status", {{"sID", JetType::Text, 20}, {"sName", JetType::Text, 20}});
  table.add({std::string("1"), std::string("在用")});
  table.add({std::string("2"), JetBytes{std::string("\x80\xD8\xFF", 3)}});
  writer.link("out", "other.mdb", "in");
  writer.query("q");
  writer.close();
  const ProgramResult result = ctl({"import", jet_, home / "New.Mdb", "--check", "--charset", "GBK"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.output,
              AllOf(HasSubstr("fa_Status：读出 2 行，存入 2 行\n"), HasSubstr("表 out：是链接表"),
                    HasSubstr("表 fa_Status，第2行，列“sName”：含有不能解读的字符"), HasSubstr("问题 2 个"),
                    HasSubstr("核对一致"), HasSubstr("说明：不导入的查询 1 个：q\n"),
                    HasSubstr("说明：表 fa_Status：文件里没有的列已按缺省值补上："),
                    HasSubstr("说明：账套还需要而文件里没有的表")));
  const bool isJet4 = GetParam() == JetVersion::Jet4;
  EXPECT_EQ(result.output.find("说明：Jet 4 文件的文字是 Unicode，--charset 不起作用\n") != std::string::npos,
            isJet4);
}

TEST_P(ImportCommandTest, LeavesNothingOfAFileThatIsCutOff) {
  JetFileWriter writer(jet_, GetParam());
  JetTable& table = writer.table("t", {{"s", JetType::Text, 100}});
  for (int i = 0; i < 500; ++i) table.add({std::string(90, 'x')});
  writer.close();
  std::filesystem::resize_file(jet_, std::filesystem::file_size(jet_) / 2);
  const ProgramResult result = ctl({"import", jet_, home / "New.Mdb"});
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.output, IsEmpty());
  EXPECT_THAT(result.errors, AllOf(HasSubstr("错误 3343：Jet 文件 '"), HasSubstr("不完整或已损坏")));
  EXPECT_FALSE(std::filesystem::exists(home / "New.Mdb"));
}

INSTANTIATE_TEST_SUITE_P(Versions, ImportCommandTest, testing::Values(JetVersion::Jet3, JetVersion::Jet4));

}  // namespace
}  // namespace zelkor::test
