#include "base/RuntimeError.h"
#include "store/accountset/DbEngine.h"
#include "support/Golden.h"
#include "transfer/TransferFixture.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

class TargetTest : public TransferTest {
 protected:
  TargetTest() {
    RawFile(file_).run(R"(
      PRAGMA journal_mode = WAL;
      CREATE TABLE a (i_id INTEGER PRIMARY KEY AUTOINCREMENT, s TEXT(9) COLLATE NOCASE);
      INSERT INTO a (s) VALUES ('one'), ('two'), ('three');
      CREATE TABLE b (s TEXT(9) COLLATE NOCASE);
      INSERT INTO b VALUES ('x'), ('y');)");
  }

  std::vector<std::string> namesInFolder() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory_.path()))
      names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
  }
};

/// A source whose rows end with a failure.
class BreakingRows final : public RowReader {
 public:
  bool next() override {
    if (++row_ > 3) throw RuntimeError(ErrorNumber::DeviceIo, "broken");
    return true;
  }
  CarriedCell cell(std::size_t) override { return std::int64_t{row_}; }

 private:
  int row_ = 0;
};

TEST_F(TargetTest, LeavesNothingBehindWhenItIsNotFinished) {
  const TableDef table{{"t", {{"k", dialect::ColumnType::Long, 0, false}}}, {}, {}};
  std::vector<std::string> servers{""};
  if (onServer()) servers.push_back(testServer());
  for (const std::string& server : servers) {
    const std::string schema = freshSchema();
    {
      const auto target = openTarget(copy_, server, schema);
      BreakingRows rows;
      EXPECT_EQ(errorOf([&] { target->load(table, rows); }), 57);
      EXPECT_FALSE(fs::exists(copy_));
    }
    EXPECT_THAT(namesInFolder(), ElementsAre("Source.Mdb"));
    if (server.empty()) continue;
    ServerFile{server, schema}.write(there_);
    EXPECT_EQ(errorOf([&] { openSource(there_.string()); }), 3343);
    fs::remove(there_);
  }
}

TEST_F(TargetTest, IsThereForOthersWhenItIsFinishedAndNotBefore) {
  std::vector<std::string> servers{""};
  if (onServer()) servers.push_back(testServer());
  for (const std::string& server : servers) {
    const fs::path path = directory_ / ("Target" + std::to_string(server.size()) + ".Mdb");
    const std::string schema = freshSchema();
    const auto source = openSource(file_.string());
    const auto target = openTarget(path, server, schema);
    carryTables(*source, *target);
    EXPECT_FALSE(fs::exists(path));
    target->finish();
    EXPECT_THAT(openSource(path.string())->tables(), testing::SizeIs(2));
    EXPECT_FALSE(fs::exists(fs::path(path).concat(".new")));
  }
}

TEST_F(TargetTest, RefusesPlacesThatAreTakenOrNone) {
  struct Case {
    fs::path file;
    std::string conninfo;
    std::string schema;
    int number;
  };
  std::vector<Case> cases{{file_, "", "", 3204},
                          {directory_ / "none" / "Copy.Mdb", "", "", 3051},
                          {copy_, "host=" + directory_.path().string(), "s", 57},
                          {copy_, "host=x password=secret", "s", 13},
                          {copy_, "no such words", "s", 13},
                          {copy_, "host=x", "Not A Name", 13},
                          {copy_, "host=x", "pg_mine", 13},
                          {file_, "host=x", "s", 3204}};
  if (onServer()) {
    const std::string schema = freshSchema();
    openTarget(there_, testServer(), schema)->finish();
    cases.push_back({copy_, testServer(), schema, 3204});
    cases.push_back({directory_ / "none" / "Copy.Mdb", testServer(), freshSchema(), 3051});
  }
  for (const auto& [file, conninfo, schema, number] : cases)
    EXPECT_EQ(errorOf([&, file = file, conninfo = conninfo, schema = schema] {
                openTarget(file, conninfo, schema);
              }),
              number)
        << file << " " << conninfo << " " << schema;
  EXPECT_FALSE(fs::exists(copy_));
}

TEST_F(TargetTest, DoesNotTakeAPlaceThatSomebodyElseHasTakenMeanwhile) {
  const auto target = openTarget(copy_);
  writeFile(copy_, "mine");
  EXPECT_EQ(errorOf([&] { target->finish(); }), 3204);
  EXPECT_EQ(readFile(copy_), "mine");
  if (!onServer()) return;
  const std::string schema = freshSchema();
  const auto there = openTarget(there_, testServer(), schema);
  writeFile(there_, "mine");
  EXPECT_EQ(errorOf([&] { there->finish(); }), 3204);
  EXPECT_EQ(errorOf([&] { openTarget(directory_ / "Other.Mdb", testServer(), schema)->finish(); }), 0);
}

