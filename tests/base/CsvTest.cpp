#include <gtest/gtest.h>

#include "base/Csv.h"

namespace zelkor {
namespace {

using Fields = std::vector<std::string>;

TEST(CsvReader, ReadsRecordsWithTheirLines) {
  CsvReader reader(
      "\xEF\xBB\xBF卡片编号,名称\r\n"
      "1,\"数控机床,\"\"A\"\"型\"\r\n"
      "\r\n"
      "2,\"两\n行\"\n"
      "3,\n"
      ",\"\"\n"
      "'4', x ");
  const struct {
    std::size_t line;
    Fields fields;
  } kExpected[] = {{1, {"卡片编号", "名称"}},
                   {2, {"1", "数控机床,\"A\"型"}},
                   {4, {"2", "两\n行"}},
                   {6, {"3", ""}},
                   {7, {"", ""}},
                   {8, {"'4'", " x "}}};
  for (const auto& [line, fields] : kExpected) {
    const auto record = reader.next();
    ASSERT_TRUE(record);
    EXPECT_EQ(record->line, line);
    EXPECT_EQ(record->fields, fields);
  }
  EXPECT_FALSE(reader.next());
}

TEST(CsvReader, NamesThePlaceOfAnErrorAndGoesOn) {
  const struct {
    std::string bad;
    std::size_t line, column;
  } kCases[] = {
      {std::string("车\0床", 7) + ",1", 2, 2},
      {"车,\"床\n一\xEF\xBF\xBE\",1", 3, 2},
      {"机床,5\" 管", 2, 5},
      {"机床,\"管\"x,1", 2, 7},
      {"机床,\"管", 2, 4},
      {"机\r床", 2, 2},
      {"机床,\xFF,1", 2, 4},
      {"\"机\n床\"x", 3, 3},
  };
  for (const auto& [bad, line, column] : kCases) {
    CsvReader reader("a,b\n" + bad + "\n末,行");
    reader.next();
    try {
      reader.next();
      ADD_FAILURE() << "taken: " << bad;
    } catch (const CsvError& error) {
      EXPECT_EQ(error.line(), line) << bad;
      EXPECT_EQ(error.column(), column) << bad;
    }
    const auto record = reader.next();
    ASSERT_TRUE(record) << bad;
    EXPECT_EQ(record->fields, (Fields{"末", "行"})) << bad;
    EXPECT_FALSE(reader.next());
  }
}

TEST(CsvField, ComesBackAsItWent) {
  for (const std::string text : {"", "plain", "a,b", "\"", "5\" 管", "两\r\n行", " x", "x "}) {
    CsvReader reader("1," + csvField(text) + ",2\n");
    EXPECT_EQ(reader.next()->fields, (Fields{"1", text, "2"}));
  }
  EXPECT_EQ(csvField("plain"), "plain");
}

}  // namespace
}  // namespace zelkor
