#include <algorithm>
#include <cmath>

#include "base/Text.h"
#include "store/accountset/AccountSet.h"
#include "store/accountset/DbEngine.h"
#include "support/Golden.h"
#include "support/jet/JetTables.h"
#include "transfer/jet/JetFixture.h"

// One file of each version with everything that a Jet file can hold, imported. A golden file says what came
// in, what was said of it, and in which tables and indexes it lies.
namespace zelkor::test {
namespace {

using namespace std::string_literals;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using I = std::int64_t;

struct OneColumn {
  const char* table;
  JetType type;
  std::vector<JetCell> values;
  int size = 0;
};

std::vector<OneColumn> valuesOf(JetVersion version) {
  const std::string bytes("\0\xFF\xFE'\0", 5);
  const std::string guid("\x04\x03\x02\x01\x06\x05\x08\x07\x09\x0A\x0B\x0C\x0D\x0E\x0F\xF0", 16);
  std::string large;
  for (int i = 0; i < 10000; ++i) large.push_back(static_cast<char>(i * 7));
  const char* letters = version == JetVersion::Jet3 ? "€ ·—" : "ÿ é £";
  // clang-format off
  return {
    {"Byte", JetType::Byte, {I{0}, I{255}, {}}},
    {"Short", JetType::Short, {I{-32768}, I{32767}, {}}},
    {"Long", JetType::Long, {I{-2147483648}, I{2147483647}, {}}},
    {"Boolean", JetType::Boolean, {true, false}},
    {"Money", JetType::Money, {I{1}, I{-123456789}, I{0}, I{-999999999999999}, {}}},
    {"Single", JetType::Single, {0.5, 0.1, -3e38, {}}},
    {"Double", JetType::Double, {0.1, -1e-300, 1.7976931348623157e308, 1.0 / 3, {}, NAN, INFINITY}},
    {"Date", JetType::Date, {38078.0, 38078.378472222219, 38078.9999999, 0.0, 0.5, -1.25, -0.25, -657434.0, 2958465.99998, {}, 2958466.0}},
    {"Text", JetType::Text, {"固定资产"s, ""s, "it's \"a\" 'b'"s, "a\tb\r\nc\\d"s, std::string(letters), "一二三 abc 一"s, std::string(255, 'x'), {}}, 255},
    {"Binary", JetType::Binary, {JetBytes{bytes}, {}}, 50},
    {"Ole", JetType::Ole, {JetBytes{bytes}, {}, JetBytes{large}}},
    {"Guid", JetType::Guid, {JetBytes{guid}}},
  };
  // clang-format on
}

void addColumn(JetFileWriter& file, const char* name, const JetColumn& column,
               const std::vector<JetCell>& values) {
  JetTable& table = file.table(name, {column});
  for (const JetCell& value : values) table.add({value});
}

void addMemos(JetFileWriter& file) {
  std::vector<JetCell> memos{JetCell{}, std::string("plain")};
  for (const std::size_t length : {1U, 30U, 63U, 64U, 511U, 1900U, 2032U, 4076U, 4077U, 9000U, 70000U}) {
    std::string text;
    while (text.size() < length) text += "备注 memo '" + std::to_string(text.size()) + "'; ";
    for (const JetPlace place : {JetPlace::ByLength, JetPlace::SharedPage, JetPlace::Pages})
      if (place != JetPlace::SharedPage || length <= 500) memos.emplace_back(JetMemo{text, place});
  }
  addColumn(file, "Memo", {"v", JetType::Memo}, memos);
}

/// Digits as far as they go; Jet 3 has no such type.
void addDigits(JetFileWriter& file) {
  JetColumn column{"v", JetType::Numeric};
  for (const auto& [name, precision, scale, values] :
       {std::tuple{"Digits", 18, 4, std::vector<JetCell>{I{-1230001}, I{7}, {}}},
        {"Digits16", 16, 2, {I{-1230001}}},
        {"Digits8", 16, 8, {I{123456789012345}, I{1234567890123456}, I{1234567890123456789}}}}) {
    column.precision = precision;
    column.scale = scale;
    addColumn(file, name, column, values);
  }
}

/// Bytes that stand for nothing leave their mark, never a question mark: half a character at the end, in
/// front of a digit, no character of GB18030, the character 0; half a unit, half a pair.
void addBrokenTexts(JetFileWriter& file, JetVersion version) {
  const std::vector<std::string> kJet3{"\xB9\xCC\xB6",
                                       "\xB9"
                                       "12",
                                       "\xB9"
                                       "1\xB9"
                                       "2",
                                       "a\xFF"
                                       "b\xB9\xCC",
                                       "a\0b"s};
  const std::vector<std::string> kJet4{"\x3A\x57\x41", "\x40\xD8\x41\0"s, "\x41\0\x00\xDC"s,
                                       "\x41\0\0\0\x42\0"s,
                                       "\xFF\xFE"
                                       "ab\0\x3A\x57\0c\0\x3A"s};
  JetTable& table = file.table("Broken", {{"s", JetType::Text, 50}, {"m", JetType::Memo}});
  for (const std::string& bytes : version == JetVersion::Jet3 ? kJet3 : kJet4) {
    table.add({"good"s, JetBytes{bytes}});
    table.add({JetBytes{bytes}, "good"s});
  }
  if (version != JetVersion::Jet3) return;
  // Pairs that GBK's own table lacks but the users' system has.
  table.add({JetBytes{"\x80"
                      "1 \xAA\xA1 \xB9\xCC"},
             {}});
}

void addRowsInEveryState(JetFileWriter& file) {
  JetTable& moved = file.table("Moved", {{"l", JetType::Long}, {"s", JetType::Text, 100}});
  for (I i = 1; i <= 500; ++i) {
    const JetRowState others = i % 5 == 0 ? JetRowState::Moved : JetRowState::Stored;
    moved.add({i, std::string(static_cast<std::size_t>(i % 90), 'x')},
              i % 3 == 0 ? JetRowState::Deleted : others);
  }
  JetTable& old = file.table("Old", {{"l", JetType::Long},
                                     {"s", JetType::Text, 20},
                                     {"late", JetType::Long},
                                     {"flag", JetType::Boolean},
                                     {"text", JetType::Text, 20}});
  old.add({I{1}, "too old for the others"s.substr(0, 20)});
  old.add({I{2}, "new"s, I{3}, true, "x"s});
  old.add({JetCell{}, JetCell{}});
  file.table("Empty", {{"l", JetType::Long}});
}

/// As many columns as a table can have.
void addWideTable(JetFileWriter& file) {
  std::vector<JetColumn> columns;
  std::vector<JetCell> odd(255);
  std::vector<JetCell> even(255);
  for (std::size_t i = 0; i < odd.size(); ++i) {
    const bool isText = i % 2 == 0;
    columns.push_back({"很长的列名" + std::to_string(i), isText ? JetType::Text : JetType::Long, 10});
    (isText ? odd : even)[i] = isText ? JetCell("v" + std::to_string(i)) : JetCell(static_cast<I>(i));
  }
  JetTable& table = file.table("Wide", columns);
  table.add(odd);
  table.add(even);
}

void addCountersAndIndexes(JetFileWriter& file) {
  const std::vector<JetColumn> columns = {{"i_id", JetType::Long, 0, true}, {"s", JetType::Text, 10}};
  JetTable& counted = file.table("Counted", columns, {{"PrimaryKey", {"i_id"}, true, true}});
  for (const I number : {7, 3}) counted.add({number, "x"s});
  counted.setLastCounter(12);
  for (const auto& [name, numbers] : {std::pair{"Twice", std::vector<I>{5, 5}}, {"Once", {9}}}) {
    JetTable& table = file.table(name, columns);
    for (const I number : numbers) table.add({number, "a"s});
  }
  JetTable& indexed = file.table("Indexed", {{"l", JetType::Long}, {"s", JetType::Text, 10}},
                                 {{"PrimaryKey", {"l"}, true, true},
                                  {"按名称", {"s", "l"}, false, false},
                                  {"broken", {"s"}, true, false}});
  for (const I number : {1, 2}) indexed.add({number, "a"s});
}

/// The catalogue decides what a column of its tables is, the file in which order they stand.
void addKnownTables(JetFileWriter& file) {
  JetTable& list = file.table(
      "FA_deprLIST", {{"extra", JetType::Byte}, {"DDATE", JetType::Date}, {"iPeriod", JetType::Double}});
  list.add({I{1}, 38078.0, 12.0});
  for (const JetCell& period : {JetCell{40000.0}, JetCell{0.5}, JetCell{}})
    list.add({I{2}, JetCell{}, period});
  JetTable& cards = file.table("fa_Cards", {{"sCardID", JetType::Long},
                                            {"sCardNum", JetType::Text, 255},
                                            {"dblValue", JetType::Money},
                                            {"bMultiDept", JetType::Short}});
  cards.add({I{1}, std::string(200, '9'), I{123456}, I{-1}});
  for (const JetCell& shared : {JetCell{}, JetCell{I{255}}})
    cards.add({JetCell{}, JetCell{}, JetCell{}, shared});
}

class JetFileTest : public JetVersionsTest {
 protected:
  void writeEverything() {
    JetFileWriter file = writer();
    for (const OneColumn& column : valuesOf(GetParam()))
      addColumn(file, column.table, {"v", column.type, column.size}, column.values);
    addMemos(file);
    if (!isJet3()) addDigits(file);
    addBrokenTexts(file, GetParam());
    addRowsInEveryState(file);
    addWideTable(file);
    addCountersAndIndexes(file);
    addKnownTables(file);
    file.link("elsewhere", "D:\\other.mdb", "original");
    file.query("按部门汇总");
    file.close();
  }

