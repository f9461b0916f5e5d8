#include "store/engine/sqlite/NewSqliteFile.h"

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/catalogue/Catalogue.h"
#include "store/engine/sqlite/OpenSqliteFile.h"
#include "store/engine/sqlite/SqliteErrors.h"

namespace zelkor {

NewSqliteFile::NewSqliteFile(const std::filesystem::path& path)
    : handle_(openSqliteFile(path.string(), SqliteEngine::Access::Write)) {
  // A file that is not finished is thrown away: nothing needs to survive a failure of the process. A
  // statement that fails (an index that the rows do not allow) still has to be undone.
  run("PRAGMA journal_mode = MEMORY; PRAGMA synchronous = OFF; PRAGMA cache_size = -65536; BEGIN IMMEDIATE");
}

void NewSqliteFile::run(const std::string& sql) {
  const int code = sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) raiseSqliteError(handle_.get(), code);
}

SqliteStatement NewSqliteFile::prepareInsert(std::string_view table,
                                             const std::vector<std::string>& columns) {
  std::string names;
  std::string places;
  for (const std::string& column : columns) {
    names += (names.empty() ? "" : ", ") + sqliteWords().quoted(column);
    places += places.empty() ? "?" : ", ?";
  }
  return prepare("INSERT INTO " + sqliteWords().quoted(table) + " (" + names + ") VALUES (" + places + ")");
}

void NewSqliteFile::finish() {
  run("COMMIT; PRAGMA synchronous = FULL; PRAGMA journal_mode = WAL");
  handle_.reset();
}

}  // namespace zelkor
