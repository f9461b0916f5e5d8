#include "transfer/backup/Restore.h"

#include <algorithm>

#include "base/EndSignals.h"
#include "base/RuntimeError.h"
#include "base/SystemError.h"
#include "base/Text.h"
#include "store/accountset/DataFile.h"
#include "store/accountset/NewFile.h"
#include "store/accountset/Replacement.h"
#include "store/engine/postgresql/ServerFile.h"
#include "store/engine/sqlite/SqliteFileHold.h"
#include "transfer/backup/Checksum.h"
#include "transfer/backup/RestorePlace.h"
#include "transfer/NewTarget.h"
#include "transfer/ServerReplacement.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void refuse(const std::string& reason) {
  throw RuntimeError(ErrorNumber::InvalidProcedureCall, reason);
}

[[noreturn]] void refuseBackup(const fs::path& folder, const std::string& problem) {
  throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                     "备份“" + folder.string() + "”不能恢复：" + problem + "。");
}

ListedBackup wholeBackup(const fs::path& folder, BackupCheck check) {
  if (!fs::exists(folder))
    throw RuntimeError(ErrorNumber::FileNotFound, "找不到备份“" + folder.string() + "”。");
  if (!isBackup(folder)) refuseBackup(folder, std::string("没有清单 ") + kBackupNoteName);
  ListedBackup backup = readBackup(folder, check);
  if (!backup.problem.empty()) refuseBackup(folder, backup.problem);
  return backup;
}

std::unique_ptr<Engine> openAlone(const fs::path& file) {
  try {
    return openDataFileAlone(file.string());
  } catch (const RuntimeError& error) {
    if (!error.is(ErrorNumber::FileLocked)) throw;
    throw RuntimeError(ErrorNumber::FileLocked,
                       "账套“" + file.string() + "”正被打开，不能恢复：请先退出所有使用它的程序。");
  }
}

/// One restore, from its checks to its end.
class Restoring {
 public:
  explicit Restoring(const RestoreOrder& order)
      : order_(order), held_(order.backup), place_(restorePlaceOf(order.target)) {}

  Restored run();

 private:
  void intoFiles();
  void ontoServer();
  void makeServerFiles();
  void lock();
  void keepWhatIsThere();
  void keepDamaged();
  void keepSoundOrDamaged();
  void prepare(const Replacement& replacement, const fs::path& target, const char* name,
               const std::string& checksum);
  BackupOrder orderForKept() const;
  void requireSameAccount() const;

  const RestoreOrder& order_;
  HeldBackup held_;
  RestorePlace place_;
  Restored restored_;
  std::optional<Unfinished> folder_;
  std::unique_ptr<JobLock> lock_;
  std::unique_ptr<SetSource> before_;  // nobody else has it open
  std::vector<FileDescriptor> holds_;  // of damaged files
};

Restored Restoring::run() {
  restored_.note = wholeBackup(order_.backup, BackupCheck::Sizes).note;
  restored_.data = place_.data;
  const bool onServer = !order_.server.empty() || (place_.hasData() && namesServer(place_.data.string()));
  if (onServer) {
    ontoServer();
  } else {
    intoFiles();
  }
  return std::move(restored_);
}

void Restoring::lock() {
  JobLockAttempt attempt = lockForJob(place_.data.string(), order_.note);
  if (!attempt.lock) throw BusyWithJob{attempt.holder};
  lock_ = std::move(attempt.lock);
}

BackupOrder Restoring::orderForKept() const {
  return {.data = place_.data.string(),
          .system = place_.system.string(),
          .account = {},
          .to = order_.keepIn,
          .label = order_.keptLabel,
          .program = order_.program,
          .now = order_.note.since};
}

void Restoring::requireSameAccount() const {
  std::string there;
  try {
    there = accountsIn(place_.system.string());
  } catch (const RuntimeError&) {
    return;  // nobody can say whose it was
  }
  const std::vector<std::string> accounts = Split(there, kBetweenAccounts);
  const std::string& account = restored_.note.account;
  if (there.empty()) return;
  if (there != account && std::ranges::find(accounts, account) == accounts.end())
    refuse("目标“" + place_.folder.string() + "”是账套 " + there + "，备份是账套 " + account +
           "：请恢复到新的目录。");
  if (order_.renamed) return;
  const std::string name = otherNameThan(restored_.note, place_.system.string());
  if (name.empty()) return;
  refuse("目标“" + place_.folder.string() + "”的账套 " + account + " 是" + name + "，备份是" +
         nameOfSet(restored_.note) +
         "：账套号相同而名称或使用单位不同。确是同一个账套、只是改过名称时，加上 --renamed "
         "再恢复；否则请恢复到新的目录。");
}

void Restoring::keepWhatIsThere() {
  before_ = std::make_unique<SetSource>(openAlone(place_.data), openAlone(place_.system));
  restored_.kept = backUp(*before_, orderForKept());
}

