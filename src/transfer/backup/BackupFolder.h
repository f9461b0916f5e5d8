#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "base/FileAccess.h"
#include "transfer/backup/BackupNote.h"

// A backup is a folder that holds both files of an account set and the note about them.
namespace zelkor {

inline constexpr const char* kBackupNoteName = "backup.txt";
inline constexpr const char* kBackedUpData = "ZkData.Mdb";
inline constexpr const char* kBackedUpSystem = "ZkSystem.Mdb";

/// Whether the folder is a backup, was meant to be one, or keeps the files of a damaged account set.
bool isBackup(const std::filesystem::path& folder);
/// A time as the names of folders hold it: "20200131-093000".
std::string stampOf(DateTime time);
/// What a folder with the files of a damaged account set is called.
std::string nameForDamaged(DateTime time);

struct ListedBackup {
  std::filesystem::path folder;
  BackupNote note;      // empty where it cannot be read
  std::string problem;  // a sentence; empty where nothing is wrong
};

/// How closely the files of a backup are looked at: by their sizes, or by reading all of them.
enum class BackupCheck : std::uint8_t { Sizes, Checksums };

ListedBackup readBackup(const std::filesystem::path& folder, BackupCheck check);
/// The backups in a folder, the earliest first; those that cannot be read before them. Error 3024 when it is
/// no folder that can be read.
std::vector<ListedBackup> backupsIn(const std::filesystem::path& folder,
                                    BackupCheck check = BackupCheck::Sizes);

/// Keeps a backup from being taken away while it is read.
class HeldBackup {
 public:
  explicit HeldBackup(const std::filesystem::path& folder);

 private:
  FileDescriptor lock_;
};

/// What came of making room: the folders that are gone, and why one is not.
struct Pruned {
  std::vector<std::filesystem::path> gone;
  std::string problem;
};

/// Takes away the earliest backups of the set that `note` is about until `keep` are left. The last one of a
/// month stays, and what somebody reads.
Pruned pruneBackups(const std::filesystem::path& folder, const BackupNote& note, std::size_t keep);

/// A folder with a backup that is being made, under a name that no list shows. What is in it goes with the
/// object unless it was given its name.
class NewBackupFolder {
 public:
  /// `above` has to be there; what killed processes have left in it goes. Errors as `systemError`.
  NewBackupFolder(std::filesystem::path above, const FileAccess& files, const std::filesystem::path& like);
  NewBackupFolder(const NewBackupFolder&) = delete;
  NewBackupFolder& operator=(const NewBackupFolder&) = delete;
  ~NewBackupFolder();

  const std::filesystem::path& path() const { return path_; }
  /// Forces it to disk and names it, with a number after it where the name is taken; gives its path.
  std::filesystem::path giveName(const std::string& name);

 private:
  bool make();

  std::filesystem::path above_;
  std::filesystem::path path_;
  FileDescriptor lock_;
};

}  // namespace zelkor
