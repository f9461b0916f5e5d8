#include "transfer/backup/BackupFolder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <map>
#include <system_error>
#include <tuple>

#include "base/FileContent.h"
#include "base/RuntimeError.h"
#include "base/SystemError.h"
#include "transfer/backup/Checksum.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kUnfinishedEnding = ".unfinished";
constexpr std::string_view kDamagedBeginning = "damaged_";

[[noreturn]] void fail(const fs::path& folder, int failure) {
  throw systemError("不能写备份文件夹“" + folder.string() + "”", failure);
}

/// Nothing where it cannot be read.
std::string noteIn(const fs::path& folder) {
  try {
    return contentOf((folder / kBackupNoteName).string());
  } catch (const RuntimeError&) {
    return {};
  }
}

std::string problemOf(const fs::path& file, const BackedUpFile& noted, BackupCheck check) {
  std::error_code failure;
  const auto size = fs::file_size(file, failure);
  const std::string name = file.filename().string();
  if (failure) return "缺少文件 " + name;
  if (size != noted.bytes) return "文件 " + name + " 的大小与清单不符";
  try {
    if (check == BackupCheck::Checksums && checksumOfFile(file) != noted.checksum)
      return "文件 " + name + " 的内容与清单不符";
  } catch (const RuntimeError& error) {
    return error.what();
  }
  return {};
}

/// A lock that goes with the process; none where somebody else has one that excludes it. A file system
/// without locks gives the folder all the same.
FileDescriptor locked(const fs::path& folder, int how) {
  FileDescriptor file(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (file && ::flock(file.get(), how | LOCK_NB) != 0 && errno == EWOULDBLOCK) return FileDescriptor();
  return file;
}

bool isUnfinished(const fs::path& folder) {
  const std::string name = folder.filename().string();
  return name.starts_with('.') && name.ends_with(kUnfinishedEnding);
}

bool isOfDamaged(const fs::path& folder) {
  return folder.filename().string().starts_with(kDamagedBeginning);
}

/// Whether nobody can be making that backup any more. Where the file system has no locks its age has to tell.
bool isLeftOver(const FileDescriptor& lock) {
  constexpr std::time_t kNobodyTakesThatLong = 24L * 60 * 60;  // in seconds
  if (!lock) return false;
  if (::flock(lock.get(), LOCK_EX | LOCK_NB) == 0) return true;
  struct stat folder {};
  return ::fstat(lock.get(), &folder) == 0 && folder.st_mtime + kNobodyTakesThatLong < std::time(nullptr);
}

void removeLeftOver(const fs::path& above) {
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(above, ignored)) {
    if (!isUnfinished(entry.path())) continue;
    const FileDescriptor lock = locked(entry.path(), LOCK_EX);
    if (isLeftOver(lock)) fs::remove_all(entry.path(), ignored);
  }
}

/// Those who may read the files may enter the folder, and write in it who may write them; nobody who may not
/// do so in the folder of the original.
void shareFolder(const FileDescriptor& folder, const FileAccess& files, const fs::path& like) {
  struct stat original {};
  if (::stat(like.c_str(), &original) != 0) return;
  const bool isGiven = files.group == static_cast<gid_t>(-1) ||
                       ::fchown(folder.get(), static_cast<uid_t>(-1), files.group) == 0;
  mode_t mode = files.mode & (S_IRWXG | S_IRWXO);
  if (!isGiven) mode &= ~static_cast<mode_t>(S_IRWXG);
  mode |= (mode & (S_IRGRP | S_IROTH)) >> 2U;  // to read is to enter
  giveToOwner(folder, files);
  ::fchmod(folder.get(), S_IRWXU | (mode & original.st_mode));
}

bool isOfSameSet(const BackupNote& one, const BackupNote& other) {
  return one.account == other.account && one.machine == other.machine && one.source == other.source;
}

bool isEarlier(const ListedBackup& one, const ListedBackup& other) {
  const std::string a = one.folder.filename().string();
  const std::string b = other.folder.filename().string();
  return std::tuple(one.note.time, a.size(), a) < std::tuple(other.note.time, b.size(), b);
}

/// The greatest number behind the name of a folder, 1 for the name alone; 0 where none has it.
int lastNumberOf(const fs::path& above, const std::string& name) {
  int last = 0;
  std::error_code ignored;
  for (const fs::directory_entry& entry : fs::directory_iterator(above, ignored)) {
    const std::string other = entry.path().filename().string();
    if (other == name) last = std::max(last, 1);
    if (other.starts_with(name + "-")) last = std::max(last, std::atoi(other.c_str() + name.size() + 1));
  }
  return last;
}

/// Out of sight at once, then away: what a killed process leaves is no half backup.
void takeAway(const fs::path& folder) {
  const fs::path hidden =
      folder.parent_path() / ("." + folder.filename().string() + std::string(kUnfinishedEnding));
  if (::rename(folder.c_str(), hidden.c_str()) != 0) {
    if (errno == ENOENT) return;  // somebody else has done it
    fail(folder, errno);
  }
  std::error_code failure;
  fs::remove_all(hidden, failure);
  if (failure) fail(hidden, failure.value());
}

}  // namespace

