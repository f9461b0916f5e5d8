#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdlib>
#include <thread>

#include "store/catalogue/Catalogue.h"
#include "store/engine/postgresql/PostgreSqlEngine.h"
#include "store/StoreFixture.h"
#include "support/AccountSetCopy.h"
#include "support/Golden.h"

namespace zelkor::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;

TEST(ServerFile, SaysWhatIsWrong) {
  const TempDir directory;
  for (const auto& one : casesIn("store/engine/postgresql/bad-server-files.txt")) {
    writeFile(directory / "ZkData.Mdb", one[1]);
    EXPECT_THAT(refusalOf([&] { DbEngine().OpenDatabase((directory / "ZkData.Mdb").string()); }),
                AllOf(StartsWith("3343 "), HasSubstr(one[0]), testing::Not(HasSubstr("secret"))));
  }
}

TEST(ServerFile, IsReadAsItWasWritten) {
  const TempDir directory;
  ServerFile{"host=/run/x dbname='a b'", "zk001_data"}.write(directory / "f");
  const ServerFile read = ServerFile::read(directory / "f");
  EXPECT_EQ(read.conninfo, "host=/run/x dbname='a b'");
  EXPECT_EQ(read.schema, "zk001_data");
}

TEST(ServerFile, NamesAServerThatCannotBeReached) {
  const TempDir directory;
  ServerFile{"host=" + directory.path().string(), "zk001_data"}.write(directory / "f");
  DbEngine engine;
  EXPECT_EQ(errorOf([&] { engine.OpenDatabase((directory / "f").string()); }), 57);
}

class ServerTest : public StoreTest {
 protected:
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
    db.Execute("CREATE TABLE t (i_id COUNTER, sNum TEXT(20), memMore MEMO)");
    db.Execute("CREATE UNIQUE INDEX sNum ON t (sNum)");
  }
};

TEST_F(ServerTest, KeepsTheSpellingOfNames) {
  db.Execute("insert into t (sNum) values ('1')");
  db.Execute("select * into TheCopy from T");
  EXPECT_THAT(db.TableDefs(), testing::ElementsAre("t", "TheCopy"));
  Recordset copy = db.OpenRecordset("thecopy");
  EXPECT_EQ(copy.FieldName(0), "i_id");
  EXPECT_EQ(copy.FieldName(2), "memMore");
  db.Execute("alter table thecopy add column sMore text(5)");
  EXPECT_EQ(db.OpenRecordset("thecopy").FieldName(3), "sMore");
  db.Execute("insert into TheCopy (sNum) values ('2')");
  EXPECT_EQ(cell("select i_id from thecopy where sNum='2'"), "2") << "the counter goes on in the copy";
}

// Two sessions give numbers of their own while a third draws them: the counter never goes back after one of
// them.
TEST_F(ServerTest, ACounterGoesOnBehindTheGreatestNumberOfAllSessions) {
  std::atomic<int> given = 0;
  std::atomic<int> refused = 0;
  const auto desk = [&](auto statement) {
    return std::thread([this, &refused, statement] {
      DbEngine own;
      Database mine = own.OpenDatabase(path);
      for (int i = 0; i < 150; ++i)
        if (errorOf([&] { mine.Execute(statement()); }) != 0) ++refused;
    });
  };
  const auto giving = [&] {
    return "insert into t (i_id,sNum) values (" + std::to_string(given += 1000) + ",null)";
  };
  std::array desks{desk(giving), desk(giving),
                   desk([] { return std::string("insert into t (sNum) values (null)"); })};
  for (std::thread& one : desks) one.join();
  EXPECT_EQ(refused, 0);
  EXPECT_EQ(cell("select count(*) from t"), "450");
  db.Execute("insert into t (sNum) values ('last')");
  EXPECT_EQ(cell("select max(i_id) from t"), cell("select i_id from t where sNum='last'"));
}

TEST_F(ServerTest, ANullThatAColumnDoesNotTakeIsNoDuplicateKey) {
  db.Execute("insert into t (sNum) values ('1')");
  EXPECT_EQ(refusalOf([&] { db.Execute("update t set i_id=null"); }),
            "3314 字段 't.i_id' 不能包含 Null 值，必须在此字段中输入一个值。");
}

