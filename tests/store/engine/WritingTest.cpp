#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include "store/accountset/DataFile.h"
#include "store/dialect/printing/Emit.h"
#include "store/engine/Connection.h"
#include "store/StoreFixture.h"
#include "support/Stranger.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;

class WritingTest : public StoreTest {
 protected:
  void SetUp() override {
    db.Execute("CREATE TABLE t (sNum TEXT(20), lCount LONG)");
    db.Execute("CREATE UNIQUE INDEX sNum ON t (sNum)");
    engine.flush();
  }
  void insert(const std::string& num) { db.Execute("insert into t (sNum,lCount) values ('" + num + "',1)"); }

  std::unique_ptr<Stranger> strangerHandle = strangerAt(path);
  Stranger& stranger = *strangerHandle;
};

TEST_F(WritingTest, AFlushDoesNotInterruptAWalkThatKeepsStreaming) {
  for (const bool keeps : {true, false}) {
    db.Execute("delete from t");
    for (const char* num : {"1", "2", "3"}) insert(num);
    Recordset rows = db.OpenRecordset("select sNum,lCount from t order by sNum");
    EXPECT_EQ(rows.Text("lCount"), "1");
    rows.MoveNext();
    if (keeps) rows.keepStreaming();
    engine.flush();
    EXPECT_EQ(stranger.count("t"), 3) << "the walk does not keep back what was gathered";
    EXPECT_TRUE(stranger.run("UPDATE t SET lCount=9"));
    rows.MoveNext();
    EXPECT_EQ(rows.Text("lCount"), keeps ? "1" : "9") << "the state that the walk began with, or the latest";
    db.Execute("update t set lCount=lCount+1");
    EXPECT_EQ(rows.Text("lCount"), "10");
    rows.MoveNext();
    EXPECT_TRUE(rows.Eof());
  }
}

TEST_F(WritingTest, GatheredStatementsAreDurableAfterAFlush) {
  insert("1");
  insert("2");
  engine.flush();
  EXPECT_EQ(stranger.count("t"), 2);
  EXPECT_TRUE(stranger.run("insert into t values ('3', 1)")) << "no lock is held";
  EXPECT_EQ(cell("select count(*) from t"), "3");
}

TEST_F(WritingTest, NothingIsWrittenPastAFileThatIsGone) {
  if (writesWithoutItsFile()) GTEST_SKIP();
  insert("1");
  engine.flush();
  std::filesystem::rename(path, path + ".away");
  EXPECT_EQ(errorOf([&] { insert("2"); }), 3024);
  std::filesystem::rename(path + ".away", path);
  EXPECT_EQ(cell("select count(*) from t"), "1");
  insert("3");
  std::filesystem::rename(path, path + ".away");
  EXPECT_EQ(errorOf([&] { engine.flush(); }), 3024) << "said, not lost without a word";
  std::filesystem::rename(path + ".away", path);
}

TEST_F(WritingTest, AFlushThatFailsForOneFileWritesOutTheOthers) {
  if (writesWithoutItsFile()) GTEST_SKIP();
  const std::string first = makeEmptyDataFile(directory.path(), "First.Mdb");
  Database other = engine.OpenDatabase(first);
  other.Execute("create table t (sNum text(20))");
  engine.flush();
  other.Execute("insert into t values ('1')");
  insert("1");
  std::filesystem::rename(first, first + ".away");
  EXPECT_EQ(errorOf([&] { engine.flush(); }), 3024);
  EXPECT_EQ(stranger.count("t"), 1);
}

