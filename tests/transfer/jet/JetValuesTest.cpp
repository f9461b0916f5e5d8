#include <cmath>

#include "transfer/jet/JetFixture.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class JetValuesTest : public JetVersionsTest {
 protected:
  /// The cells of a table with one column, imported.
  std::vector<std::string> imported(const JetColumn& column, const std::vector<JetCell>& values) {
    std::filesystem::remove(copy_);
    std::filesystem::remove(there_);
    JetFileWriter file = writer();
    JetTable& table = file.table("t", {column});
    for (const JetCell& value : values) table.add({value});
    file.close();
    problems_ = import();
    return cells("t");
  }

  std::vector<std::string> problems_;
};

TEST_P(JetValuesTest, KeepsNumbersToTheLastDigit) {
  EXPECT_THAT(imported({"v", JetType::Byte}, {std::int64_t{0}, std::int64_t{255}, {}}),
              ElementsAre("0", "255", "NULL"));
  EXPECT_THAT(imported({"v", JetType::Short}, {std::int64_t{-32768}, std::int64_t{32767}, {}}),
              ElementsAre("-32768", "32767", "NULL"));
  EXPECT_THAT(imported({"v", JetType::Long}, {std::int64_t{-2147483648}, std::int64_t{2147483647}, {}}),
              ElementsAre("-2147483648", "2147483647", "NULL"));
  EXPECT_THAT(imported({"v", JetType::Boolean}, {true, false}), ElementsAre("-1", "0"));
  EXPECT_THAT(
      imported(
          {"v", JetType::Money},
          {std::int64_t{1}, std::int64_t{-123456789}, std::int64_t{0}, std::int64_t{-999999999999999}, {}}),
      ElementsAre("0.0001", "-12345.6789", "0", "-99999999999.9999", "NULL"));
  EXPECT_THAT(problems_, IsEmpty());
}

TEST_P(JetValuesTest, KeepsDoublesToTheLastBit) {
  const auto matches = [this](const char* literal) {
    return RawFile(copy_).rows("SELECT count(*) FROM t WHERE v = " + std::string(literal));
  };
  imported({"v", JetType::Single}, {0.5, 0.1, -3e38, {}});
  for (const char* literal : {"0.5", "0.10000000149011612", "-3.0000000054977558e38"})
    EXPECT_THAT(matches(literal), ElementsAre("1")) << literal;
  imported({"v", JetType::Double}, {0.1, -1e-300, 1.7976931348623157e308, 1.0 / 3, {}});
  for (const char* literal : {"0.1", "-1e-300", "1.7976931348623157e308", "0.33333333333333331"})
    EXPECT_THAT(matches(literal), ElementsAre("1")) << literal;
  EXPECT_THAT(problems_, IsEmpty());
}

TEST_P(JetValuesTest, NamesNumbersThatAreNone) {
  EXPECT_THAT(imported({"v", JetType::Double}, {NAN, 1.0, INFINITY}), ElementsAre("NULL", "1.0", "NULL"));
  EXPECT_THAT(problems_, ElementsAre("t[1].v: 不是有限的数值，存为空值", "t[3].v: 不是有限的数值，存为空值"));
}

TEST_P(JetValuesTest, RoundsDatesToTheSecond) {
  EXPECT_THAT(
      imported(
          {"v", JetType::Date},
          {38078.0, 38078.378472222219, 38078.9999999, 0.0, 0.5, -1.25, -0.25, -657434.0, 2958465.99998, {}}),
      ElementsAre("'2004-04-01 00:00:00'", "'2004-04-01 09:05:00'", "'2004-04-02 00:00:00'",
                  "'1899-12-30 00:00:00'", "'1899-12-30 12:00:00'", "'1899-12-29 06:00:00'",
                  "'1899-12-30 06:00:00'", "'0100-01-01 00:00:00'", "'9999-12-31 23:59:58'", "NULL"));
  EXPECT_THAT(problems_, IsEmpty());
  EXPECT_THAT(imported({"v", JetType::Date}, {2958466.0, 1.0}), ElementsAre("NULL", "'1899-12-31 00:00:00'"));
  EXPECT_THAT(problems_, ElementsAre(HasSubstr("t[1].v: 日期超出范围，存为空值：序号 2958466")));
}

