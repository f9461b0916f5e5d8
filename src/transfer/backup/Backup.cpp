#include "transfer/backup/Backup.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <system_error>

#include "base/EndSignals.h"
#include "base/Format.h"
#include "base/RuntimeError.h"
#include "base/SystemError.h"
#include "depreciation/BookFigures.h"
#include "store/accountset/BooksRevision.h"
#include "store/accountset/DataFile.h"
#include "store/accountset/ReadingDatabase.h"
#include "store/settings/OpenMonth.h"
#include "transfer/backup/Checksum.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

Database openForReading(const fs::path& file) {
  return openDatabaseForReading(file.string());
}

void requireSet(Database& data, Database& system, const BackupOrder& order) {
  if (data.HasTable("fa_Cards") && data.HasTable("AccInformation") && system.HasTable("za_account") &&
      system.HasTable("ZA_Period"))
    return;
  throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                     "文件“" + order.data + "”和“" + order.system + "”不是一个账套的数据文件和系统文件。");
}

std::string numbersOf(Database& system) {
  std::string all;
  Recordset accounts = system.OpenRecordset("select cAcc_id from za_account order by cAcc_id");
  for (; !accounts.Eof(); accounts.MoveNext())
    all += (all.empty() ? "" : std::string(1, kBetweenAccounts)) + accounts.TextOrEmpty("cAcc_id");
  return all;
}

/// Whose set it is, as the first of the accounts says that are meant; gives its number.
std::string describeOwner(BackupNote& note, Database& system) {
  if (note.account.empty()) note.account = numbersOf(system);
  const std::string first = note.account.substr(0, note.account.find(kBetweenAccounts));
  Recordset accounts = system.OpenRecordset("select cAcc_id, cAcc_Name, cUnitName from za_account");
  for (; !accounts.Eof(); accounts.MoveNext()) {
    if (accounts.TextOrEmpty("cAcc_id") != first) continue;
    note.name = accounts.TextOrEmpty("cAcc_Name");
    note.unit = accounts.TextOrEmpty("cUnitName");
  }
  return first;
}

/// What the workbench shows on that day. Books whose tables do not allow it are backed up all the same,
/// without these figures.
void describeFigures(BackupNote& note, Books books) {
  try {
    const BookFigures figures = readFigures(books, tallyCards(books, TallyDepth::Whole));
    note.cards = figures.cardsInUse;
    note.value = Format(figures.value, "0.00");
    note.accumulated = Format(figures.accumulated, "0.00");
  } catch (const RuntimeError& error) {
    if (error.is(ErrorNumber::DiskFull)) throw;
  }
}

/// Reads what the note says of the account set from the copies: as of the end of the open month, of December
/// once that is closed, and of now where no month ever was open.
void describeSet(BackupNote& note, const Database& data, const Database& system) {
  Books books{data, system, {}, note.time, {}};
  books.account = describeOwner(note, books.system);
  if (const auto lastDay = lastDayOfOpenMonth(books.data, books.system, books.account)) {
    note.month = Format(*lastDay, "yyyy-mm");
    books.date = *lastDay;
  } else if (const auto closed = openPeriod(books.data, books.system, books.account)) {
    books.date = DateTime::fromParts(closed->year, 12, 31).value_or(note.time);
  }
  describeFigures(note, std::move(books));
}

BackedUpFile described(EngineSource& source, const fs::path& copy) {
  BackedUpFile file;
  for (const TableDef& table : source.tables())
    file.rows.emplace_back(table.info.name, source.countRows(table));
  std::ranges::sort(file.rows);
  file.bytes = fs::file_size(copy);
  file.checksum = checksumOfFile(copy);
  return file;
}

std::string machineName() {
  std::array<char, 256> name{};
  return ::gethostname(name.data(), name.size() - 1) == 0 ? name.data() : "";
}

/// A number as the name of a folder can hold it.
std::string nameOf(const BackupNote& note) {
  std::string account = note.account;
  std::ranges::replace_if(
      account, [](char c) { return static_cast<unsigned char>(c) <= ' ' || c == '/' || c == '.'; }, '_');
  const std::string month = note.month.empty() ? "0000-00" : note.month;
  return account + "_" + month + "_" + stampOf(note.time);
}

