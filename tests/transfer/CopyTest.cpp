#include "store/accountset/AccountSet.h"
#include "store/accountset/DbEngine.h"
#include "store/catalogue/Catalogue.h"
#include "transfer/TransferFixture.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class CopyTest : public TransferTest {};

// What a table of the suite can hold at worst. The catalogue knows nothing of it.
constexpr const char* kEveryType = R"(
  CREATE TABLE "Suite Table" ("cText" TEXT(20) COLLATE NOCASE, "mMemo" LONGTEXT COLLATE NOCASE,
    "iShort" SMALLINT DEFAULT 7, "lLong" INTEGER, "fDouble" DOUBLE, "mMoney" CURRENCY, "dDate" DATETIME,
    "bYes" BOOLEAN NOT NULL DEFAULT 0, "oBytes" BLOB, "cDefault" TEXT(5) COLLATE NOCASE DEFAULT 'a''b');
  INSERT INTO "Suite Table" VALUES
    ('固定资产', 'a' || char(9) || 'b' || char(10) || 'c' || char(13) || 'd\e\\f\N\t', -32768, 2147483647,
     0.1, 12.3456, '2020-01-31 23:59:59', -1, x'00FF5C0A', 'x'),
    ('', '', 32767, -2147483648, -1e-300, -0.0001, '0100-01-01 00:00:00', 0, x'', ''),
    (NULL, NULL, NULL, NULL, NULL, NULL, NULL, 0, NULL, NULL),
    ('\N', '\.', 0, 0, 1.7976931348623157e308, 922337203685.4775, '9999-12-31 00:00:00', -1, x'5C78', '\'),
    ('''"', '𠀀 ', 1, 1, 123456789.12345678, 90071992547.4099, '1899-12-30 00:00:00', -1, x'00', NULL);
  CREATE INDEX "Suite Table__Falling" ON "Suite Table" ("lLong" DESC, "cText");
  CREATE INDEX "Suite Table__Given" ON "Suite Table" ("iShort") WHERE "iShort" IS NOT NULL;
  CREATE UNIQUE INDEX "Suite Table__Key" ON "Suite Table" ("cText");
)";

TEST_F(CopyTest, KeepsEveryValueTypeAndIndexOfATableThatNobodyKnows) {
  RawFile source(file_);
  source.run(kEveryType);
  EXPECT_THAT(copyThere(file_, copy_), IsEmpty());
  RawFile copied(copy_);
  EXPECT_EQ(copied.cells("Suite Table"), source.cells("Suite Table"));
  EXPECT_EQ(
      copied.rows("SELECT name, lower(type), \"notnull\", dflt_value FROM pragma_table_info('Suite Table')"),
      source.rows("SELECT name, lower(type), \"notnull\", dflt_value FROM pragma_table_info('Suite Table')"));
  const char* indexes =
      "SELECT lower(name), replace(lower(sql), ' ', '') FROM sqlite_master WHERE type = 'index'";
  EXPECT_EQ(copied.rows(indexes), source.rows(indexes));
}

TEST_F(CopyTest, GivesTheServerWhatTheProgramsReadInTheFile) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  RawFile(file_).run(kEveryType);
  ASSERT_THAT(copy(file_, there_, testServer()), IsEmpty());
  DbEngine engine;
  Recordset here =
      engine.OpenDatabase(file_.string()).OpenRecordset("select * from [Suite Table] order by lLong");
  Recordset there =
      engine.OpenDatabase(there_.string()).OpenRecordset("select * from [suite table] order by llong");
  for (int row = 0; !here.Eof(); here.MoveNext(), there.MoveNext(), ++row) {
    ASSERT_FALSE(there.Eof());
    for (std::size_t i = 0; i < here.FieldCount(); ++i) {
      EXPECT_EQ(there.FieldName(i), here.FieldName(i));
      EXPECT_EQ(there.Fields(i), here.Fields(i)) << here.FieldName(i) << " of row " << row;
    }
  }
  EXPECT_TRUE(there.Eof());
}

// Rows of a table with a counter are in the order of its numbers, all others as they were added.
TEST_F(CopyTest, KeepsRowOrderAndLetsCountersGoOn) {
  RawFile source(file_);
  source.run(R"(
    CREATE TABLE c (i_id INTEGER PRIMARY KEY AUTOINCREMENT, s TEXT(5) COLLATE NOCASE);
    INSERT INTO c VALUES (5, 'five'), (2, 'two'), (40, 'forty');
    DELETE FROM c WHERE i_id = 40;
    CREATE TABLE given (i_id INTEGER PRIMARY KEY AUTOINCREMENT);
    INSERT INTO given VALUES (9);
    DELETE FROM given;
    CREATE TABLE untouched (i_id INTEGER PRIMARY KEY AUTOINCREMENT, s TEXT(5));
    CREATE TABLE o (s TEXT(5));
    INSERT INTO o (rowid, s) VALUES (3, 'z'), (1, 'y'), (2, 'x');)");
  EXPECT_THAT(copyThere(file_, copy_), IsEmpty());
  EXPECT_THAT(RawFile(copy_).cells("c"), ElementsAre("2|'two'", "5|'five'"));
  EXPECT_THAT(RawFile(copy_).cells("o"), ElementsAre("'y'", "'x'", "'z'"));
  for (const auto& path : {copy_, there_}) {
    if (path == there_ && !onServer()) continue;
    DbEngine engine;
    Database database = engine.OpenDatabase(path.string());
    database.Execute("insert into c (s) values ('next')");
    database.Execute("insert into given (i_id) select max(i_id) from c");
    database.Execute("insert into untouched (s) values ('first')");
    EXPECT_EQ(database.OpenRecordset("select max(i_id) from c").Fields(std::size_t{0}), Value(41));
    EXPECT_EQ(database.OpenRecordset("select i_id from untouched").Fields(std::size_t{0}), Value(1));
    database.Execute("delete from given");
    database.Execute("insert into given (i_id) values (10)");
  }
}

// The first account set's tables, with what month-end adds.
TEST_F(CopyTest, CarriesAWholeAccountSet) {
  createAccountSet(directory_ / "set", {.account = "001", .year = 2020, .month = 1, .sample = true});
  const auto data = directory_ / "set" / "ZkData.Mdb";
  {
    DbEngine engine;
    Database database = engine.OpenDatabase(data.string());
    database.Execute("insert into fa_VtsObject (iMonth, sModelId) values (1, 'm')");
    database.Execute("insert into fa_ZWVouchers (md, mc) values (0.1, 1234567.89)");
    for (const char* table : {"AccInformation", "fa_VtsObject", "fa_ZWVouchers", "fa_AssetTypes"})
      database.Execute("select * into ZKFA_BAK_" + std::string(table) + "_1 from " + table);
  }
  RawFile(data).run("UPDATE fa_VtsObject SET objVtsfile = x'0001'; UPDATE fa_ZWVouchers SET i_id = 70000");
  EXPECT_THAT(copyThere(data, copy_), IsEmpty());
  RawFile source(data);
  RawFile copied(copy_);
  for (const std::string& table : source.tables())
    EXPECT_EQ(copied.cells(table), source.cells(table)) << table;
  const char* schema =
      "SELECT type, name, sql FROM sqlite_master WHERE name NOT LIKE 'ZKFA_BAK%' ORDER BY 1, 2";
  EXPECT_EQ(copied.rows(schema), source.rows(schema));
}

// An older set can lack a table's column or index, or have one more.
TEST_F(CopyTest, GivesKnownTablesTheirIndexesAndKeepsWhatElseTheyHave) {
  RawFile(file_).run(R"(
    CREATE TABLE FA_DEPARTMENTS ("sNum" TEXT(20), "sOurs" TEXT(9), "iLevel" TEXT(3), "xNew" DATETIME);
    INSERT INTO FA_DEPARTMENTS VALUES ('1', 'a', '2', '2020-02-29 00:00:00');
    CREATE INDEX "fa_departments__Ours" ON FA_DEPARTMENTS ("sOurs");)");
  EXPECT_THAT(copyThere(file_, copy_), IsEmpty());
  RawFile copied(copy_);
  EXPECT_THAT(copied.rows("SELECT sNum, iLevel, typeof(iLevel), sOurs, xNew FROM fa_departments"),
              ElementsAre("1|2|integer|a|2020-02-29 00:00:00"));
  EXPECT_THAT(
      copied.rows("SELECT l.name, l.\"unique\" FROM pragma_index_list('fa_departments') l ORDER BY 1"),
      UnorderedElementsAre("fa_departments__sNum|1", testing::MatchesRegex("fa_departments__[Oo]urs\\|0")));
}

TEST_F(CopyTest, NamesAKeyThatTheRowsDoNotAllow) {
  RawFile(file_).run(R"(
    CREATE TABLE fa_departments ("sNum" TEXT(20), "sName" TEXT(20));
    INSERT INTO fa_departments VALUES ('1', 'a'), ('2', 'b'), ('1', 'c');
    CREATE TABLE after (a INTEGER); INSERT INTO after VALUES (1);)");
  EXPECT_THAT(copy(file_, copy_), ElementsAre(HasSubstr("fa_departments: 索引 sNum 不能建立：")));
  EXPECT_THAT(RawFile(copy_).cells("fa_departments"), ElementsAre("'1'|'a'", "'2'|'b'", "'1'|'c'"));
  EXPECT_THAT(RawFile(copy_).cells("after"), ElementsAre("1"));
  EXPECT_THAT(RawFile(copy_).rows("PRAGMA integrity_check"), ElementsAre("ok"));
  if (!onServer()) return;
  EXPECT_THAT(copy(file_, there_, testServer()),
              ElementsAre(HasSubstr("fa_departments: 索引 sNum 不能建立：")));
}

TEST_F(CopyTest, NamesWhatIsNoTableOfTheDialect) {
  RawFile(file_).run(R"(
    CREATE TABLE t ("PK" TEXT(5) PRIMARY KEY, "U" INTEGER UNIQUE, "x" NUMERIC, "d" DATETIME DEFAULT CURRENT_DATE);
    INSERT INTO t VALUES ('b', 2, 1.5, NULL), ('a', 1, 'text', NULL);
    CREATE TABLE w (k TEXT(5) PRIMARY KEY, v INTEGER) WITHOUT ROWID;
    INSERT INTO w VALUES ('2', 2), ('1', 1);
    CREATE INDEX upper_pk ON t (upper("PK"));
    CREATE VIEW v AS SELECT * FROM t;
    CREATE TRIGGER g AFTER INSERT ON t BEGIN DELETE FROM w; END;)");
  EXPECT_THAT(copy(file_, copy_), UnorderedElementsAre("t.x: 列的类型没有对应的类型，按备注文本转移。",
                                                       "t.d: 默认值 CURRENT_DATE 不能转移。",
                                                       "t: 索引 upper_pk 带表达式或条件，不能转移。",
                                                       "v: 视图 v 不转移。", "t: 触发器 g 不转移。"));
  RawFile copied(copy_);
  EXPECT_THAT(copied.cells("t"), ElementsAre("'b'|2|'1.5'|NULL", "'a'|1|'text'|NULL"));
  EXPECT_THAT(copied.cells("w"), ElementsAre("'1'|1", "'2'|2"));
  EXPECT_THAT(copied.rows("SELECT name, \"unique\" FROM pragma_index_list('t') ORDER BY name"),
              ElementsAre("t__PrimaryKey|1", "t__U|1"));
}

// Another program's table on the server has neither row keys nor descriptions.
TEST_F(CopyTest, ReadsATableThatAnotherProgramHasMadeOnTheServer) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  RawFile(file_).run("CREATE TABLE t (a INTEGER)");
  ASSERT_THAT(copy(file_, there_, testServer()), IsEmpty());
  runThere(
      R"(CREATE TABLE other (id serial PRIMARY KEY, name varchar(7) DEFAULT 'n', big bigint, yes boolean);
    INSERT INTO other (big, yes) VALUES (9007199254740993, true), (NULL, NULL);
    CREATE VIEW seen AS SELECT * FROM other; CREATE INDEX low ON other (lower(name)))");
  EXPECT_THAT(
      copy(there_, copy_),
      UnorderedElementsAre(HasSubstr("other.big: 列的类型"), HasSubstr("other.yes: 列的类型"),
                           HasSubstr("other.id: 默认值 nextval"), HasSubstr("other: 索引 low 带表达式"),
                           HasSubstr("seen: 视图 seen 不转移")));
  EXPECT_THAT(RawFile(copy_).cells("other"), ElementsAre("1|'n'|'9007199254740993'|'t'", "2|'n'|NULL|NULL"));
}

}  // namespace
}  // namespace zelkor::test
