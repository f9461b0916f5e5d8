#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/engine/sqlite/SqliteEngine.h"
#include "store/engine/sqlite/SqliteStatement.h"

namespace zelkor {

/// A new SQLite file that is written in one transaction, from its opening to `finish`. Nothing of it survives
/// a failure: until then it is not for others to open. Every failure raises RuntimeError.
class NewSqliteFile {
 public:
  /// `path` is an empty file, which its owner has made.
  explicit NewSqliteFile(const std::filesystem::path& path);

  void run(const std::string& sql);
  SqliteStatement prepare(const std::string& sql) { return {handle_.get(), sql}; }
  /// A statement that inserts a row with a parameter for each of the columns.
  SqliteStatement prepareInsert(std::string_view table, const std::vector<std::string>& columns);
  void setRevision(int revision) { run(revisionStatement(revision)); }
  /// Commits, forces the file to disk and closes it; no statement may be left.
  void finish();

 private:
  SqliteHandle handle_;
};

}  // namespace zelkor
