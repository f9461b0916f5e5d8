#pragma once

#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "store/dialect/binding/Schema.h"
#include "store/engine/postgresql/PostgreSqlRows.h"
#include "store/engine/postgresql/ServerStatement.h"

struct pg_conn;
struct pg_result;

namespace zelkor {

struct ServerFailure;

struct PgResultClearer {
  void operator()(pg_result* result) const;
};
using PgResult = std::unique_ptr<pg_result, PgResultClearer>;
using PgValues = std::vector<std::optional<std::string>>;

/// A statement that is used once; every parameter is a text.
struct ServerQuestion {
  std::string sql;
  PgValues values = {};
};

/// A session on a PostgreSQL server. A statement that fails inside a transaction undoes itself only, with
/// those that were under way together with it.
///
/// Statements are put on their way one behind the other. The first answer that somebody asks for ends the
/// trip: the server is asked for all of them, which is one wait, whatever had to go before the statements.
/// Outside a transaction what a trip writes is one transaction of its own. After a failure the server passes
/// over the rest of the trip: the streams of those statements are marked as passed over.
///
/// A pooler may stand between us and the server that takes one statement at a time: with OneByOne each goes
/// out when the one before it has been answered, under no name.
///
/// The rows of a long result are read as they are asked for; before another trip begins, what is left of the
/// last one is read in.
class PostgreSqlLink {
 public:
  enum class Manner : std::uint8_t { Together, OneByOne };

  explicit PostgreSqlLink(const std::string& conninfo, Manner manner = Manner::Together);
  PostgreSqlLink(const PostgreSqlLink&) = delete;
  PostgreSqlLink& operator=(const PostgreSqlLink&) = delete;
  ~PostgreSqlLink();

  /// Statements without parameters, between semicolons; gives the result of the last. Inside a transaction a
  /// failure gives up the whole of it.
  PgResult run(const std::string& sql);
  PgResult query(const std::string& sql, const PgValues& values);
  /// Asks all of them in one trip; gives their results.
  std::vector<PgResult> ask(std::span<const ServerQuestion> questions);
  /// Begins to load rows with that COPY statement; nothing else may be asked for until its end.
  void beginCopy(const std::string& sql);
  /// Sends rows in the text format of COPY.
  void putCopy(std::string_view rows);
  /// Gives the number of rows that were stored.
  long endCopy();
  /// Ends the loading after a failure of whoever gives the rows.
  void giveUpCopy();

  /// The statement of that text on the link, known to the server or not.
  static std::shared_ptr<ServerStatement> statement(const std::shared_ptr<PostgreSqlLink>& link,
                                                    std::string_view sql);
  /// Puts a statement on its way; its rows go into the stream, which has to stay where it is while it is
  /// open.
  void send(ServerStatement& statement, const PgValues& values, PostgreSqlStream& stream);
  /// Puts a command without parameters on its way, whose rows nobody asks for.
  void sendAhead(const std::string& command);
  /// Reads the next rows of an open stream, and all of those that are under way before it.
  void readOn(PostgreSqlStream& stream);
  /// Gives up what is left of a stream.
  void drop(PostgreSqlStream& stream);
  /// Reads in all that is under way.
  void readInWhatIsLeft();
  /// A name that no statement of the session has, and none of another process.
  std::string newName() { return tag_ + std::to_string(++named_); }
  /// The statement is not used any more; the server is told with the next trip.
  void forget(const ServerStatement& statement);

  /// The server is told with the transaction's first statement.
  void begin();
  void commit();
  void rollback();
  bool inTransaction() const;
  /// Inside a transaction: undoes what the last trip has written before the savepoint was to be kept.
  void takeBack();
  /// After a trip that has written: its savepoint stays until it is kept no longer. What is only read
  /// meanwhile undoes nothing of it when it fails.
  void keepSavepoint(bool on);
  long changes() const { return changes_; }
  std::int64_t lastRowKey() const { return lastRowKey_; }
  /// Whether something has been written since the last call.
  bool takeWritten();
  void noteWritten() { written_ = true; }
  Manner manner() const { return manner_; }
  bool sendsTogether() const { return manner_ == Manner::Together; }
  /// Whether a trip has ended with the connection, or with words that the protocol is not understood.
  bool tripRefused() const { return tripRefused_; }
  /// The server's number of the session, as it was told when the connection was made: a pooler tells another.
  int toldSession() const;
  /// How often the server has been waited for.
  std::uint64_t waits() const { return waits_; }

  /// The tables whose columns have been read, by lower-case name: for the names in messages.
  std::map<std::string, dialect::TableInfo> tables;

 private:
  struct Closer {
    void operator()(pg_conn* connection) const;
  };

  /// The savepoint to which a failing statement goes back.
  enum class Savepoint : std::uint8_t { None, Fresh, WrittenBehind };

  /// What is under way, in its order.
  struct Awaited {
    PostgreSqlStream* stream = nullptr;   // none: nobody asks for its rows
    PgResult* whole = nullptr;            // its result as one piece instead
    ServerStatement* prepares = nullptr;  // the statement that the server is told by it
    bool begun = false;                   // its answer has begun to come
  };

  [[noreturn]] void raise(const pg_result* result) const;
  PgResult checked(PgResult result) const;
  std::vector<std::string> preamble();
  void openTrip();
  void runAlone(const std::vector<std::string>& commands);
  void ask();
  void readFront(std::size_t upTo);
  void finishFront(PgResult result);
  void passOverRest();
  void endTrip();
  void giveUpTrip(const Awaited& failing, const pg_result* result);
  void backToSavepoint();
  void noteCount(const pg_result* result);
  std::string columnsOfKey(const ServerFailure& failure) const;

  std::unique_ptr<pg_conn, Closer> connection_;
  Manner manner_;
  std::string tag_;
  std::unordered_map<std::string_view, std::weak_ptr<ServerStatement>> statements_;  // by their own texts
  std::vector<std::string> forgotten_;
  std::deque<Awaited> awaited_;
  bool underWay_ = false;  // a trip has begun and has not ended
  bool asked_ = false;     // its answers are coming
  bool tripInTransaction_ = false;
  bool tripHasWritten_ = false;
  bool beginOwed_ = false;
  bool tripRefused_ = false;
  Savepoint savepoint_ = Savepoint::None;
  bool savepointKept_ = false;
  bool readSavepoint_ = false;  // set behind the one that is kept
  std::uint64_t named_ = 0;
  std::uint64_t waits_ = 0;
  long changes_ = 0;
  std::int64_t lastRowKey_ = 0;
  bool written_ = false;
};

}  // namespace zelkor
