#include <random>

#include "store/accountset/AccountSet.h"
#include "store/accountset/DataFile.h"
#include "transfer/jet/JetFixture.h"

namespace zelkor::test {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class JetDamageTest : public JetVersionsTest {
 protected:
  /// A file that has every kind of page.
  void writeSet(const JetOptions& options = {}) {
    JetFileWriter file = writer(options);
    JetTable& table = file.table("t",
                                 {{"lID", JetType::Long, 0, true},
                                  {"s", JetType::Text, 50},
                                  {"m", JetType::Memo},
                                  {"d", JetType::Double}},
                                 {{"PrimaryKey", {"lID"}, true, true}});
    for (std::int64_t i = 1; i <= 200; ++i)
      table.add({i, "资产 " + std::to_string(i), std::string(i % 50 == 0 ? 9000 : 100, 'm'), 1.5},
                i % 7 == 0 ? JetRowState::Moved : JetRowState::Stored);
    file.table("u", {{"l", JetType::Long}}).add({std::int64_t{1}});
    file.close();
  }

  void again() {
    for (const auto& target : {copy_, there_}) std::filesystem::remove(target);
    writeSet();
  }

  zelkor::jet::Definition definitionOf(const std::string& table) const {
    const auto texts = isJet3() ? zelkor::jet::jet3Texts("GBK") : zelkor::jet::jet4Texts();
    zelkor::jet::JetFile file(jet_);
    zelkor::jet::Problems ignored;
    for (const auto& object : zelkor::jet::readObjects(file, *texts, ignored))
      if (object.name == table) return zelkor::jet::readDefinition(file, object.definition, *texts);
    throw std::invalid_argument("no table " + table);
  }

  std::uintmax_t pageSize() const { return isJet3() ? 2048 : 4096; }
};

TEST_P(JetDamageTest, RefusesAFileThatIsCutOffAnywhere) {
  writeSet();
  const std::string whole = readFile(jet_);
  std::vector<std::size_t> lengths;
  for (std::size_t length = 0; length < whole.size(); length += pageSize()) lengths.push_back(length);
  std::mt19937 random(7);
  for (int i = 0; i < 40; ++i) lengths.push_back(random() % whole.size());
  for (const std::size_t length : lengths) {
    writeFile(jet_, std::string_view(whole).substr(0, length));
    EXPECT_THAT(refusal(), StartsWith("3343: ")) << length;
  }
}

TEST_P(JetDamageTest, ReadsAFileWithSomeBytesBehindItsLastPage) {
  writeSet();
  writeFile(jet_, readFile(jet_) + "x");
  EXPECT_THAT(import(), testing::IsEmpty());
}

// A page whose rows are lost is not the end of the table; one that the rest of the file still makes sense
// without is no reason to refuse it.
TEST_P(JetDamageTest, NamesATableThatCountsOtherRowsThanItHas) {
  const auto counted = [&](std::uint32_t definition) {
    return static_cast<std::streamoff>(definition * pageSize() + (isJet3() ? 12 : 16));
  };
  writeSet();
  flipBits(jet_, static_cast<std::streamoff>(definitionOf("t").pages.at(0) * pageSize()));
  EXPECT_THAT(import(),
              testing::ElementsAre(AllOf(HasSubstr("t: 表定义记有 200 行，只读出"), HasSubstr("压缩修复"))));
  again();
  flipBits(jet_, counted(definitionOf("u").page), '\1');
  EXPECT_THAT(import(), testing::ElementsAre(HasSubstr("u: 表定义记有 0 行，读出 1 行，已全部导入")));
  again();
  flipBits(jet_, counted(2), '\x40');
  EXPECT_THAT(import(), testing::ElementsAre(AllOf(HasSubstr("MSysObjects: "), HasSubstr("只读出"))));
}

TEST_P(JetDamageTest, NeverCrashesOnNonsense) {
  writeSet();
  const std::string whole = readFile(jet_);
  std::mt19937 random(static_cast<unsigned>(GetParam()) + 1);
  int refused = 0;
  for (int round = 0; round < 300; ++round) {
    std::string damaged = whole;
    for (int i = 0; i < 1 + round % 5; ++i) {
      // The beginnings of pages hold what other things depend on.
      const std::size_t page = 1 + random() % (whole.size() / pageSize() - 1);
      damaged[page * pageSize() + random() % (round % 2 == 0 ? 64 : pageSize())] =
          static_cast<char>(random());
    }
    writeFile(jet_, damaged);
    try {
      JetSource source(jet_);
      for (const TableDef& table : source.tables()) {
        const auto rows = source.rows(table);
        while (rows->next()) {
        }
      }
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), 3343) << error.what();
      ++refused;
    }
  }
  EXPECT_GT(refused, 20);
}

