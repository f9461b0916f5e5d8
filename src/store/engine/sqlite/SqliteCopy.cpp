#include <sqlite3.h>

#include <cstdint>

#include "base/EndSignals.h"
#include "store/engine/sqlite/OpenSqliteFile.h"
#include "store/engine/sqlite/SqliteErrors.h"

namespace zelkor {
namespace {

constexpr int kPagesAtOnce = 4096;

struct BackupFinisher {
  void operator()(sqlite3_backup* copying) const { sqlite3_backup_finish(copying); }
};
using CopyHandle = std::unique_ptr<sqlite3_backup, BackupFinisher>;

void runOn(sqlite3* handle, const char* sql) {
  const int code = sqlite3_exec(handle, sql, nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) raiseSqliteError(handle, code);
}

/// The copying of pages leaves its failure with the target.
void copyPages(sqlite3* source, sqlite3* target) {
  CopyHandle copying(sqlite3_backup_init(target, "main", source, "main"));
  if (copying == nullptr) raiseSqliteError(target, sqlite3_errcode(target));
  int code = SQLITE_OK;
  while (code == SQLITE_OK) {
    code = sqlite3_backup_step(copying.get(), kPagesAtOnce);
    goOnUnlessSignalled();
  }
  const int end = sqlite3_backup_finish(copying.release());
  if (code != SQLITE_DONE || end != SQLITE_OK) raiseSqliteError(target, code == SQLITE_DONE ? end : code);
}

}  // namespace

// A copy that is not finished is thrown away: nothing needs to survive a failure.
bool SqliteEngine::copyInto(const std::filesystem::path& file) {
  const SqliteHandle target = openSqliteFile(file.string(), Access::Write);
  sqlite3_extended_result_codes(target.get(), 1);
  runOn(target.get(), "PRAGMA journal_mode = OFF; PRAGMA synchronous = OFF");
  copyPages(handle_.get(), target.get());
  // As the programs open files, whatever the source was: being opened shall not change the copy.
  runOn(target.get(), "PRAGMA journal_mode = WAL");
  return true;
}

std::string SqliteEngine::damage() {
  const auto check = prepare("PRAGMA integrity_check(1)");
  if (!check->step()) return "integrity_check";
  const std::string found(check->text(0));
  return found == "ok" ? std::string() : found;
}

}  // namespace zelkor