bool isBackup(const fs::path& folder) {
  std::error_code ignored;
  return fs::exists(folder / kBackupNoteName, ignored) || isUnfinished(folder) || isOfDamaged(folder);
}

std::string stampOf(DateTime time) {
  std::string stamp = time.toIso();
  std::erase_if(stamp, [](char c) { return c == '-' || c == ':'; });
  std::ranges::replace(stamp, ' ', '-');
  return stamp;
}

std::string nameForDamaged(DateTime time) {
  return std::string(kDamagedBeginning) + stampOf(time);
}

ListedBackup readBackup(const fs::path& folder, BackupCheck check) {
  ListedBackup backup{folder, {}, {}};
  const auto note = backupNoteOf(noteIn(folder));
  if (!note) {
    backup.problem = isOfDamaged(folder) ? "恢复前已损坏的文件，没有清单"
                                         : std::string("清单 ") + kBackupNoteName + " 已损坏或不能读取";
    return backup;
  }
  backup.note = *note;
  backup.problem = problemOf(folder / kBackedUpData, note->data, check);
  if (backup.problem.empty()) backup.problem = problemOf(folder / kBackedUpSystem, note->system, check);
  return backup;
}

std::vector<ListedBackup> backupsIn(const fs::path& folder, BackupCheck check) {
  std::error_code failure;
  std::vector<ListedBackup> backups;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder, failure))
    if (!isUnfinished(entry.path()) && isBackup(entry.path()))
      backups.push_back(readBackup(entry.path(), check));
  if (failure)
    throw RuntimeError(ErrorNumber::FileNotFound,
                       "不能读文件夹“" + folder.string() + "”：" +
                           (failure.value() == ENOENT ? "没有这个文件夹" : systemReason(failure.value())));
  std::ranges::sort(backups, isEarlier);
  return backups;
}

HeldBackup::HeldBackup(const fs::path& folder) : lock_(locked(folder, LOCK_SH)) {}

Pruned pruneBackups(const fs::path& folder, const BackupNote& note, std::size_t keep) {
  std::vector<ListedBackup> own = backupsIn(folder);
  std::erase_if(
      own, [&](const ListedBackup& one) { return !one.problem.empty() || !isOfSameSet(one.note, note); });
  std::map<std::string, fs::path> lastOfMonth;
  for (const ListedBackup& one : own) lastOfMonth[one.note.month] = one.folder;
  Pruned pruned;
  std::size_t left = own.size();
  for (const ListedBackup& one : own) {
    if (left <= keep) break;
    --left;
    if (lastOfMonth[one.note.month] == one.folder) continue;
    try {
      const FileDescriptor lock = locked(one.folder, LOCK_EX);
      if (!lock) continue;  // somebody reads it
      takeAway(one.folder);
      pruned.gone.push_back(one.folder);
    } catch (const RuntimeError& error) {
      pruned.problem = error.what();
    }
  }
  return pruned;
}

NewBackupFolder::NewBackupFolder(fs::path above, const FileAccess& files, const fs::path& like)
    : above_(std::move(above)) {
  removeLeftOver(above_);
  constexpr int kMostAttempts = 10;
  for (int attempt = 1; !make(); ++attempt)
    if (attempt == kMostAttempts) fail(above_, errno);
  shareFolder(lock_, files, like);
}

// Another process that looks for what is left over can be quicker to lock it, and then has taken it away.
bool NewBackupFolder::make() {
  static std::atomic<unsigned> number = 0;
  const auto moment = std::chrono::steady_clock::now().time_since_epoch().count();
  path_ = above_ / ("." + std::to_string(::getpid()) + "-" + std::to_string(++number) + "-" +
                    std::to_string(moment) + std::string(kUnfinishedEnding));
  if (::mkdir(path_.c_str(), S_IRWXU) != 0) {
    path_.clear();
    if (errno == EEXIST) return false;
    fail(above_, errno);
  }
  lock_ = locked(path_, LOCK_EX);
  return lock_ && ::access(path_.c_str(), F_OK) == 0;
}

NewBackupFolder::~NewBackupFolder() {
  std::error_code ignored;
  if (!path_.empty()) fs::remove_all(path_, ignored);
}

fs::path NewBackupFolder::giveName(const std::string& name) {
  constexpr int kMostOfOneName = 1000;
  if (!forceToDisk(path_)) fail(path_, errno);
  // A name that an earlier one of the same second has left free would put this one before a later one.
  for (int number = lastNumberOf(above_, name) + 1; number <= kMostOfOneName; ++number) {
    const fs::path named = above_ / (number == 1 ? name : name + "-" + std::to_string(number));
    if (::rename(path_.c_str(), named.c_str()) == 0) {
      path_.clear();
      if (!forceToDisk(above_)) fail(named, errno);
      return named;
    }
    if (errno != EEXIST && errno != ENOTEMPTY && errno != ENOTDIR) fail(named, errno);
  }
  fail(above_, EEXIST);
}

}  // namespace zelkor
