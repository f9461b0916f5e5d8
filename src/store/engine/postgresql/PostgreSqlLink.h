#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "store/dialect/binding/Schema.h"
#include "store/engine/postgresql/PostgreSqlRows.h"

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
///
/// A statement is one trip to the server and back, whatever has to go before it. The rows of a long result
/// are read as they are asked for; before another statement goes out, those that are left are read in.
class PostgreSqlLink {
 public:
  explicit PostgreSqlLink(const std::string& conninfo);
  PostgreSqlLink(const PostgreSqlLink&) = delete;
  PostgreSqlLink& operator=(const PostgreSqlLink&) = delete;
  ~PostgreSqlLink();

  /// Statements without parameters, between semicolons; gives the result of the last. Inside a transaction a
  /// failure gives up the whole of it.
  PgResult run(const std::string& sql);
  /// One statement that is used once; every parameter is a text.
  PgResult query(const std::string& sql, const PgValues& values);
  /// Begins to load rows with that COPY statement; nothing else may be asked for until its end.
  void beginCopy(const std::string& sql);
  /// Sends rows in the text format of COPY.
  void putCopy(std::string_view rows);
  /// Gives the number of rows that were stored.
  long endCopy();
  /// Ends the loading after a failure of whoever gives the rows.
  void giveUpCopy();

  /// Prepares a statement whose parameters are all texts; gives its name.
  std::string prepare(const std::string& sql, int parameters);
  /// Runs it and reads the first rows into the stream, which has to stay where it is while it is open.
  void start(const std::string& name, const PgValues& values, PostgreSqlStream& stream);
  /// Reads the next rows of an open stream.
  void readOn(PostgreSqlStream& stream);
  /// Gives up what is left of a stream.
  void drop(PostgreSqlStream& stream);
  /// The statement is not used any more; the server is told with the next one that is prepared.
  void forget(const std::string& name) { forgotten_.push_back(name); }

  /// The server is told with the transaction's first statement.
  void begin();
  void commit();
  void rollback();
  bool inTransaction() const;
  long changes() const { return changes_; }
  std::int64_t lastRowKey() const { return lastRowKey_; }
  /// Whether something has been written since the last call.
  bool takeWritten();
  void noteWritten() { written_ = true; }

  /// The tables whose columns have been read, by lower-case name: for the names in messages.
  std::map<std::string, dialect::TableInfo> tables;

 private:
  struct Closer {
    void operator()(pg_conn* connection) const;
  };

  /// The savepoint to which a failing statement goes back.
  enum class Savepoint : std::uint8_t { None, Fresh, WrittenBehind };

  PgResult checked(pg_result* result);
  std::vector<std::string> preamble() const;
  template <typename Send>
  void send(std::vector<std::string> before, Send send);
  void takePreamble(std::size_t commands);
  PgResult collect();
  void read(PostgreSqlStream& stream, std::size_t upTo);
  void endTrip();
  [[noreturn]] void fail(const pg_result* result);
  void readInWhatIsLeft();
  void note(const pg_result* result);
  std::string columnsOfKey(const ServerFailure& failure) const;

  std::unique_ptr<pg_conn, Closer> connection_;
  std::vector<std::string> forgotten_;
  PostgreSqlStream* reading_ = nullptr;
  bool readingInTransaction_ = false;
  bool pipelined_ = false;  // the trip under way has several statements
  bool beginOwed_ = false;
  Savepoint savepoint_ = Savepoint::None;
  std::uint64_t prepared_ = 0;
  long changes_ = 0;
  std::int64_t lastRowKey_ = 0;
  bool written_ = false;
};

}  // namespace zelkor
