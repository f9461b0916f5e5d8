#include <gmock/gmock.h>

#include "support/jet/JetFileWriter.h"
#include "support/ProgramTest.h"

// Account sets that come from Jet files by the command line.
namespace zelkor::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

class ImportCommandTest : public ProgramTest, public testing::WithParamInterface<JetVersion> {
 protected:
  std::string jet_ = home / "Old.mdb";
};

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
