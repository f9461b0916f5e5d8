#include "home/SetBackups.h"

#include <algorithm>
#include <array>

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/engine/Statement.h"
#include "transfer/backup/Backup.h"
#include "transfer/backup/BackupFolder.h"

namespace zelkor {
namespace {

struct CountedTable {
  std::string_view table;
  std::string_view caption;
};
constexpr std::array<CountedTable, 4> kCounted{{{"fa_Cards", "卡片记录"},
                                                {"fa_Vouchers", "变动单"},
                                                {"fa_ZWVouchers", "待制单分录"},
                                                {"GL_accvouch", "凭证分录"}}};

bool isOfAccount(const BackupNote& note, const std::string& account) {
  const std::vector<std::string> accounts = Split(note.account, kBetweenAccounts);
  return std::ranges::find(accounts, account) != accounts.end();
}

long rowsIn(const BackedUpFile& file, std::string_view table) {
  for (const auto& [name, rows] : file.rows)
    if (asciiLower(name) == asciiLower(table)) return static_cast<long>(rows);
  return 0;
}

}  // namespace

std::vector<SetBackup> backupsOf(const std::string& dataFile, const std::string& account) {
  std::vector<SetBackup> found;
  try {
    for (ListedBackup& one : backupsIn(backupsBeside(dataFile)))
      if (one.problem.empty() && isOfAccount(one.note, account))
        found.push_back({std::move(one.folder), std::move(one.note)});
  } catch (const RuntimeError&) {
    // No such folder: no backup was made yet.
  }
  return found;
}

const SetBackup* lastOfMonth(const std::vector<SetBackup>& backups, int year, int month) {
  const auto first = DateTime::fromParts(year, month, 1);
  if (!first) return nullptr;
  const SetBackup* last = nullptr;
  for (const SetBackup& one : backups)
    if (one.note.month == Format(*first, "yyyy-mm")) last = &one;
  return last;
}

std::vector<RowsSince> rowsSince(const BackupNote& note, Database& data) {
  std::vector<RowsSince> since;
  for (const auto& [table, caption] : kCounted) {
    const auto now = static_cast<long>(
        data.OpenRecordset(sql("select count(*) as n from ", table)).Fields("n").numberOrZero());
    const long more = now - rowsIn(note.data, table);
    if (more != 0) since.push_back({caption, more});
  }
  return since;
}

std::string textOf(const std::vector<RowsSince>& rows) {
  std::string text;
  for (const RowsSince& one : rows)
    text +=
        sql(text.empty() ? "" : "、", one.caption, one.more > 0 ? " " : " 少了 ", std::abs(one.more), " 条");
  return text;
}

std::optional<OpenPeriod> closedBefore(const std::optional<OpenPeriod>& open) {
  constexpr int kMonths = 12;
  if (!open) return std::nullopt;
  return open->month > 1 ? OpenPeriod{open->year, open->month - 1} : OpenPeriod{open->year - 1, kMonths};
}

}  // namespace zelkor
