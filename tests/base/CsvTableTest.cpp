#include <gmock/gmock.h>

#include <array>

#include "base/CsvTable.h"
#include "base/RuntimeError.h"

namespace zelkor::test {
namespace {

constexpr std::array<std::string_view, 2> kCaptions = {"卡片", "原因"};

TEST(CsvTableTest, GivesTheColumnsThatAreAskedForInTheirOrder) {
  const auto rows = readCsvTable("原因 ,其他,卡片\n\n a,x, 1 \n", kCaptions);
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].line, 3U);
  EXPECT_THAT(rows[0].cells, testing::ElementsAre("1", "a"));
}

TEST(CsvTableTest, GoesOnBehindARowThatIsNone) {
  constexpr std::array<std::string_view, 1> kOptional = {"原因"};
  CsvReader rows("卡片,其他\n1\n1,x,y\n\"2\"x,\n3,x\n");
  CsvTable table(rows, kCaptions, kOptional);
  EXPECT_THROW(table.next(), CsvRowError);
  EXPECT_THROW(table.next(), CsvRowError);
  EXPECT_THROW(table.next(), CsvRowError);
  EXPECT_THAT(table.next()->cells, testing::ElementsAre("3", ""));
  EXPECT_FALSE(table.next());
}

TEST(CsvTableTest, SaysWhatIsWrongWithATable) {
  const std::pair<const char*, const char*> cases[] = {
      {"", "文件是空的：没有表头"},
      {"\"卡片\n", "第 1 行第 1 列：引号没有结束"},
      {"卡片\n", "表头中列“原因”缺少"},
      {"卡片,原因,卡片\n", "表头中列“卡片”出现了不止一次"},
      {"卡片,原因\n1\n", "第2行有1列，表头有2列"},
      {"卡片,原因\n1,\xFF\n", "文件不是 UTF-8 编码（第2行）：请在电子表格中另存为“CSV UTF-8（逗号分隔）”"},
      {"卡片,原因\n1,\"open\n", "第 2 行第 3 列：引号没有结束"}};
  for (const auto& [csv, reason] : cases) {
    try {
      readCsvTable(csv, kCaptions);
      ADD_FAILURE() << csv;
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), 3421);
      EXPECT_STREQ(error.what(), reason);
    }
  }
}

}  // namespace
}  // namespace zelkor::test