TEST_P(JetValuesTest, KeepsTexts) {
  const std::string longest(255, 'x');
  const std::vector<JetCell> texts = {
      "固定资产", "", "it's \"a\" 'b'", "a\tb\r\nc\\d", "ÿ é £", "一二三 abc 一", longest, {}};
  const std::vector<JetCell> gbk = {"固定资产", "", "it's \"a\" 'b'", "a\tb\r\nc\\d", "€ ·—", "一二三 abc 一",
                                    longest,    {}};
  EXPECT_THAT(imported({"v", JetType::Text, 255}, isJet3() ? gbk : texts),
              ElementsAre("'固定资产'", "''", "'it''s \"a\" ''b'''", "'a\tb\r\nc\\d'",
                          isJet3() ? "'€ ·—'" : "'ÿ é £'", "'一二三 abc 一'", "'" + longest + "'", "NULL"));
  EXPECT_THAT(problems_, IsEmpty());
}

TEST_P(JetValuesTest, KeepsLongTextsWhereverTheyLie) {
  std::vector<JetCell> memos;
  std::vector<std::string> expected;
  for (const std::size_t length : {1U, 30U, 63U, 64U, 511U, 1900U, 2032U, 4076U, 4077U, 9000U, 70000U}) {
    std::string text;
    while (text.size() < length) text += "备注 memo '" + std::to_string(text.size()) + "'; ";
    for (const JetPlace place : {JetPlace::ByLength, JetPlace::SharedPage, JetPlace::Pages}) {
      if (place == JetPlace::SharedPage && length > 500) continue;
      memos.push_back(JetMemo{text, place});
      std::string quoted = "'";
      for (const char c : text) quoted += c == '\'' ? "''" : std::string(1, c);
      expected.push_back(quoted + "'");
    }
  }
  memos.emplace_back();
  expected.emplace_back("NULL");
  memos.emplace_back(std::string("plain"));
  expected.emplace_back("'plain'");
  EXPECT_EQ(imported({"v", JetType::Memo}, memos), expected);
  EXPECT_THAT(problems_, IsEmpty());
}

