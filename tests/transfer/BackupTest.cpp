#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <thread>

#include "store/accountset/DataFile.h"
#include "store/accountset/DbEngine.h"
#include "store/accountset/Replacement.h"
#include "support/AccountSetCopy.h"
#include "support/Rows.h"
#include "transfer/backup/Checksum.h"
#include "transfer/backup/Restore.h"
#include "transfer/TransferFixture.h"

namespace zelkor::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;

namespace fs = std::filesystem;

/// An account set in a folder of its own, in files or on a server, with a folder for its backups.
class BackupTest : public testing::Test {
 protected:
  BackupTest() { fs::create_directory(home / "set"); }

  std::string data() const { return home / "set/ZkData.Mdb"; }
  std::string system() const { return home / "set/ZkSystem.Mdb"; }
  fs::path backups() const { return home / "backups"; }
  /// What tells one state of the set from another, in each of its files.
  void mark(const std::string& text) const {
    DbEngine engine;
    engine.OpenDatabase(data()).Execute("update AccInformation set cValue='" + text +
                                        "' where cName='dGLStartDate'");
    engine.OpenDatabase(system()).Execute("update za_account set cCurName='" + text + "'");
    engine.flush();
  }
  static std::string marksIn(const fs::path& folder) {
    DbEngine engine;
    const auto first = [&](const char* file, const char* query) {
      return rowsOf(engine.OpenDatabase((folder / file).string()).OpenRecordset(query)).front();
    };
    return first("ZkData.Mdb", "select cValue from AccInformation where cName='dGLStartDate'") + "," +
           first("ZkSystem.Mdb", "select cCurName from za_account");
  }
  std::string marks() const { return marksIn(home / "set"); }
  BackupOrder order(const std::string& time = "2020-01-31 9:30:00") const {
    return {
        .data = data(), .system = system(), .to = backups(), .label = "试", .program = "1", .now = day(time)};
  }
  RestoreOrder restoring(const fs::path& backup, const fs::path& target) const {
    return {.backup = backup,
            .target = target,
            .keepIn = backups(),
            .keptLabel = "before",
            .note = {.kind = 'b', .since = day("2020-02-01 10:00:00"), .user = "anna"}};
  }
  std::vector<std::string> namesIn(const fs::path& folder) const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
      names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
  }

  const TempDir home;
  AccountSetCopy files{(fs::create_directory(home / "set"), home / "set")};
};

TEST_F(BackupTest, HoldsBothFilesInOneStateWhileAnotherWrites) {
  mark("0");
  std::atomic<bool> isOver = false;
  std::thread writer([&] {
    for (int i = 1; !isOver; ++i) mark(std::to_string(i));
  });
  const std::size_t backupsMade = onServer() ? 3 : 12;
  for (std::size_t i = 0; i < backupsMade; ++i) {
    const MadeBackup made = backUp(order());
    const std::string state = marksIn(made.folder);
    const int inData = std::atoi(state.c_str());
    const int inSystem = std::atoi(state.substr(state.find(',') + 1).c_str());
    EXPECT_TRUE(inData == inSystem || inData == inSystem + 1) << state;
  }
  isOver = true;
  writer.join();
  EXPECT_THAT(namesIn(backups()), testing::SizeIs(backupsMade));
}

