#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "store/dialect/Schema.h"

struct pg_conn;
struct pg_result;

namespace zelkor {

struct ServerFailure;

struct PgResultClearer {
  void operator()(pg_result* result) const;
};
using PgResult = std::unique_ptr<pg_result, PgResultClearer>;
using PgValues = std::vector<std::optional<std::string>>;

/// A session on a PostgreSQL server. A statement that fails inside a transaction undoes itself only.
class PostgreSqlLink {
 public:
  explicit PostgreSqlLink(const std::string& conninfo);
  PostgreSqlLink(const PostgreSqlLink&) = delete;
  PostgreSqlLink& operator=(const PostgreSqlLink&) = delete;
  ~PostgreSqlLink();

  /// Statements without parameters, between semicolons; gives the result of the last.
  PgResult run(const std::string& sql);
  /// One statement that is used once; every parameter is a text.
  PgResult query(const std::string& sql, const PgValues& values);
  /// Loads rows, in the text format of COPY, with the statement that begins it.
  void copyIn(const std::string& sql, const std::string& rows);

  /// Prepares a statement whose parameters are all texts; gives its name.
  std::string prepare(const std::string& sql, int parameters);
  PgResult execute(const std::string& name, const PgValues& values);
  /// The statement is not used any more; the server is told with the next one that is prepared.
  void forget(const std::string& name) { forgotten_.push_back(name); }

  bool inTransaction() const;
  long changes() const { return changes_; }
  std::int64_t lastRowKey() const { return lastRowKey_; }
  /// Whether something has been written since the last call.
  bool takeWritten();

  /// The tables whose columns have been read, by lower-case name: for the names in messages.
  std::map<std::string, dialect::TableInfo> tables;

 private:
  struct Closer {
    void operator()(pg_conn* connection) const;
  };

  PgResult checked(pg_result* result);
  template <typename Step>
  PgResult guarded(Step step);
  void note(const pg_result* result);
  std::string columnsOfKey(const ServerFailure& failure) const;

  std::unique_ptr<pg_conn, Closer> connection_;
  std::vector<std::string> forgotten_;
  std::uint64_t prepared_ = 0;
  long changes_ = 0;
  std::int64_t lastRowKey_ = 0;
  bool written_ = false;
};

}  // namespace zelkor