TEST(SchemaFor, IsMadeOfTheNamesOfFolderAndFile) {
  EXPECT_EQ(schemaFor("/srv/001/ZkData.Mdb"), "zk001_data");
  EXPECT_EQ(schemaFor("/srv/Books-2020/ZkSystem.Mdb"), "zkbooks2020_system");
  EXPECT_EQ(schemaFor("/账套/Test.Mdb"), "zk_test");
}

class SourceTest : public TargetTest {};

// What others write meanwhile is not seen; they neither wait nor fail.
TEST_F(SourceTest, ShowsOneStateAndKeepsNobodyFromWriting) {
  std::vector<fs::path> files{file_};
  if (onServer()) {
    ASSERT_THAT(copy(file_, there_, testServer()), IsEmpty());
    files.push_back(there_);
  }
  for (const fs::path& file : files) {
    const auto source = openSource(file.string());
    const TransferReport before = carryTables(*source, *openTarget(directory_ / "First.Mdb"));
    DbEngine engine;
    Database database = engine.OpenDatabase(file.string());
    database.Execute("insert into a (s) values ('four')");
    database.Execute("update a set s = 'changed'");
    database.Execute("delete from b");
    database.Execute("create table c (s text(5))");
    engine.flush();
    const auto target = openTarget(copy_);
    const TransferReport report = carryTables(*source, *target);
    target->finish();
    EXPECT_THAT(RawFile(copy_).cells("a"), ElementsAre("1|'one'", "2|'two'", "3|'three'"));
    EXPECT_THAT(RawFile(copy_).cells("b"), ElementsAre("'x'", "'y'"));
    EXPECT_EQ(report.tables.size(), 2U);
    database.Execute("drop table b");
    fs::remove(copy_);
  }
}

TEST_F(SourceTest, TellsWhatIsNoAccountSet) {
  writeFile(copy_, "text");
  EXPECT_EQ(errorOf([&] { openSource(copy_.string()); }), 3343);
  EXPECT_EQ(errorOf([&] { openSource((directory_ / "none").string()); }), 3024);
  EXPECT_EQ(errorOf([&] { openSource(directory_.path().string()); }), 3051);
}

TEST_F(SourceTest, ReadsAFileThatMayNotBeWritten) {
  fs::permissions(file_, fs::perms::owner_read);
  EXPECT_THAT(copy(file_, copy_), IsEmpty());
}

/// Copies the file as somebody who may write nothing but the copy; 0 when all went well.
int copiedByNobody(const fs::path& from, const fs::path& to) {
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && setuid(65534) != 0) _exit(2);
    try {
      const auto source = openSource(from.string());
      const auto target = openTarget(to);
      carryTables(*source, *target);
      target->finish();
    } catch (const RuntimeError& error) {
      _exit(std::string(error.what()).find("日志") == std::string::npos ? 1 : 4);
    }
    _exit(0);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WEXITSTATUS(status);
}

/// A folder without write permission is as a medium that cannot be written: there is no place for the index
/// of a log. What the log still holds is never left out.
TEST_F(SourceTest, ReadsAFileInAFolderThatMayNotBeWritten) {
  const fs::path closed = directory_ / "closed?%41#";
  const fs::path open = directory_ / "open";
  for (const fs::path& folder : {directory_.path(), closed, open}) {
    fs::create_directory(folder);
    fs::permissions(folder, folder == open ? fs::perms::all : fs::perms(0755));
  }
  const fs::path books = closed / "ZkData.Mdb";
  fs::copy_file(file_, books);
  RawFile(books).run("PRAGMA journal_mode = wal");
  if (geteuid() != 0) fs::permissions(closed, fs::perms(0555));
  EXPECT_EQ(copiedByNobody(books, open / "Copy.Mdb"), 0);
  EXPECT_THAT(textsOf(compareTables(*openSource(file_.string()), *openSource(open / "Copy.Mdb"))), IsEmpty());
  if (geteuid() != 0) fs::permissions(closed, fs::perms(0755));
  writeFile(closed / "ZkData.Mdb-wal", "x");
  if (geteuid() != 0) fs::permissions(closed, fs::perms(0555));
  EXPECT_EQ(copiedByNobody(books, open / "Other.Mdb"), 4);
  fs::permissions(closed, fs::perms(0755));
}