TEST_F(BackupTest, SaysWhatItHoldsAndLetsNobodyMoreRead) {
  if (!onServer()) fs::permissions(data(), fs::perms(0640));
  {
    DbEngine engine;
    Database books = engine.OpenDatabase(data());
    for (const char* version : {"'9',100", "'10',150.5"})
      books.Execute(
          "insert into fa_Cards (sCardNum,dInputDate,iOptType,sCardID,dblValue) values "
          "('00001',#2020-01-05#,1," +
          std::string(version) + ")");
    books.Execute(
        "insert into fa_DeprTransactions (sCardNum,dblInputDeprTotal,dblDepr1,dblDepr2) values "
        "('00001',40,2.5,9)");
    engine.flush();
  }
  const MadeBackup made = backUp(order());
  EXPECT_EQ(made.folder, backups() / "001_2020-01_20200131-093000");
  EXPECT_THAT(namesIn(made.folder), ElementsAre("ZkData.Mdb", "ZkSystem.Mdb", "backup.txt"));
  EXPECT_THAT(made.problems, IsEmpty());
  if (!onServer()) {
    EXPECT_EQ(fs::status(made.folder / "ZkData.Mdb").permissions(), fs::perms(0640));
    EXPECT_EQ(fs::status(made.folder).permissions() & fs::perms::others_all, fs::perms::none);
  }
  const auto listed = backupsIn(backups(), BackupCheck::Checksums);
  ASSERT_EQ(listed.size(), 1U);
  EXPECT_EQ(listed[0].problem, "");
  EXPECT_EQ(listed[0].note.name, "示例账套");
  EXPECT_EQ(listed[0].note.month, "2020-01");
  EXPECT_EQ(listed[0].note.cards, 1);
  EXPECT_EQ(listed[0].note.value, "150.50");
  EXPECT_EQ(listed[0].note.accumulated, "42.50") << "to the end of the open month";
  EXPECT_EQ(textOf(listed[0].note), readFile(made.folder / "backup.txt"));
  EXPECT_THAT(textsOf(compareTables(*openSource(data()), *openSource(made.folder / "ZkData.Mdb"))),
              IsEmpty());
}

TEST_F(BackupTest, BooksThatCannotBeReckonedAreBackedUpAllTheSame) {
  DbEngine().OpenDatabase(data()).Execute("drop table fa_DeprTransactions");
  const BackupNote note = backUp(order()).note;
  EXPECT_EQ(note.month, "2020-01");
  EXPECT_EQ(note.value, "");
}

TEST(BackupNoteText, IsKnownFromAnyOther) {
  BackupNote note{.account = "001", .label = "一\n二", .revision = 2, .cards = 3};
  note.data = {.bytes = 4096, .checksum = "ab", .rows = {{"fa_Cards", 3}}};
  const std::string text = textOf(note);
  ASSERT_TRUE(backupNoteOf(text));
  EXPECT_EQ(backupNoteOf(text)->data.rows, note.data.rows);
  EXPECT_EQ(backupNoteOf(text)->label, "一 二");
  for (std::size_t at = 0; at < text.size(); at += 5) {
    std::string changed = text;
    changed[at] ^= 1;
    EXPECT_FALSE(backupNoteOf(changed)) << at;
    EXPECT_FALSE(backupNoteOf(text.substr(0, at))) << at;
  }
}

/// Folders that look like backups of these months, one a day.
class PruningTest : public BackupTest {
 protected:
  void make(const std::string& name, const std::string& month, const std::string& source = "here") {
    const fs::path folder = backups() / name;
    fs::create_directories(folder);
    BackupNote note{.account = "001", .month = month, .source = source};
    note.time = day("2020-03-" + std::to_string(++day_));
    note.data = note.system = {.bytes = 1, .checksum = checksumOf("x")};
    for (const char* file : {"ZkData.Mdb", "ZkSystem.Mdb"}) writeFile(folder / file, "x");
    writeFile(folder / "backup.txt", textOf(note));
    if (source == "here") note_ = note;
  }

  BackupNote note_;
  int day_ = 0;
};

TEST_F(PruningTest, LeavesTheLastOfEachMonthAndWhatIsNotItsOwn) {
  for (const auto& [name, month] : std::vector<std::pair<const char*, const char*>>{
           {"a", "2020-01"}, {"b", "2020-01"}, {"c", "2020-02"}, {"d", "2020-02"}, {"e", "2020-02"}})
    make(name, month);
  make("other", "2020-01", "elsewhere");
  make("damaged", "2020-01");
  writeFile(backups() / "damaged/ZkData.Mdb", "xx");
  fs::create_directories(backups() / "mine/backup.txt");  // no note
  note_.month = "2020-02";
  EXPECT_THAT(pruneBackups(backups(), note_, 5).gone, IsEmpty());
  {
    const HeldBackup held(backups() / "a");
    EXPECT_THAT(pruneBackups(backups(), note_, 4).gone, IsEmpty());
  }
  EXPECT_THAT(pruneBackups(backups(), note_, 2).gone, ElementsAre(backups() / "a", backups() / "c"));
  EXPECT_THAT(pruneBackups(backups(), note_, 1).gone, ElementsAre(backups() / "d"));
  EXPECT_THAT(namesIn(backups()), ElementsAre("b", "damaged", "e", "mine", "other"));
}