TEST_F(ServerTest, TimeIsThatOfTheWorkstation) {
  const char* known = std::getenv("TZ");
  const std::string before = known == nullptr ? "" : known;
  for (const auto& [zone, seconds] :
       {std::pair{"AAA-05:30", 19800}, {"AAA+03:30", -12600}, {"AAA-8", 28800}}) {
    setenv("TZ", zone, 1);
    PostgreSqlEngine session(ServerFile::read(path));
    const auto offset =
        session.prepare("SELECT extract(epoch FROM zk_now() - now() AT TIME ZONE 'UTC')::integer");
    offset->step();
    EXPECT_NEAR(std::stoi(std::string(offset->text(0))), seconds, 1) << zone;
  }
  known == nullptr ? unsetenv("TZ") : setenv("TZ", before.c_str(), 1);
  tzset();
}

TEST_F(ServerTest, ARoleWithoutRightsToThePartIsToldSo) {
  ServerFile part = ServerFile::read(path);
  PostgreSqlEngine(part).run(
      "DO $$ BEGIN CREATE ROLE zk_stranger LOGIN; EXCEPTION WHEN duplicate_object THEN NULL; END $$");
  part.conninfo += " user=zk_stranger";
  part.write(directory / "stranger");
  EXPECT_EQ(refusalOf([&] { DbEngine().OpenDatabase((directory / "stranger").string()); }),
            "3051 没有数据库服务器上的权限，不能进行该操作。（schema " + part.schema + "）");
}

TEST_F(ServerTest, ReadsValuesWholeHoweverTheServerIsSet) {
  db.Execute("create table v (x double, o longbinary)");
  PostgreSqlEngine(ServerFile::read(path)).run("INSERT INTO v VALUES (0.12345678901234567, '\\x00ff5c')");
  ServerFile strange = ServerFile::read(path);
  strange.conninfo +=
      " options='-cextra_float_digits=-2 -cbytea_output=escape -cDateStyle=German "
      "-cdefault_transaction_isolation=serializable'";
  strange.write(directory / "strange");
  DbEngine own;
  Recordset rows = own.OpenDatabase((directory / "strange").string()).OpenRecordset("select * from v");
  EXPECT_EQ(rows.Fields("x").number(), 0.12345678901234567);
  EXPECT_EQ(rows.Fields("o").text(), std::string("\0\xFF\\", 3));
  PostgreSqlEngine session(strange);
  const auto isolation = session.prepare("SELECT current_setting('transaction_isolation')");
  isolation->step();
  EXPECT_EQ(isolation->text(0), "read committed");
}

// What a later session does first, what it is refused while the first one holds the table, and why.
TEST_F(ServerTest, TellsWhatTheServerRefuses) {
  for (const auto& one : casesIn("store/engine/postgresql/refusals.txt")) {
    PostgreSqlEngine first(ServerFile::read(path));
    PostgreSqlEngine later(ServerFile::read(path));
    first.run("BEGIN; LOCK TABLE t");
    later.run(one[0]);
    EXPECT_THAT(refusalOf([&] { later.run(one[1]); }), StartsWith(one[2]));
  }
}

TEST_F(ServerTest, AFailureWithinATransactionUndoesItsStatementOnly) {
  engine.workspace().BeginTrans();
  db.Execute("insert into t (sNum) values ('1')");
  EXPECT_EQ(errorOf([&] { db.Execute("insert into t (sNum) values ('1')"); }), 3022);
  EXPECT_EQ(errorOf([&] { rows("select clng(sNum & 'x') from t"); }), 13);
  db.Execute("insert into t (sNum) values ('2')");
  engine.workspace().CommitTrans();
  EXPECT_EQ(cell("select count(*) from t"), "2");
}

TEST_F(ServerTest, RowsStayInTheOrderInWhichTheyWereAdded) {
  for (const char* num : {"c", "a", "b"})
    db.Execute("insert into t (sNum) values ('" + std::string(num) + "')");
  db.Execute("update t set memMore='changed' where sNum='c'");
  EXPECT_THAT(rows("select sNum from t"), testing::ElementsAre("c", "a", "b"));
  db.Execute("select sNum into u from t");
  EXPECT_THAT(rows("select sNum from u"), testing::ElementsAre("c", "a", "b"));
}