// A file that may not grow: the engine gives up the transaction for the statement that needs room.
TEST_F(WritingTest, WhatAnEngineGivesUpByItselfIsNeverSaidToBeSaved) {
  if (onServer()) GTEST_SKIP() << "a server undoes the statement alone";
  const std::string file = makeEmptyDataFile(directory.path(), "Full.Mdb");
  std::unique_ptr<Engine> bare = openDataFile(file);
  bare->run("CREATE TABLE t (sNum TEXT); PRAGMA max_page_count=2");
  const auto full = std::make_shared<Connection>(std::move(bare));
  const std::string much = "insert into t (sNum) values ('" + std::string(10000, 'x') + "')";
  const char* const little = "insert into t (sNum) values ('1')";
  for (const bool transaction : {false, true}) {
    if (transaction) full->gathering().beginWorkspaceTransaction();
    full->execute(little);
    EXPECT_EQ(errorOf([&] { full->execute(much); }), 3183);
    EXPECT_EQ(errorOf([&] { full->execute(little); }), 3183) << "would be half of what was wanted";
    if (transaction) full->gathering().endWorkspaceTransaction();
    EXPECT_EQ(errorOf([&] { full->flush(); }), 3183);
    EXPECT_NO_THROW(full->flush()) << "it has been said";
    EXPECT_EQ(errorOf([&] { full->execute(much); }), 3183) << "nothing was lost before it";
    EXPECT_NO_THROW(full->execute(little));
    EXPECT_NO_THROW(full->flush());
  }
  EXPECT_EQ(strangerAt(file)->count("t"), 2);
}

TEST_F(WritingTest, AFailureUndoesItsStatementAndNothingBefore) {
  insert("1");
  insert("2");
  EXPECT_EQ(errorOf([&] { db.Execute("insert into t (sNum) select 'x' from t"); }), 3022);
  EXPECT_EQ(errorOf([&] { db.Execute("update t set sNum='1'"); }), 3022);
  insert("3");
  engine.flush();
  EXPECT_EQ(stranger.count("t"), 3);
  EXPECT_THAT(rows("select sNum from t order by sNum"), ElementsAre("1", "2", "3"));
}

TEST_F(WritingTest, AWriteBetweenOursIsNotLost) {
  insert("1");
  Recordset rs = db.OpenRecordset("select * from t");
  EXPECT_EQ(rs.Text("sNum"), "1");
  engine.flush();
  ASSERT_TRUE(stranger.run("update t set lCount=lCount+1"));
  db.Execute("update t set lCount=lCount+1");
  EXPECT_EQ(cell("select lCount from t"), "3") << "an open recordset must not hold us to old rows";
}

TEST_F(WritingTest, WhatIsKeptTogetherFailsByTheStatementAllTheSame) {
  {
    const KeptTogether together = db.keepTogether();
    insert("1");
    EXPECT_EQ(errorOf([&] { insert("1"); }), 3022);
    insert("2");
  }
  engine.flush();
  EXPECT_EQ(stranger.count("t"), 2);
}

TEST_F(WritingTest, TheLastDatabaseOfAFileWritesOut) {
  insert("1");
  db.Close();
  EXPECT_EQ(stranger.count("t"), 1);
}

TEST_F(WritingTest, ATransactionTakesNoLockBeforeItsFirstWrite) {
  Workspace& workspace = engine.workspace();
  workspace.BeginTrans();
  EXPECT_EQ(cell("select count(*) from t"), "0");
  ASSERT_TRUE(stranger.run("insert into t values ('other', 1)"));
  EXPECT_EQ(cell("select count(*) from t"), "1") << "nor does it read yesterday's rows";
  workspace.BeginTrans();  // joins
  insert("ours");
  engine.flush();
  EXPECT_EQ(stranger.count("t"), 1) << "a flush does not end the transaction";
  workspace.CommitTrans();
  EXPECT_EQ(stranger.count("t"), 2);
  EXPECT_EQ(errorOf([&] { workspace.CommitTrans(); }), 3034);
  workspace.BeginTrans();
  db.lockForWriting();
  EXPECT_EQ(stranger.run("insert into t values ('late', 1)"), onServer()) << "unless it asks for one";
  workspace.Rollback();
}