/// What cannot be read as an account set is kept file by file.
void Restoring::keepDamaged() {
  before_.reset();
  for (const fs::path& file : {place_.data, place_.system})
    if (fs::exists(file)) holds_.push_back(holdSqliteFile(file.string()));
  const fs::path in = order_.keepIn.empty() ? backupsBeside(place_.data) : order_.keepIn;
  restored_.keptAsIs = keepFilesAsTheyAre(place_, in, order_.note.since);
}

void Restoring::keepSoundOrDamaged() {
  try {
    keepWhatIsThere();
  } catch (const RuntimeError& error) {
    const bool lacksFile = error.is(ErrorNumber::FileNotFound) && !before_;  // not the place for the backup
    if (!error.is(ErrorNumber::UnrecognizedFormat) && !lacksFile) throw;
    keepDamaged();
  }
}

void Restoring::prepare(const Replacement& replacement, const fs::path& target, const char* name,
                        const std::string& checksum) {
  const fs::path original = order_.backup / name;
  const FileAccess access = accessOf(fs::exists(target) ? target : original);
  const FileDescriptor file = replacement.create(target.filename().string(), access);
  if (copyWithChecksum(original, file) != checksum)
    refuseBackup(order_.backup, std::string("文件 ") + name + " 的内容与清单不符");
}

void Restoring::intoFiles() {
  if (makeFolder(place_.folder)) folder_.emplace(place_.folder);
  finishReplacement(place_.data);
  lock();  // first: who opens a file to look at it keeps another one from having it alone
  if (place_.hasSystem()) requireSameAccount();
  const std::string data = place_.data.filename().string();
  const std::string system = place_.system.filename().string();
  Replacement replacement(place_.folder, {data, system});
  prepare(replacement, place_.data, kBackedUpData, restored_.note.data.checksum);
  prepare(replacement, place_.system, kBackedUpSystem, restored_.note.system.checksum);
  for (const std::string& name : {data, system})  // not those of a newer program
    openDataFileForReading(replacement.prepared(name).string());
  if (!place_.isNew()) keepSoundOrDamaged();
  goOnUnlessSignalled();
  replacement.carryOut();
  if (folder_) folder_->keep();
}

void Restoring::makeServerFiles() {
  if (!place_.isNew()) refuse("“" + place_.folder.string() + "”中已有账套；恢复到其中时不要给出 --server。");
  requireNoPassword(order_.server);
  const FileAccess access = accessWithin(place_.folder);
  NewFile data(place_.data, access);
  NewFile system(place_.system, access);
  for (const auto& [file, path] : {std::pair(&data, place_.data), std::pair(&system, place_.system)}) {
    const ServerFile there{order_.server, schemaFor(path)};
    requireSchemaName(there.schema);
    if (hasSchema(order_.server, there.schema))
      throw RuntimeError(ErrorNumber::DatabaseAlreadyExists,
                         "服务器上已有 '" + there.schema + "'，不能在此处建立账套。");
    there.write(file->temporary());
  }
  giveNames(data, system);
}

// The files are named before the server keeps anything: what a kill leaves without it is restored into again.
void Restoring::ontoServer() {
  wholeBackup(order_.backup, BackupCheck::Checksums);
  const bool isNew = !order_.server.empty();
  if (isNew && makeFolder(place_.folder)) folder_.emplace(place_.folder);
  if (isNew) makeServerFiles();
  Unfinished dataFile(isNew ? place_.data : fs::path());
  Unfinished systemFile(isNew ? place_.system : fs::path());
  const ServerFile data = ServerFile::read(place_.data);
  const ServerFile system = ServerFile::read(place_.system);
  if (data.conninfo != system.conninfo)
    refuse("数据文件和系统文件所指的服务器写法不同，不能一起替换：conninfo 应完全相同。");
  const bool hasData = hasSchema(data.conninfo, data.schema);
  if (hasData != hasSchema(system.conninfo, system.schema))
    refuse("服务器上只有 '" + data.schema + "' 和 '" + system.schema + "' 中的一个，不能一起替换。");
  if (hasData) {
    lock();
    requireSameAccount();
    keepWhatIsThere();
  }
  const auto newData = openSource(order_.backup / kBackedUpData);
  const auto newSystem = openSource(order_.backup / kBackedUpSystem);
  goOnUnlessSignalled();
  restored_.problems = replaceOnServer(data.conninfo, {{data.schema, *newData}, {system.schema, *newSystem}});
  for (Unfinished* path : {&dataFile, &systemFile}) path->keep();
  if (folder_) folder_->keep();
}

}  // namespace

Restored restoreBackup(const RestoreOrder& order) {
  try {
    return Restoring(order).run();
  } catch (const fs::filesystem_error& error) {
    throw systemError("不能恢复到“" + order.target.string() + "”", error.code().value());
  }
}

}  // namespace zelkor