TEST_P(JetDamageTest, RefusesALongValueThatEndsEarly) {
  JetFileWriter file = writer();
  file.table("t", {{"o", JetType::Ole}}).add({JetBytes{std::string(9000, 'm')}});
  file.close();
  const std::size_t length = readFile(jet_).find(std::string("\x28\x23\0\0", 4));  // 9000
  flipBits(jet_, static_cast<std::streamoff>(length) + 1, '\x04');                 // 10024
  EXPECT_THAT(refusal(), AllOf(StartsWith("3343: "), HasSubstr("长数据不完整")));
}

TEST_P(JetDamageTest, RefusesEncodedFilesAndOpensThoseWithAPassword) {
  JetOptions options;
  options.key = 0x5EC0DE;
  writeSet(options);
  EXPECT_THAT(refusal(), AllOf(StartsWith("3343: "), HasSubstr("加密")));
  options.key = 0;
  options.password = "secret";
  writeSet(options);
  EXPECT_THAT(import(), testing::IsEmpty());
}

TEST_P(JetDamageTest, NoticesThatAnotherProgramWrites) {
  writeSet();
  JetSource source(jet_);
  const auto rows = source.rows(source.tables().back());
  writeFile(jet_, readFile(jet_) + std::string(pageSize(), '\0'));
  EXPECT_EQ(errorOf([&] {
              while (rows->next()) {
              }
            }),
            3343);
}

INSTANTIATE_TEST_SUITE_P(Versions, JetDamageTest, testing::Values(JetVersion::Jet3, JetVersion::Jet4),
                         nameOf);

TEST_F(JetTest, SaysWhatAFileIsInsteadOfJet) {
  const auto with = [](char version, std::string_view mark) {
    return std::string("\0\1\0\0", 4) + std::string(mark) + std::string(1, '\0') + version +
           std::string(8192, '\0');
  };
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", "不是 Jet 数据库文件"},
      {"some text", "不是 Jet 数据库文件"},
      {std::string("SQLite format 3\0", 16) + "x", "已经是本系统的数据文件"},
      {"[zelkor]\nengine=postgresql\nconninfo=host=x\nschema=y\n", "已经是本系统的数据文件"},
      {with('\2', "Standard ACE DB"), "accdb"},
      {with('\x07', "Standard Jet DB"), "不认识的 Jet 版本 7"},
      {with('\1', "Standard Jet DB"), "不完整或已损坏"}};
  for (const auto& [content, words] : cases) {
    writeFile(jet_, content);
    EXPECT_THAT(refusal(), AllOf(StartsWith("3343: "), HasSubstr(words)));
  }
  std::filesystem::remove(jet_);
  EXPECT_THAT(refusal(), AllOf(StartsWith("3024: "), HasSubstr("找不到文件")));
}

TEST_F(JetTest, RefusesCharsetsThatNobodyKnows) {
  JetFileWriter file(jet_, JetVersion::Jet3);
  file.table("t", {{"l", JetType::Long}});
  file.close();
  EXPECT_THAT(refusal("KLINGON"), AllOf(StartsWith("13: "), HasSubstr("KLINGON")));
  EXPECT_THAT(refusal("UTF-16"), StartsWith("13: "));
}

TEST_F(JetTest, ProgramsThatMeetAJetFileTellHowToImportIt) {
  JetFileWriter file(jet_, JetVersion::Jet4);
  file.table("t", {{"l", JetType::Long}});
  file.close();
  try {
    openDataFile(jet_.string());
    ADD_FAILURE() << "opened";
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 3343);
    EXPECT_THAT(error.what(), HasSubstr("zelkorctl import"));
  }
}

}  // namespace
}  // namespace zelkor::test