TEST_F(WritingTest, ARollbackLeavesNoRow) {
  insert("before");
  Workspace& workspace = engine.workspace();
  workspace.BeginTrans();
  insert("within");
  db.Execute("delete from t where sNum='before'");
  Database late = engine.OpenDatabase(path);
  late.Execute("insert into t (sNum) values ('late')");
  workspace.Rollback();
  EXPECT_THAT(rows("select sNum from t"), ElementsAre("before"));
  EXPECT_EQ(errorOf([&] { workspace.Rollback(); }), 3034);
}

TEST_F(WritingTest, TablesAreMadeAndDroppedAsOneStatement) {
  insert("1");
  db.Execute("select * into copy from t");
  EXPECT_TRUE(db.HasTable("COPY"));
  EXPECT_EQ(errorOf([&] { db.Execute("select * into copy from t"); }), 3010);
  EXPECT_EQ(errorOf([&] { db.Execute("select sNum, cint('abc') as n into bad from t"); }), 13);
  EXPECT_FALSE(db.HasTable("bad")) << "a SELECT INTO that fails leaves no table";
  db.Execute("drop table copy");
  EXPECT_EQ(errorOf([&] { db.Execute("drop table copy"); }), 3376);
  EXPECT_EQ(errorOf([&] { db.OpenRecordset("select * from copy"); }), 3078);
}

TEST_F(WritingTest, ATableChangedByAnotherProcessIsReadAnew) {
  EXPECT_EQ(cell("select count(*) from t"), "0");
  ASSERT_TRUE(stranger.run(onServer() ? "ALTER TABLE t ADD COLUMN sMore citext"
                                      : "ALTER TABLE t ADD COLUMN sMore TEXT(10) COLLATE NOCASE"));
  db.Execute("insert into t (sNum,sMore) values ('1','more')");
  EXPECT_EQ(cell("select sMore from t"), "more");
  db.Execute("select sNum into copy from t");
  EXPECT_EQ(cell("select sNum from copy"), "1");
  engine.flush();
  ASSERT_TRUE(stranger.run("DROP TABLE copy"));
  db.Execute("select sMore into copy from t");
  EXPECT_EQ(cell("select sMore from copy"), "more");
}

struct BadFile {
  const char* name;
  const char* content;  // nullptr: not there
  int error;
};

class BadFileTest : public testing::TestWithParam<BadFile> {};

TEST_P(BadFileTest, IsRefusedAndLeftAlone) {
  const TempDir directory;
  const auto path = directory.path() / "ZkData.Mdb";
  if (GetParam().content != nullptr) std::ofstream(path, std::ios::binary) << GetParam().content;
  DbEngine engine;
  EXPECT_EQ(errorOf([&] { engine.OpenDatabase(path); }), GetParam().error);
  EXPECT_EQ(std::filesystem::exists(path), GetParam().content != nullptr);
}

INSTANTIATE_TEST_SUITE_P(Files, BadFileTest,
                         testing::Values(BadFile{"missing", nullptr, 3024}, BadFile{"empty", "", 3343},
                                         BadFile{"text", "no database at all", 3343},
                                         BadFile{"cut", "SQLite form", 3343}),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST(OpenDatabaseTest, ADamagedPageIsReportedByTheStatementThatMeetsIt) {
  if (writesWithoutItsFile()) GTEST_SKIP() << "the pages are the server's";
  constexpr std::streamoff secondPage = 4096;
  const TempDir directory;
  const std::string path = makeEmptyDataFile(directory.path());
  DbEngine().OpenDatabase(path).Execute("create table t (sNum text(20))");
  std::fstream(path, std::ios::binary | std::ios::in | std::ios::out).seekp(secondPage)
      << std::string(secondPage, 'x');
  DbEngine engine;
  EXPECT_EQ(errorOf([&] { rowsOf(engine.OpenDatabase(path).OpenRecordset("select * from t")); }), 3343);
}

TEST(OpenDatabaseTest, TellsHowToImportAJetFile) {
  const TempDir directory;
  const auto path = directory.path() / "ZkData.Mdb";
  std::ofstream(path, std::ios::binary) << std::string("\x00\x01\x00\x00Standard Jet DB\x00rest", 24);
  DbEngine engine;
  try {
    engine.OpenDatabase(path);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.number(), 3343);
    EXPECT_THAT(error.what(), testing::HasSubstr("zelkorctl import"));
  }
}