TEST_F(ServerTest, ACutConnectionIsReportedAndWhatWasDoneStays) {
  db.Execute("insert into t (sNum) values ('1')");
  PostgreSqlEngine other(ServerFile::read(path));
  other.prepare(endingSessionsOn("t"))->step();
  EXPECT_EQ(errorOf([&] { db.Execute("insert into t (sNum) values ('2')"); }), 57);
  EXPECT_EQ(errorOf([&] { rows("select sNum from t"); }), 57);
  db.Close();
  db = engine.OpenDatabase(path);
  EXPECT_THAT(rows("select sNum from t"), testing::ElementsAre("1"));
}

std::vector<std::string> sorted(std::vector<std::string> rows) {
  std::ranges::sort(rows);
  return rows;
}

class ServerSetTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!onServer()) GTEST_SKIP() << "needs a server";
  }

  TempDir directory;
};

TEST_F(ServerSetTest, HoldsWhatAFileHolds) {
  const TestDatabase database("template0");
  AccountSetOptions options{.account = "a7", .year = 2020, .month = 1, .sample = true};
  createAccountSet(directory / "file", options);
  createServerAccountSet(database.conninfo(), directory / "server", options);
  DbEngine engine;
  for (const auto& [name, tables] :
       {std::pair{"ZkData.Mdb", &dataTables()}, {"ZkSystem.Mdb", &systemTables()}}) {
    Database file = engine.OpenDatabase((directory / "file" / name).string());
    Database server = engine.OpenDatabase((directory / "server" / name).string());
    EXPECT_EQ(file.TableDefs().size(), server.TableDefs().size());
    for (const TableDef& table : *tables)
      EXPECT_EQ(sorted(rowsOf(file.OpenRecordset(table.info.name))),
                sorted(rowsOf(server.OpenRecordset(table.info.name))))
          << table.info.name;
  }
  EXPECT_EQ(errorOf([&] { createServerAccountSet(database.conninfo(), directory / "again", options); }),
            3204);
  EXPECT_FALSE(std::filesystem::exists(directory / "again"));
  EXPECT_EQ(errorOf([&] { createServerAccountSet(database.conninfo(), directory / "server", options); }),
            3204);
}

// A file comes where the set's is to lie, while its rows are on their way.
TEST_F(ServerSetTest, LeavesNothingWhenItsFilesCannotBeNamed) {
  const TestDatabase database("template0");
  const AccountSetOptions options{.account = "a8", .year = 2020, .month = 1};
  const auto set = directory / "set";
  std::jthread somebody([&](const std::stop_token& stop) {
    while (!stop.stop_requested() && !std::filesystem::exists(set / "ZkSystem.Mdb.new"))
      std::this_thread::yield();
    writeFile(set / "ZkSystem.Mdb", "mine");
  });
  EXPECT_EQ(errorOf([&] { createServerAccountSet(database.conninfo(), set, options); }), 3204);
  somebody.request_stop();
  somebody.join();
  EXPECT_EQ(readFile(set / "ZkSystem.Mdb"), "mine");
  std::filesystem::remove(set / "ZkSystem.Mdb");
  EXPECT_TRUE(std::filesystem::is_empty(set));
  createServerAccountSet(database.conninfo(), set, options);
  EXPECT_TRUE(std::filesystem::exists(set / "ZkSystem.Mdb"));
}

TEST_F(ServerSetTest, LeavesNoFolderOfASetThatIsNone) {
  const TestDatabase database("template0");
  EXPECT_EQ(errorOf([&] {
              createServerAccountSet(database.conninfo(), directory / "set",
                                     {.account = "a9", .year = 2020, .month = 13});
            }),
            13);
  EXPECT_FALSE(std::filesystem::exists(directory / "set"));
}

TEST_F(ServerSetTest, TakesNoPassword) {
  EXPECT_EQ(errorOf([&] { createServerAccountSet("host=x password=y", directory / "set", {}); }), 13);
  EXPECT_FALSE(std::filesystem::exists(directory / "set"));
}

}  // namespace
}  // namespace zelkor::test