/// Neither a link that somebody planted nor more than the owner's permissions.
TEST_F(TargetTest, IsAFileOfItsOwn) {
  writeFile(directory_ / "private", "kept");
  fs::create_symlink(directory_ / "private", fs::path(copy_).concat(".new"));
  const auto source = openSource(file_.string());
  const auto target = openTarget(copy_, "", "", {.mode = 0640});
  carryTables(*source, *target);
  target->finish();
  EXPECT_EQ(readFile(directory_ / "private"), "kept");
  EXPECT_EQ(fs::status(copy_).permissions(), fs::perms(0640));
}

TEST_F(TargetTest, NamesAPathThatIsTooLong) {
  fs::path deep = directory_.path();
  while (deep.native().size() < 480) deep /= std::string(40, 'x');
  fs::create_directories(deep);
  const fs::path file = deep / "ZkData.Mdb";
  try {
    openTarget(file);
    ADD_FAILURE() << "made";
  } catch (const RuntimeError& error) {
    EXPECT_TRUE(error.is(ErrorNumber::CannotOpenReadOnly));
    EXPECT_THAT(error.what(), testing::HasSubstr("ZkData.Mdb' 的路径太长"));
  }
  fs::copy_file(file_, file);
  EXPECT_EQ(errorOf([&] { openSource(file.string()); }), 3051);
}

class CompareTest : public TargetTest {};

TEST_F(CompareTest, NamesTheFirstDifferenceOfATable) {
  for (const auto& change : casesIn("transfer/differences.txt")) {
    fs::remove(copy_);
    ASSERT_THAT(copy(file_, copy_), IsEmpty());
    RawFile(copy_).run(change[0]);
    EXPECT_THAT(textsOf(compareTables(*openSource(file_.string()), *openSource(copy_.string()))),
                ElementsAre(HasSubstr(change[1])))
        << change[0];
  }
}

/// One table of numbers only, under a counter that gives some of them twice.
class Numbers final : public TransferSource {
 public:
  explicit Numbers(std::vector<std::int64_t> numbers) : numbers_(std::move(numbers)) {}

  const std::vector<TableDef>& tables() const override { return tables_; }
  std::unique_ptr<RowReader> rows(const TableDef&) override { return std::make_unique<Reader>(numbers_); }
  std::int64_t lastCounter(const TableDef&) override { return 0; }
  int booksRevision() override { return 0; }
  const std::vector<TransferProblem>& problems() const override { return problems_; }

 private:
  struct Reader final : RowReader {
    explicit Reader(const std::vector<std::int64_t>& numbers) : all(numbers) {}
    bool next() override { return ++row < static_cast<int>(all.size()); }
    CarriedCell cell(std::size_t) override { return all[static_cast<std::size_t>(row)]; }

    const std::vector<std::int64_t>& all;
    int row = -1;
  };

  std::vector<std::int64_t> numbers_;
  std::vector<TableDef> tables_{TableDef{{"t", {{"n", dialect::ColumnType::Counter, 0, false}}}, {}, {}}};
  std::vector<TransferProblem> problems_;
};

TEST(CompareRows, CountsRowsThatShareANumber) {
  struct Case {
    std::vector<std::int64_t> copy;
    std::string difference;
  };
  for (const auto& [copied, difference] :
       {Case{{2, 1, 1}, ""}, Case{{1, 2, 2}, "编号 2 的行不同；来源 3 行，目标 3 行。"},
        Case{{2, 1}, "编号 1 的行不同；来源 3 行，目标 2 行。"}}) {
    Numbers original({1, 1, 2});
    Numbers copy(copied);
    const auto found = compareTables(original, copy);
    EXPECT_EQ(found.empty() ? "" : found.front().reason, difference);
  }
}

TEST_F(CompareTest, TakesTheOrderOfATableWithACounterForEngineBusiness) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  ASSERT_THAT(copy(file_, there_, testServer()), IsEmpty());
  DbEngine engine;
  engine.OpenDatabase(there_.string()).Execute("insert into a (i_id, s) values (-5, 'late')");
  EXPECT_THAT(copy(there_, copy_), IsEmpty());
  EXPECT_THAT(RawFile(copy_).cells("a"), ElementsAre("-5|'late'", "1|'one'", "2|'two'", "3|'three'"));
}

}  // namespace
}  // namespace zelkor::test