TEST(OpenDatabaseTest, RefusesDirectoriesAndReadOnlyFiles) {
  const TempDir directory;
  DbEngine engine;
  EXPECT_EQ(errorOf([&] { engine.OpenDatabase(directory.path()); }), 3051);
  if (writesWithoutItsFile()) return;
  const std::string path = makeEmptyDataFile(directory.path());
  std::filesystem::permissions(path, std::filesystem::perms::owner_read);
  EXPECT_EQ(errorOf([&] { engine.OpenDatabase(path); }), 3051);
}

/// Opens the file as a user without privileges, in a process of its own that ends with 0 where the text says
/// so.
int refusalAsNobody(const std::string& path, const std::string& text) {
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && setuid(65534) != 0) _exit(2);
    try {
      openDataFileForReading(path);
    } catch (const RuntimeError& error) {
      _exit(error.number() == 3051 && std::string(error.what()).find(text) != std::string::npos ? 0 : 1);
    }
    _exit(3);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WEXITSTATUS(status);
}

TEST(OpenDatabaseTest, TellsAFileWithoutPermissionFromWhatIsNoFile) {
  namespace fs = std::filesystem;
  const TempDir directory;
  fs::permissions(directory.path(), fs::perms(0755));
  const fs::path books = directory.path() / "ZkData.Mdb";
  std::ofstream(books) << "[zelkor]\nengine=postgresql\nconninfo=service=books\nschema=books\n";
  fs::permissions(books, fs::perms::none);
  EXPECT_EQ(refusalAsNobody(books, "没有读权限"), 0);
  EXPECT_EQ(refusalAsNobody(directory.path(), "不是数据库文件"), 0);
  const fs::path closed = directory.path() / "closed";
  fs::create_directory(closed);
  fs::permissions(closed, fs::perms::none);
  EXPECT_EQ(refusalAsNobody(closed / "ZkData.Mdb", "：没有权限"), 0);
  fs::permissions(closed, fs::perms::owner_all);
}

TEST_F(WritingTest, BytesComeBackAsTheyWereBound) {
  const std::string bytes("\0\xFF\\x41\n'", 7);
  db.Execute("CREATE TABLE b (oBytes LONGBINARY)");
  engine.flush();
  const auto direct = openDataFile(path);
  const auto insert = direct->prepare("INSERT INTO b VALUES (" +
                                      direct->words().typedParameter(1, dialect::ColumnType::Binary) + ")");
  for (const std::string_view content : {std::string_view(bytes), std::string_view()}) {
    insert->bindBytes(1, content);
    insert->step();
    insert->reset();
  }
  insert->bindNull(1);
  insert->step();
  const auto read =
      direct->prepare("SELECT \"obytes\" FROM b ORDER BY coalesce(length(\"obytes\"), -1) DESC");
  for (const std::string_view content : {std::string_view(bytes), std::string_view()}) {
    ASSERT_TRUE(read->step());
    ASSERT_EQ(read->kind(0), CellKind::Bytes);
    EXPECT_EQ(read->bytes(0), content);
  }
  ASSERT_TRUE(read->step());
  EXPECT_EQ(read->kind(0), CellKind::Null);
  const std::string text = db.OpenRecordset("select oBytes from b where oBytes is not null").Text("oBytes");
  EXPECT_EQ(text, bytes);
}

}  // namespace
}  // namespace zelkor::test