TEST_F(BackupTest, IsRestoredOverWhatIsThereWhichIsKept) {
  mark("old");
  const fs::path backup = backUp(order()).folder;
  mark("new");
  constexpr uid_t kSomebody = 65534;
  const bool isPrivileged = geteuid() == 0;
  if (!onServer()) fs::permissions(data(), fs::perms(0660));
  if (!onServer() && isPrivileged) {
    ASSERT_EQ(chown(data().c_str(), kSomebody, kSomebody), 0);
  }
  const Restored restored = restoreBackup(restoring(backup, home / "set"));
  EXPECT_EQ(marks(), "old,old");
  EXPECT_THAT(textsOf(restored.problems), IsEmpty());
  EXPECT_THAT(textsOf(compareTables(*openSource(data()), *openSource(backup / "ZkData.Mdb"))), IsEmpty());
  ASSERT_TRUE(restored.kept);
  EXPECT_EQ(restored.kept->note.label, "before");
  EXPECT_EQ(marksIn(restored.kept->folder), "new,new");
  EXPECT_THAT(namesIn(home / "set"), ElementsAre("ZkData.Mdb", "ZkSystem.Mdb"));
  if (!onServer()) {
    struct stat found {};
    EXPECT_EQ(stat(data().c_str(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777, 0660U);
    EXPECT_EQ(found.st_uid, isPrivileged ? kSomebody : geteuid());
  }
  restoreBackup(restoring(backup, home / "another"));
  EXPECT_EQ(marksIn(home / "another"), "old,old") << "where there was none";
}

TEST_F(BackupTest, IsRestoredOntoAServer) {
  if (!onServer()) GTEST_SKIP() << "needs a server";
  const TestDatabase database("template0");
  mark("old");
  const fs::path backup = backUp(order()).folder;
  RestoreOrder there = restoring(backup, home / "there");
  there.server = database.conninfo();
  restoreBackup(there);
  EXPECT_EQ(marksIn(home / "there"), "old,old");
  EXPECT_EQ(errorOf([&] { restoreBackup(there); }), 5) << "it is there already";
  PostgreSqlLink(database.conninfo()).run("DROP SCHEMA zkthere_data, zkthere_system CASCADE");
  restoreBackup(restoring(backup, home / "there"));
  EXPECT_EQ(marksIn(home / "there"), "old,old") << "on a server that has lost it";
}

TEST_F(BackupTest, WhatIsNotWholeOrNotMeantIsRefused) {
  mark("old");
  const fs::path backup = backUp(order()).folder;
  mark("new");
  const std::vector<std::string> before = namesIn(home / "set");
  struct Case {
    const char* name;
    int number;
    std::function<void(const fs::path& copy)> change;
  };
  const auto flip = [](const fs::path& file) {
    std::string content = readFile(file);
    content[content.size() / 2] ^= 1;
    writeFile(file, content);
  };
  for (const Case& one : std::vector<Case>{
           {"changed note", 3343, [&](const fs::path& copy) { flip(copy / "backup.txt"); }},
           {"no note", 3343, [](const fs::path& copy) { fs::remove(copy / "backup.txt"); }},
           {"changed data", 3343, [&](const fs::path& copy) { flip(copy / "ZkData.Mdb"); }},
           {"changed system", 3343, [&](const fs::path& copy) { flip(copy / "ZkSystem.Mdb"); }},
           {"cut off", 3343, [](const fs::path& copy) { fs::resize_file(copy / "ZkData.Mdb", 8192); }},
           {"one file", 3343, [](const fs::path& copy) { fs::remove(copy / "ZkSystem.Mdb"); }},
           {"nothing", 3024, [](const fs::path& copy) { fs::remove_all(copy); }},
           {"another account", 5, [](const fs::path& copy) {
              BackupNote note = *backupNoteOf(readFile(copy / "backup.txt"));
              note.account = "002";
              writeFile(copy / "backup.txt", textOf(note));
            }}}) {
    const fs::path copy = home / "copy";
    fs::remove_all(copy);
    fs::copy(backup, copy);
    one.change(copy);
    EXPECT_EQ(errorOf([&] { restoreBackup(restoring(copy, home / "set")); }), one.number) << one.name;
    EXPECT_EQ(marks(), "new,new") << one.name;
    EXPECT_THAT(namesIn(home / "set"), ElementsAreArray(before)) << one.name;
  }
  EXPECT_EQ(errorOf([&] { restoreBackup(restoring(backup, backup)); }), 5) << "into a backup";
  RestoreOrder keptNowhere = restoring(backup, home / "set");
  keptNowhere.keepIn = home / "none/kept";
  EXPECT_THAT([&] { restoreBackup(keptNowhere); },
              testing::ThrowsMessage<RuntimeError>(HasSubstr("不能建立备份文件夹")));
  fs::create_directory(home / "elsewhere");
  for (const char* file : {"set/notes.txt", "set/ZkSystem.Mdb", "elsewhere/other.Mdb"}) {
    if (!fs::exists(home / file)) writeFile(home / file, "mine");
    const std::string content = readFile(home / file);
    EXPECT_EQ(errorOf([&] { restoreBackup(restoring(backup, home / file)); }), 5) << file;
    EXPECT_EQ(readFile(home / file), content) << "no account set's data file";
  }
  EXPECT_EQ(errorOf([&] { backUp({.data = backup / "ZkData.Mdb", .system = backup / "ZkSystem.Mdb"}); }), 5);
}

TEST_F(BackupTest, AnotherSetOfTheSameNumberIsReplacedOnlyWhereItIsMeant) {
  mark("old");
  RestoreOrder restoring = this->restoring(backUp(order()).folder, home / "set");
  mark("new");
  for (const char* column : {"cAcc_Name", "cUnitName"}) {
    const std::string name = "select " + std::string(column) + " from za_account";
    DbEngine().OpenDatabase(system()).Execute("update za_account set " + std::string(column) + "='别的'");
    restoring.renamed = false;
    EXPECT_THAT([&] { restoreBackup(restoring); }, testing::ThrowsMessage<RuntimeError>(testing::AllOf(
                                                       HasSubstr("别的"), HasSubstr("--renamed"))));
    EXPECT_EQ(marks(), "new,new");
    restoring.renamed = true;
    restoreBackup(restoring);
    EXPECT_EQ(marks(), "old,old");
    EXPECT_EQ(rowsOf(DbEngine().OpenDatabase(system()).OpenRecordset(name)).front().find("别的"),
              std::string::npos);
    mark("new");
  }
}

TEST_F(BackupTest, AnAccountSetThatIsOpenIsNotReplaced) {
  const fs::path backup = backUp(order()).folder;
  mark("new");
  for (const std::string& file : {data(), system()}) {
    const auto open = openDataFileForReading(file);
    EXPECT_EQ(errorOf([&] { restoreBackup(restoring(backup, home / "set")); }), 3045) << file;
  }
  {
    const JobLockAttempt job = lockForJob(data(), {.kind = 'm', .since = day("2020-1-1"), .user = "anna"});
    try {
      restoreBackup(restoring(backup, home / "set"));
      ADD_FAILURE() << "restored";
    } catch (const BusyWithJob& busy) {
      EXPECT_EQ(busy.holder.value_or(JobNote{}).user, "anna");
    }
  }
  EXPECT_EQ(marks(), "new,new");
}

TEST_F(BackupTest, FilesThatCannotBeReadAreKeptAsTheyAre) {
  if (onServer()) GTEST_SKIP() << "they are the server's";
  const fs::path backup = backUp(order()).folder;
  for (const bool isGone : {false, true}) {
    writeFile(data(), "no database");
    if (isGone) fs::remove(system());
    const Restored restored = restoreBackup(restoring(backup, home / "set"));
    EXPECT_FALSE(restored.kept);
    EXPECT_EQ(readFile(restored.keptAsIs / "ZkData.Mdb"), "no database");
    EXPECT_EQ(fs::exists(restored.keptAsIs / "ZkSystem.Mdb"), !isGone);
    EXPECT_THAT(textsOf(compareTables(*openSource(data()), *openSource(backup / "ZkData.Mdb"))), IsEmpty());
  }
  EXPECT_THAT(backupsIn(backups()).front().problem, HasSubstr("损坏"));
}

/// As somebody who may write in one folder alone.
int errorAsNobody(const std::function<void()>& work) {
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && setuid(65534) != 0) _exit(255);
    const int number = errorOf(work);
    _exit(number == 0 ? 0 : number == 3051 ? 1 : 2);
  }
  int status = 0;
  waitpid(child, &status, 0);
  return WEXITSTATUS(status);
}