void writeNote(const fs::path& file, const BackupNote& note, const FileAccess& access) {
  const std::string text = textOf(note);
  FileDescriptor written = createFile(file, access);
  errno = written ? ENOSPC : errno;  // of a write that was cut short
  if (!written || ::write(written.get(), text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
      ::fsync(written.get()) != 0 || !written.close())
    throw systemError("不能写文件“" + file.string() + "”", errno);
}

/// Copies both files into the folder and gives the note about them, without checksums.
BackupNote copySet(SetSource& source, const BackupOrder& order, const fs::path& folder,
                   std::vector<TransferProblem>& problems) {
  const auto copy = [&](SetPart part, const std::string& original, const char* name) {
    const auto more = source.copy(part, folder / name, accessOf(original));
    problems.insert(problems.end(), more.begin(), more.end());
    goOnUnlessSignalled();
  };
  copy(SetPart::Data, order.data, kBackedUpData);
  copy(SetPart::System, order.system, kBackedUpSystem);
  Database data = openForReading(folder / kBackedUpData);
  Database system = openForReading(folder / kBackedUpSystem);
  requireSet(data, system, order);
  BackupNote note{.account = order.account,
                  .time = order.now,
                  .label = order.label,
                  .program = order.program,
                  .machine = machineName(),
                  .source = realPathOf(order.data).string(),
                  .revision = revisionOf(source.of(SetPart::Data).engine())};
  describeSet(note, data, system);
  return note;
}

fs::path folderFor(const BackupOrder& order) {
  fs::path folder = order.to.empty() ? backupsBeside(order.data) : order.to;
  try {
    const bool isNew = makeFolder(folder);
    if (isNew && order.to.empty())  // whoever keeps the set lists and restores what lies beside it
      giveToOwner(FileDescriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC)),
                  accessOf(order.data));
  } catch (const fs::filesystem_error& error) {
    throw systemError("不能建立备份文件夹“" + folder.string() + "”", error.code().value());
  }
  return folder;
}

MadeBackup makeBackup(SetSource& source, const BackupOrder& order) {
  const fs::path above = folderFor(order);
  const FileAccess access = accessOf(order.data);
  NewBackupFolder folder(above, access, folderOf(order.data));
  MadeBackup made;
  made.note = copySet(source, order, folder.path(), made.problems);
  made.note.data = described(source.of(SetPart::Data), folder.path() / kBackedUpData);
  made.note.system = described(source.of(SetPart::System), folder.path() / kBackedUpSystem);
  source.end();
  writeNote(folder.path() / kBackupNoteName, made.note, access);
  made.folder = folder.giveName(nameOf(made.note));
  if (order.keep > 0) made.pruned = pruneBackups(above, made.note, order.keep);
  return made;
}

void requireNoBackup(const BackupOrder& order) {
  if (!isBackup(folderOf(order.data))) return;
  throw RuntimeError(ErrorNumber::InvalidProcedureCall,
                     "“" + order.data + "”本身是一个备份；请先用 zelkorctl restore 把它恢复为账套。");
}

}  // namespace

std::string accountsIn(const std::string& systemFile) {
  Database system = openForReading(systemFile);
  return numbersOf(system);
}

std::string nameOfSet(const BackupNote& note) {
  return "“" + note.name + "”" + (note.unit.empty() ? "" : "（" + note.unit + "）");
}

std::string otherNameThan(const BackupNote& backup, const std::string& systemFile) {
  try {
    Database system = openForReading(systemFile);
    BackupNote there{.account = backup.account};
    describeOwner(there, system);
    const bool isKnown = !there.name.empty() || !there.unit.empty();
    const bool isSame = there.name == backup.name && there.unit == backup.unit;
    return isKnown && !isSame ? nameOfSet(there) : std::string();
  } catch (const RuntimeError&) {
    return {};
  }
}

std::string remarkOnName(const BackupNote& backup, const std::string& otherName) {
  return "账套号相同，名称或使用单位不同：现在是" + otherName + "，备份是" + nameOfSet(backup) + "。";
}

fs::path backupsBeside(const fs::path& data) {
  return folderOf(data) / "backups";
}

MadeBackup backUp(const BackupOrder& order) {
  requireNoBackup(order);
  SetSource source(openDataFileForReading(order.data), openDataFileForReading(order.system));
  return backUp(source, order);
}

MadeBackup backUp(SetSource& source, const BackupOrder& order) {
  try {
    return makeBackup(source, order);
  } catch (const RuntimeError& error) {
    if (!error.is(ErrorNumber::DiskFull)) throw;
    throw RuntimeError(ErrorNumber::DiskFull, "磁盘空间不足，备份没有完成；不完整的备份已清除。");
  } catch (const fs::filesystem_error& error) {
    throw systemError("不能备份“" + order.data + "”", error.code().value());
  }
}

}  // namespace zelkor
