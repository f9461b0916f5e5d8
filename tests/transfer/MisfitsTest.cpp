#include "support/Golden.h"
#include "transfer/DefaultLiteral.h"
#include "transfer/ExactCurrency.h"
#include "transfer/TransferFixture.h"

// SQLite keeps what it is given, whatever the column's type.
namespace zelkor::test {
namespace {

using dialect::ColumnType;
using testing::ElementsAre;
using testing::IsEmpty;

class MisfitTest : public TransferTest {};

TEST_F(MisfitTest, IsCarriedAsNearlyAsTheTypeAllowsAndNamed) {
  for (const auto& misfit : casesIn("transfer/misfits.txt")) {
    const std::string &type = misfit[0], &value = misfit[1], &stored = misfit[2], &reason = misfit[3];
    SCOPED_TRACE(type + " " + value);
    for (const auto& file : {file_, there_, copy_}) std::filesystem::remove(file);
    RawFile(file_).run("CREATE TABLE t (k INTEGER, c " + type + "); INSERT INTO t VALUES (1, " + value + ")");
    const auto problems = copyThere(file_, copy_);
    EXPECT_THAT(RawFile(copy_).cells("t"), ElementsAre("1|" + stored));
    EXPECT_EQ(problems, reason.empty() ? std::vector<std::string>{} : std::vector{"t[1].c: " + reason});
  }
}

TEST_F(MisfitTest, IsToldOnceHoweverOftenItIsRead) {
  RawFile(file_).run("CREATE TABLE t (c SMALLINT); INSERT INTO t VALUES (1), (99999), ('x')");
  const auto source = openSource(file_.string());
  for (int time = 0; time < 2; ++time) {
    const auto rows = source->rows(source->tables().front());
    while (rows->next()) rows->cell(0);
  }
  EXPECT_EQ(source->problems().size(), 2U);
}

// The character 0 ends a text in many a program; a server refuses it.
TEST_F(MisfitTest, TheServerKeepsNoCharacterZero) {
  RawFile(file_).run("CREATE TABLE t (c LONGTEXT); INSERT INTO t VALUES (CAST(x'410042' AS TEXT))");
  EXPECT_THAT(copy(file_, copy_), IsEmpty());
  EXPECT_THAT(RawFile(copy_).rows("SELECT hex(c) FROM t"), ElementsAre("410042"));
  if (!onServer()) return;
  const auto source = openSource(file_.string());
  const auto target = openTarget(there_, testServer(), freshSchema());
  EXPECT_THAT(textsOf(carryTables(*source, *target).problems),
              ElementsAre("t[1].c: 文本中含有编码为 0 的字符，服务器不能保存，已去掉。"));
  target->finish();
  EXPECT_THAT(textsOf(compareTables(*source, *openSource(there_.string()))),
              ElementsAre("t[1].c: 值不同；来源 1 行，目标 1 行。"));
}

// Beyond the digits of a double the server knows an amount exactly and a file does not.
TEST_F(MisfitTest, AmountsThatAFileCannotTellApartAreNamed) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  RawFile(file_).run("CREATE TABLE t (k INTEGER, c CURRENCY); INSERT INTO t VALUES (1, 0), (2, 0)");
  ASSERT_THAT(copy(file_, there_, testServer()), IsEmpty());
  runThere(
      "UPDATE t SET c = 922337203685477.5807 WHERE k = 1; UPDATE t SET c = 90071992547.4093 WHERE k = 2");
  const auto source = openSource(there_.string());
  const auto target = openTarget(copy_);
  EXPECT_THAT(textsOf(carryTables(*source, *target).problems),
              ElementsAre("t[1].c: 金额 922337203685477.5807 的位数太多，文件中只能近似保存。"));
}

TEST(ExactCurrency, IsTheLastTenThousandthThatAValueTells) {
  for (const auto& [text, units] : std::vector<std::pair<const char*, std::int64_t>>{
           {"12.3400", 123400},
           {"-0.0001", -1},
           {"7", 70000},
           {"922337203685477.5807", 9223372036854775807},
           {"-922337203685477.5808", std::numeric_limits<std::int64_t>::min()},
           {"1.23450000", 12345}})
    EXPECT_EQ(exactCurrency(std::string_view(text)), Currency::fromScaled(units)) << text;
  for (const char* text : {"0.00001", "922337203685477.5808", "1e5", "", "NaN"})
    EXPECT_EQ(exactCurrency(std::string_view(text)), std::nullopt) << text;
  for (const std::int64_t units : {1L, -5L, 123456789012345L, 9007199254740991L})
    EXPECT_EQ(exactCurrency(Currency::fromScaled(units).toDouble()), Currency::fromScaled(units)) << units;
  for (const double value : {0.00001, 1e15, -1e300, 1.0 / 3}) EXPECT_EQ(exactCurrency(value), std::nullopt);
}

TEST(DefaultLiteral, IsSaidInWordsOfBothEngines) {
  struct Case {
    const char* expression;
    ColumnType type;
    const char* literal;  // nullptr: it is none
  };
  for (const auto& [expression, type, literal] : std::vector<Case>{
           {"0", ColumnType::Short, "0"},
           {"((-1.5))", ColumnType::Double, "-1.5"},
           {"'-1'::integer", ColumnType::Long, "-1"},
           {"('7'::smallint)", ColumnType::Short, "7"},
           {"'a::b'::citext", ColumnType::Text, "'a::b'"},
           {"'it''s'", ColumnType::Memo, "'it''s'"},
           {"12", ColumnType::Text, "'12'"},
           {"'2020-01-31 00:00:00'::timestamp without time zone", ColumnType::Date, "'2020-01-31 00:00:00'"},
           {"NULL::citext", ColumnType::Text, ""},
           {"0", ColumnType::Boolean, ""},
           {"'-1'::integer", ColumnType::Boolean, "-1"},
           {"CURRENT_TIMESTAMP", ColumnType::Date, nullptr},
           {"'a' || 'b'", ColumnType::Text, nullptr},
           {"nextval('s'::regclass)", ColumnType::Long, nullptr},
           {"abs(1)", ColumnType::Long, nullptr}}) {
    const auto found = defaultLiteral(expression, type);
    EXPECT_EQ(found, literal == nullptr ? std::nullopt : std::optional<std::string>(literal)) << expression;
  }
}

}  // namespace
}  // namespace zelkor::test