TEST_F(BackupTest, IsReadFromAMediumThatCannotBeWritten) {
  const fs::path backup = backUp(order()).folder;
  for (const fs::path& folder : {home.path(), home / "set", backups(), backup})
    fs::permissions(folder, fs::perms(0555));
  for (const auto& entry : fs::recursive_directory_iterator(home.path()))
    if (entry.is_regular_file()) fs::permissions(entry.path(), fs::perms(0444));
  const fs::path open = home.path().string() + "-open";
  fs::create_directory(open);
  fs::permissions(open, fs::perms::all);
  EXPECT_EQ(errorAsNobody([&] { restoreBackup(restoring(backup, open / "set")); }), 0);
  EXPECT_EQ(errorAsNobody([&] { backUp(order()); }), onServer() ? 2 : 1) << "no right to be there";
  EXPECT_THAT(namesIn(backups()), ElementsAre(backup.filename().string()));
  EXPECT_THAT(
      textsOf(compareTables(*openSource(open / "set/ZkData.Mdb"), *openSource(backup / "ZkData.Mdb"))),
      IsEmpty());
  for (const fs::path& folder : {home.path(), home / "set", backups(), backup})
    fs::permissions(folder, fs::perms(0755));
  fs::remove_all(open);
}

/// What a process leaves that is killed between two steps of a replacement; whichever file is opened next,
/// both are the new ones then.
TEST_F(BackupTest, AReplacementThatWasCutShortIsBroughtToItsEnd) {
  if (onServer()) GTEST_SKIP() << "a transaction there";
  mark("new");
  const fs::path next = backUp(order()).folder;
  mark("old");
  fs::copy(home / "set", home / "old");
  for (const std::string opened : {"ZkData.Mdb", "ZkSystem.Mdb"}) {
    for (const std::size_t left : {2U, 1U, 0U}) {
      SCOPED_TRACE(opened + " " + std::to_string(left));
      fs::remove_all(home / "set");
      fs::copy(home / "old", home / "set");
      std::size_t number = 2;
      for (const char* name : {"ZkData.Mdb", "ZkSystem.Mdb"}) {
        const fs::path place = home / "set" / name;
        const bool isPrepared = number-- <= left;
        fs::copy_file(next / name, isPrepared ? fs::path(place).concat(".restored") : place,
                      fs::copy_options::overwrite_existing);
        if (isPrepared) writeFile(fs::path(place).concat("-wal"), "of what was there before");
      }
      writeFile(home / "set/zelkor-replacing", "ZkData.Mdb\nZkSystem.Mdb\nend\n");
      EXPECT_EQ(errorOf([&] { openDataFile(home / "set" / opened); }), 0);
      EXPECT_EQ(marks(), "new,new");
      EXPECT_THAT(namesIn(home / "set"), ElementsAre("ZkData.Mdb", "ZkSystem.Mdb"));
    }
  }
  // Before it was decided nothing has happened.
  mark("old");
  { Replacement(home / "set", {"ZkData.Mdb", "ZkSystem.Mdb"}).create("ZkData.Mdb", {}); }
  writeFile(home / "set/ZkData.Mdb.restored", "half");
  EXPECT_EQ(marks(), "old,old");
  restoreBackup(restoring(next, home / "set"));
  EXPECT_EQ(marks(), "new,new");
}

}  // namespace
}  // namespace zelkor::test