TEST_P(JetValuesTest, KeepsBytes) {
  const std::string bytes("\0\xFF\xFE'\0", 5);
  EXPECT_THAT(imported({"v", JetType::Binary, 50}, {JetBytes{bytes}, {}}),
              ElementsAre("X'00FFFE2700'", "NULL"));
  EXPECT_THAT(imported({"v", JetType::Ole}, {JetBytes{bytes}, {}}), ElementsAre("X'00FFFE2700'", "NULL"));
  std::string large;
  for (int i = 0; i < 10000; ++i) large.push_back(static_cast<char>(i * 7));
  imported({"v", JetType::Ole}, {JetBytes{large}});
  EXPECT_THAT(RawFile(copy_).rows("SELECT length(v), hex(substr(v, 9999)) FROM t"),
              ElementsAre("10000|6269"));
  EXPECT_THAT(
      imported(
          {"v", JetType::Guid},
          {JetBytes{std::string("\x04\x03\x02\x01\x06\x05\x08\x07\x09\x0A\x0B\x0C\x0D\x0E\x0F\xF0", 16)}}),
      ElementsAre("'{01020304-0506-0708-090A-0B0C0D0E0FF0}'"));
  EXPECT_THAT(problems_, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Versions, JetValuesTest, testing::Values(JetVersion::Jet3, JetVersion::Jet4),
                         nameOf);

// Jet 3 has none.
class JetDecimalsTest : public JetValuesTest {};

TEST_P(JetDecimalsTest, KeepsDigitsAsFarAsTheyGo) {
  JetColumn column{"v", JetType::Numeric};
  column.precision = 18;
  column.scale = 4;
  EXPECT_THAT(imported(column, {std::int64_t{-1230001}, std::int64_t{7}, {}}),
              ElementsAre("-123.0001", "0.0007", "NULL"));
  column.scale = 2;
  column.precision = 16;
  EXPECT_THAT(imported(column, {std::int64_t{-1230001}}), ElementsAre("-12300.01"));
  EXPECT_THAT(problems_, IsEmpty());
  column.scale = 8;
  EXPECT_THAT(imported(column, {std::int64_t{123456789012345}, std::int64_t{1234567890123456789}}),
              ElementsAre("1234567.89012345", testing::StartsWith("1.2345678901234567")));
  EXPECT_THAT(problems_, ElementsAre("t[2].v: 位数过多，存为最接近的双精度数：12345678901.23456789"));
}

INSTANTIATE_TEST_SUITE_P(Versions, JetDecimalsTest, testing::Values(JetVersion::Jet4), nameOf);

struct BrokenText {
  JetVersion version;
  std::string bytes;
  std::string text;
};

class JetBrokenTextTest : public JetTest, public testing::WithParamInterface<BrokenText> {};

// Bytes that stand for nothing are named and leave their mark, never a question mark.
TEST_P(JetBrokenTextTest, IsNamed) {
  JetFileWriter file(jet_, GetParam().version);
  JetTable& table = file.table("t", {{"s", JetType::Text, 50}, {"m", JetType::Memo}});
  table.add({std::string("good"), JetBytes{GetParam().bytes}});
  table.add({JetBytes{GetParam().bytes}, std::string("good")});
  file.close();
  const std::string reason = ": 含有不能解读的字符，以 U+FFFD 代替";
  EXPECT_THAT(import(), ElementsAre("t[1].m" + reason, "t[2].s" + reason));
  EXPECT_THAT(cells("t"),
              ElementsAre("'good'|'" + GetParam().text + "'", "'" + GetParam().text + "'|'good'"));
}

using namespace std::string_literals;
INSTANTIATE_TEST_SUITE_P(
    Bytes, JetBrokenTextTest,
    testing::Values(BrokenText{JetVersion::Jet3, "\xB9\xCC\xB6", "固\uFFFD"},  // half a character at the end
                    BrokenText{JetVersion::Jet3,
                               "\xB9"
                               "12",
                               "\uFFFD12"},  // in front of a digit
                    BrokenText{JetVersion::Jet3,
                               "\xB9"
                               "1\xB9"
                               "2",
                               "\uFFFD1\uFFFD2"},  // no character of GB18030
                    BrokenText{JetVersion::Jet3,
                               "a\xFF"
                               "b\xB9\xCC",
                               "a\uFFFDb固"},
                    BrokenText{JetVersion::Jet3, "a\0b"s, "a\uFFFDb"},
                    BrokenText{JetVersion::Jet4, "\x3A\x57\x41", "场\uFFFD"},    // half a unit
                    BrokenText{JetVersion::Jet4, "\x40\xD8\x41\0"s, "\uFFFDA"},  // half a pair
                    BrokenText{JetVersion::Jet4, "\x41\0\x00\xDC"s, "A\uFFFD"},
                    BrokenText{JetVersion::Jet4, "\x41\0\0\0\x42\0"s, "A\uFFFDB"},
                    BrokenText{JetVersion::Jet4,
                               "\xFF\xFE"
                               "ab\0\x3A\x57\0c\0\x3A"s,
                               "ab场c\uFFFD"}));

// Other pairs that GBK's own table lacks but the users' system has.
TEST_F(JetTest, ReadsWhatTheUsersSystemAddsToGbk) {
  JetFileWriter file(jet_, JetVersion::Jet3);
  JetTable& table = file.table("t", {{"s", JetType::Text, 50}});
  table.add(
      {JetBytes{"\x80"
                "1 \xAA\xA1 \xB9\xCC"}});
  file.close();
  EXPECT_THAT(import(), IsEmpty());
  EXPECT_THAT(cells("t"), ElementsAre("'€1 \uE000 固'"));
}

TEST_F(JetTest, ReadsOtherCharsetsAndPairsOfUnits) {
  JetOptions options;
  options.charset = "BIG5";
  options.codePage = 950;
  JetFileWriter file(jet_, JetVersion::Jet3, options);
  file.table("資產", {{"編號", JetType::Text, 50}}).add({std::string("電腦")});
  file.close();
  EXPECT_THAT(import("BIG5"), IsEmpty());
  EXPECT_THAT(cells("資產"), ElementsAre("'電腦'"));
  EXPECT_THAT(notes_, IsEmpty());
  EXPECT_THAT(JetSource(jet_).notes(), ElementsAre(HasSubstr("代码页是 950，文字按 GBK 解读")));

  std::filesystem::remove(copy_);
  std::filesystem::remove(there_);
  JetFileWriter other(jet_, JetVersion::Jet4);
  other.table("𠀀's \"t\"", {{"a [b]", JetType::Text, 50}}).add({std::string("𠀀a")});
  other.close();
  EXPECT_THAT(import("GBK"), IsEmpty());
  EXPECT_THAT(RawFile(copy_).rows("SELECT \"a [b]\" FROM \"𠀀's \"\"t\"\"\""), ElementsAre("𠀀a"));
  EXPECT_THAT(notes_, ElementsAre(HasSubstr("--charset 不起作用")));
}

TEST_F(JetTest, ListsSoManyProblemsOfATableAndCountsTheRest) {
  JetFileWriter file(jet_, JetVersion::Jet3);
  JetTable& table = file.table("t", {{"s", JetType::Text, 50}});
  for (int i = 0; i < 1003; ++i) table.add({JetBytes{"\xFF"}});
  file.close();
  const auto problems = import();
  ASSERT_EQ(problems.size(), 1001U);
  EXPECT_THAT(problems.back(), HasSubstr("另有 3 个值有问题"));
}

}  // namespace
}  // namespace zelkor::test
