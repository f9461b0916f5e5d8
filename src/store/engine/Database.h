#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/engine/JobLock.h"
#include "store/engine/Recordset.h"

namespace zelkor {

class Connection;

/// While it lives, the stand-alone statements of a database are made durable together: a killed process
/// leaves all of them or none. For a few statements that are of use only together; not a transaction: a
/// failure undoes its own statement and nothing before it.
class KeptTogether {
 public:
  explicit KeptTogether(std::shared_ptr<Connection> connection);
  KeptTogether(const KeptTogether&) = delete;
  KeptTogether& operator=(const KeptTogether&) = delete;
  ~KeptTogether();

 private:
  std::shared_ptr<Connection> connection_;
};

/// An open data file. A handle: all databases that a process opens on one file share one connection.
class Database {
 public:
  Database() = default;  // closed
  explicit Database(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

  bool isOpen() const { return connection_ != nullptr; }
  /// Runs one action statement of the dialect. A statement that meets no row is no failure.
  void Execute(std::string_view sql);
  /// Runs a query of the dialect, or opens the table whose name is given.
  Recordset OpenRecordset(std::string_view sql);
  /// Rows touched by this object's last Execute.
  long RecordsAffected() const { return recordsAffected_; }
  /// Names of the tables, in their own spelling.
  std::vector<std::string> TableDefs() const;
  bool HasTable(std::string_view name) const;
  /// See KeptTogether.
  [[nodiscard]] KeptTogether keepTogether() const { return KeptTogether(connection_); }
  /// See Engine::lockForJob.
  JobLockAttempt lockForJob(const JobNote& note);
  /// See Engine::jobHolder.
  std::optional<JobNote> jobHolder();
  /// Inside a workspace transaction: takes the engine's write lock, where it has one, before the first write;
  /// waits for other writers. What is read from now on nobody else can change before the transaction ends.
  void lockForWriting();
  /// Where a writer shuts all others out: does so until the result goes, so that what is read is what is
  /// written by it. Elsewhere nothing.
  [[nodiscard]] std::unique_ptr<KeptTogether> shutOthersOut();
  /// See Engine::waits.
  std::uint64_t waits() const;
  void Close() { connection_.reset(); }

 private:
  friend class StatementGroup;
  Connection& connection() const;
  std::shared_ptr<Connection> connection_;
  long recordsAffected_ = 0;
};

}  // namespace zelkor
