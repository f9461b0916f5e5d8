#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "transfer/backup/BackupFolder.h"
#include "transfer/SetSource.h"

namespace zelkor {

/// What is to be backed up, and how.
struct BackupOrder {
  std::string data;  // the files of the account set
  std::string system;
  std::string account = {};       // its number; empty: that of all that the system file has
  std::filesystem::path to = {};  // where backups are kept; empty: `backupsBeside` the data
  std::string label = {};         // a line of text
  std::size_t keep = 0;           // how many may stay; 0: all
  std::string program = {};       // the version of the program
  DateTime now = {};
};

struct MadeBackup {
  std::filesystem::path folder;
  BackupNote note;
  std::vector<TransferProblem> problems;  // what could not be kept as it is, of a set on a server
  Pruned pruned;
};

/// The numbers of the accounts in a system file, between them `kBetweenAccounts`. Errors as openDataFile's.
std::string accountsIn(const std::string& systemFile);

/// What the account set of a system file is called, "“name”（unit）", where that is not what the one of a
/// backup with its number is called. Empty otherwise, and where nobody can say.
std::string otherNameThan(const BackupNote& backup, const std::string& systemFile);
/// The same for the backup's own set.
std::string nameOfSet(const BackupNote& note);

/// A sentence for who is asked whether to restore it all the same.
std::string remarkOnName(const BackupNote& backup, const std::string& otherName);

/// Where backups of a data file are kept unless another place is said.
std::filesystem::path backupsBeside(const std::filesystem::path& data);

/// Makes a backup of an account set, in files or on a server, while others work on it, and reads it back. The
/// folder `to` is made when only it is missing. Then takes earlier ones away, where a number is to be kept.
/// What fails leaves nothing behind. Errors: those of openDataFile, 3343 for what is no account set or
/// damaged, as `systemError` when nothing can be written.
MadeBackup backUp(const BackupOrder& order);
/// The same of files that are open already.
MadeBackup backUp(SetSource& source, const BackupOrder& order);

}  // namespace zelkor