  /// Long lines in part, with a number that is made of the whole; ends of lines as C++ writes them.
  static std::string shortened(const std::string& cells) {
    std::string line;
    for (const char c : cells) line += c == '\r' ? "\\r" : c == '\n' ? "\\n" : std::string(1, c);
    if (line.size() <= 120) return line;
    std::uint32_t sum = 0;
    for (const char c : line) sum = sum * 31 + static_cast<unsigned char>(c);
    return line.substr(0, 40) + "… " + std::to_string(line.size()) + " bytes, " + std::to_string(sum);
  }
  /// Every table that the catalogue does not know, with its statement, its indexes and its rows.
  std::string dump() const {
    RawFile raw(copy_);
    std::string text;
    const auto add = [&text](const std::vector<std::string>& lines) {
      for (const std::string& line : lines) text += shortened(line) + "\n";
    };
    std::vector<std::string> tables = raw.tables();
    std::ranges::sort(tables, {}, [](const std::string& name) { return LCase(name); });
    for (const std::string& table : tables) {
      if (LCase(table).starts_with("fa_")) continue;
      text += "== ";
      add(raw.rows("SELECT lower(sql) FROM sqlite_master WHERE tbl_name = '" + table +
                   "' ORDER BY type DESC, 1"));
      add(raw.cells(table));
    }
    return text;
  }
  Value asked(const std::string& query) { return database().OpenRecordset(query).Fields(0); }
  Database database() { return engine_.OpenDatabase((onServer() ? there_ : copy_).string()); }

