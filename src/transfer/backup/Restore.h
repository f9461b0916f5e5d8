#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "store/engine/JobLock.h"
#include "transfer/backup/Backup.h"

namespace zelkor {

/// What is to be restored, and where.
struct RestoreOrder {
  std::filesystem::path backup;
  std::filesystem::path target;       // the folder of the account set, or its data file; or a new folder
  std::string server = {};            // a new account set lies on the server that these words describe
  std::filesystem::path keepIn = {};  // where what was there is kept; empty: `backupsBeside` the target
  std::string keptLabel = {};         // the label of that backup
  bool renamed = false;               // the set there may have another name or unit than the backup's
  JobNote note = {};                  // what others are told while it lasts
  std::string program = {};
};

struct Restored {
  BackupNote note;
  std::filesystem::path data;
  std::optional<MadeBackup> kept;         // what was there before
  std::filesystem::path keptAsIs;         // its files, where they were damaged
  std::vector<TransferProblem> problems;  // what a server cannot keep as it was
};

/// A job of the account set is at work.
struct BusyWithJob {
  std::optional<JobNote> holder;
};

/// Puts both files of a backup in the place of those of an account set, in one step: a process that is killed
/// leaves what was there before, or what was in the backup, at the latest when it is next opened. What was
/// there is backed up first. The backup is only read, and may lie on a medium that cannot be written.
///
/// Beside a server the content of both schemas is replaced, in one transaction.
///
/// Throws BusyWithJob; error 3045 when somebody has the account set open, 3343 for a backup that is not
/// whole, 5 for one of another account set, by its number or
/// by what it is called, as `systemError` when something cannot be written.
Restored restoreBackup(const RestoreOrder& order);

}  // namespace zelkor
