#pragma once

#include <string>

#include "base/CoarseClock.h"
#include "store/engine/Engine.h"
#include "store/engine/sqlite/SqliteWords.h"

struct sqlite3;
struct sqlite3_stmt;

namespace zelkor {

struct SqliteCloser {
  void operator()(sqlite3* handle) const;
};
struct SqliteFinalizer {
  void operator()(sqlite3_stmt* handle) const;
};
using SqliteHandle = std::unique_ptr<sqlite3, SqliteCloser>;
using SqliteStatementHandle = std::unique_ptr<sqlite3_stmt, SqliteFinalizer>;

/// An SQLite data file in write-ahead mode, shared with other processes.
class SqliteEngine final : public Engine {
 public:
  /// Alone: nobody else has the file open, or can open it, until this one is closed; what its log holds is in
  /// the file from then on.
  enum class Access : std::uint8_t { Read, Write, Alone };

  /// Opens an existing file; see DbEngine::OpenDatabase for the errors. Alone, error 3045 when somebody has
  /// it open.
  explicit SqliteEngine(const std::string& path, Access access = Access::Write);
  SqliteEngine(const SqliteEngine&) = delete;
  SqliteEngine& operator=(const SqliteEngine&) = delete;
  ~SqliteEngine() override;

  const dialect::EngineWords& words() const override { return sqliteWords(); }
  std::unique_ptr<EngineStatement> prepare(std::string_view sql) override;
  void run(const std::string& sql) override;
  void requireFile() override;
  void begin() override;
  void commit() override;
  void rollback() override;
  bool inTransaction() const override;
  void makeDurable() override;
  JobLockAttempt lockForJob(const JobNote& note) override;
  std::optional<JobNote> jobHolder() override;
  long changes() const override;
  std::int64_t lastRowKey() const override;
  std::vector<std::string> tableNames() override;
  std::optional<dialect::TableInfo> tableInfo(std::string_view table) override;
  std::unique_ptr<StoredTables> storedTables() override;
  std::string damage() override;
  bool copyInto(const std::filesystem::path& file) override;
  int booksRevision() override;
  void setBooksRevision(int revision) override;

 private:
  bool hasMoved() const;
  void lookForFile();

  SqliteHandle handle_;
  std::string path_;
  bool alone_ = false;
  CoarseClock::time_point nextLook_;
  bool unforced_ = false;  // something was committed since it was last forced to disk
  std::unique_ptr<EngineStatement> begin_;
  std::unique_ptr<EngineStatement> commit_;
};

/// The statement that writes the revision of the books.
std::string revisionStatement(int revision);

}  // namespace zelkor