  DbEngine engine_;
};

TEST_P(JetFileTest, ComesInAsFarAsItCanAndSaysTheRest) {
  writeEverything();
  std::string found;
  // What an engine adds to it is its own.
  for (const std::string& problem : import()) found += problem.substr(0, problem.find("不能建立")) + "\n";
  found += dump();
  expectGolden(isJet3() ? "transfer/jet/jet3.golden" : "transfer/jet/jet4.golden", found);
  EXPECT_THAT(notes_, Contains("不导入的查询 1 个：按部门汇总"));
  EXPECT_THAT(notes_, Contains(AllOf(HasSubstr("账套还需要而文件里没有的表"), HasSubstr("AccInformation"))));
  EXPECT_THAT(notes_, Contains(HasSubstr("表 fa_Cards：文件里没有的列已按缺省值补上：sLockedBy、")));

  database().Execute("insert into Counted (s) values ('next')");
  database().Execute("insert into Once (s) values ('next')");
  EXPECT_EQ(asked("select i_id from Counted where s = 'next'"), Value(13))
      << "behind the last that was given";
  EXPECT_EQ(asked("select i_id from Once where s = 'next'"), Value(10)) << "behind the last that is there";
}

TEST_P(JetFileTest, LaysKnownTablesOutAsTheCatalogueHasThem) {
  writeEverything();
  import();
  RawFile raw(copy_);
  EXPECT_THAT(raw.rows("SELECT extra, dDate, iPeriod FROM fa_DeprList"),
              ElementsAre("1|2004-04-01 00:00:00|12", "2|~|~", "2|~|~", "2|~|~"));
  const JetSource source(jet_);
  const auto list = std::ranges::find(source.tables(), "fa_DeprList",
                                      [](const TableDef& table) { return table.info.name; });
  ASSERT_NE(list, source.tables().end());
  std::vector<std::string> names;
  for (const auto& column : list->info.columns) names.push_back(column.name);
  EXPECT_THAT(names, ElementsAre("extra", "dDate", "iPeriod", "sLockedBy"));
  EXPECT_THAT(raw.rows("SELECT typeof(sCardID), length(sCardNum), dblValue, bMultiDept, iOptType, dblDepr, "
                       "sStyle FROM fa_Cards"),
              ElementsAre("text|200|12.3456|-1|1|0.0|~", "null|~|~|0|1|0.0|~", "null|~|~|-1|1|0.0|~"));
  EXPECT_THAT(raw.rows("SELECT count(*) FROM pragma_index_list('fa_Cards')"), ElementsAre(testing::Ne("0")));
  database().Execute("insert into fa_Cards (sCardID) values ('2')");
  EXPECT_EQ(asked("select iOptType from fa_Cards where sCardID = '2'"), Value(std::int16_t{1}));
}

INSTANTIATE_TEST_SUITE_P(Versions, JetFileTest, testing::Values(JetVersion::Jet3, JetVersion::Jet4), nameOf);

TEST_F(JetTest, ListsSoManyProblemsOfATableAndCountsTheRest) {
  JetFileWriter file(jet_, JetVersion::Jet3);
  JetTable& table = file.table("t", {{"s", JetType::Text, 50}});
  for (int i = 0; i < 1003; ++i) table.add({JetBytes{"\xFF"}});
  file.close();
  const auto problems = import();
  ASSERT_EQ(problems.size(), 1001U);
  EXPECT_THAT(problems.back(), HasSubstr("另有 3 个值有问题"));
}

TEST_F(JetTest, ReadsOtherCharsetsAndPairsOfUnits) {
  JetFileWriter file(jet_, JetVersion::Jet3, {.charset = "BIG5", .codePage = 950});
  file.table("資產", {{"編號", JetType::Text, 50}}).add({std::string("電腦")});
  file.close();
  EXPECT_THAT(import("BIG5"), testing::IsEmpty());
  EXPECT_THAT(cells("資產"), ElementsAre("'電腦'"));
  EXPECT_THAT(notes_, testing::IsEmpty());
  EXPECT_THAT(JetSource(jet_).notes(), ElementsAre(HasSubstr("代码页是 950，文字按 GBK 解读")));

  std::filesystem::remove(copy_);
  std::filesystem::remove(there_);
  JetFileWriter other(jet_, JetVersion::Jet4);
  other.table("𠀀's \"t\"", {{"a [b]", JetType::Text, 50}}).add({std::string("𠀀a")});
  other.close();
  EXPECT_THAT(import("GBK"), testing::IsEmpty());
  EXPECT_THAT(RawFile(copy_).rows("SELECT \"a [b]\" FROM \"𠀀's \"\"t\"\"\""), ElementsAre("𠀀a"));
  EXPECT_THAT(notes_, ElementsAre(HasSubstr("--charset 不起作用")));
}

class AccountSetInJetTest : public JetVersionsTest {
 protected:
  /// All statements and counters of the file.
  static std::vector<std::string> layout(const std::filesystem::path& file) {
    RawFile raw(file);
    auto lines = raw.rows("SELECT name, sql FROM sqlite_master ORDER BY name");
    if (raw.rows("SELECT name FROM sqlite_master WHERE name = 'sqlite_sequence'").empty()) return lines;
    for (const std::string& counter : raw.rows("SELECT * FROM sqlite_sequence ORDER BY name"))
      lines.push_back(counter);
    return lines;
  }
};

TEST_P(AccountSetInJetTest, ComesBackAsItWas) {
  createAccountSet(directory_.path(), {.account = "001", .year = 2004, .month = 4, .sample = true});
  for (const char* name : {"ZkData.Mdb", "ZkSystem.Mdb"}) {
    SCOPED_TRACE(name);
    const auto original = openSource((directory_ / name).string());
    JetFileWriter file = writer();
    writeTables(*original, file);
    file.close();
    for (const auto& earlier : {copy_, there_}) std::filesystem::remove(earlier);
    EXPECT_THAT(import(), testing::IsEmpty());
    EXPECT_THAT(textsOf(compareTables(*original, *openSource(copy_.string()))), testing::IsEmpty());
    EXPECT_EQ(layout(copy_), layout(directory_ / name));
  }
}

INSTANTIATE_TEST_SUITE_P(Versions, AccountSetInJetTest, testing::Values(JetVersion::Jet3, JetVersion::Jet4),
                         nameOf);

}  // namespace
}  // namespace zelkor::test
