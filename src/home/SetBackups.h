#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "depreciation/Books.h"
#include "store/settings/OpenMonth.h"
#include "transfer/backup/BackupNote.h"

namespace zelkor {

/// A whole backup of an account set.
struct SetBackup {
  std::filesystem::path folder;
  BackupNote note;
};

/// What lies in the usual place beside the data file and is of that account, the earliest first. Raises
/// nothing: a folder that cannot be read has none.
std::vector<SetBackup> backupsOf(const std::string& dataFile, const std::string& account);

/// The last one that was made while that month was open.
const SetBackup* lastOfMonth(const std::vector<SetBackup>& backups, int year, int month);

/// How many rows of a kind the books have more, or fewer, than a backup.
struct RowsSince {
  std::string_view caption;  // "卡片记录"
  long more = 0;             // negative: fewer
};

/// What has come to the books since the backup, as far as numbers of rows tell; empty for nothing.
std::vector<RowsSince> rowsSince(const BackupNote& note, Database& data);
/// "卡片记录 3 条、凭证分录 4 条"
std::string textOf(const std::vector<RowsSince>& rows);

/// The month that was closed last. Nothing where none was.
std::optional<OpenPeriod> closedBefore(const std::optional<OpenPeriod>& open);

}  // namespace zelkor
