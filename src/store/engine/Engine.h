#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/binding/Schema.h"
#include "store/dialect/printing/EngineWords.h"
#include "store/engine/JobLock.h"
#include "store/engine/StoredTables.h"

namespace zelkor {

/// What a cell of a result holds in the engine's own terms.
enum class CellKind : std::uint8_t { Null, Integer, Real, Text, Bytes };

/// A prepared statement of an engine. Parameters count from 1, columns from 0.
class EngineStatement {
 public:
  virtual ~EngineStatement() = default;

  /// Parameters that the statement does not name are passed over.
  virtual void bindNull(int parameter) = 0;
  virtual void bindInteger(int parameter, std::int64_t value) = 0;
  virtual void bindReal(int parameter, double value) = 0;
  /// The text is copied.
  virtual void bindText(int parameter, std::string_view value) = 0;
  /// The text stays where it is until the statement is reset.
  virtual void bindLastingText(int parameter, std::string_view value) { bindText(parameter, value); }
  virtual void bindBytes(int parameter, std::string_view value) = 0;

  /// Puts the statement, with what is bound, on its way without waiting for its answer: the first step waits
  /// for it. An engine that answers at once does nothing here.
  virtual void sendAhead() {}
  /// Moves to the next row; false at the end. Raises the engine's failure as a RuntimeError.
  virtual bool step() = 0;
  /// Gives up the rows and whatever lock they hold.
  virtual void reset() = 0;

  virtual CellKind kind(int column) const = 0;
  virtual std::int64_t integer(int column) const = 0;
  virtual double real(int column) const = 0;
  /// Valid until the next step or reset.
  virtual std::string_view text(int column) const = 0;
  /// The content of a cell of bytes.
  virtual std::string bytes(int column) const = 0;
};

/// One connection to a data file or server in the engine's own terms.
class Engine {
 public:
  virtual ~Engine() = default;

  /// How texts for this engine are written.
  virtual const dialect::EngineWords& words() const = 0;
  virtual std::unique_ptr<EngineStatement> prepare(std::string_view sql) = 0;
  /// Runs statements that give no rows and take no parameters.
  virtual void run(const std::string& sql) = 0;

  /// Before a query: error 3024 when the file is no longer where it was opened. Looks now and then only; what
  /// is written is never written past such a file.
  virtual void requireFile() = 0;
  /// Whether a writer shuts others out, so that stand-alone statements are gathered into one transaction.
  virtual bool gathersWrites() const { return true; }
  /// Whether a query is computed and sent as a whole though a few of its rows are asked for.
  virtual bool runsAhead() const { return false; }
  /// Whether statements can be sent ahead of their answers. Those that are under way together stand or fall
  /// together with what they write; one of them that reads can be stepped again when another has failed.
  virtual bool sendsAhead() const { return false; }
  /// Waits for the answers of all statements that were sent ahead, and keeps what they give.
  virtual void takeAnswers() {}
  /// Before and after the statements of a group that writes, sent with them: in between nobody's lock is
  /// waited for longer than a moment, so that what the group has locked holds nobody up.
  virtual void openGroup() {}
  virtual void closeGroup() {}
  /// Inside a transaction, after a group that has written: until it is kept no longer, all that it has
  /// written can be taken back. What is only read meanwhile takes nothing of it back when it fails.
  virtual void keepGroupForTakingBack(bool /*on*/) {}
  /// Inside a transaction: takes back all that the group has written that was carried out last.
  virtual void takeBackGroup() {}
  /// What somebody who looks for the reason of slow work should know of the connection; mostly empty.
  virtual std::string remark() const { return {}; }
  /// How often an answer has been waited for: once for each round trip to a server.
  virtual std::uint64_t waits() const { return 0; }
  /// Opens a transaction that may write at once; waits for other writers.
  virtual void begin() = 0;
  virtual void commit() = 0;
  virtual void rollback() = 0;
  /// False also when the engine itself has given up the transaction (a full disk).
  virtual bool inTransaction() const = 0;
  /// Outside a transaction: what has been written survives the failure of the machine that keeps it, as far
  /// as the engine can be asked for that.
  virtual void makeDurable() {}

  /// Takes the lock by which an account set has one job at a time, unless somebody else holds it. Waits for
  /// nobody, and keeps nobody from reading and writing.
  virtual JobLockAttempt lockForJob(const JobNote& note) = 0;
  /// What is known of the holder of that lock, which is not touched; nothing where nobody holds it.
  virtual std::optional<JobNote> jobHolder() = 0;

  /// Rows touched by the last statement that wrote.
  virtual long changes() const = 0;
  /// Row key of the last inserted row.
  virtual std::int64_t lastRowKey() const = 0;

  virtual std::vector<std::string> tableNames() = 0;
  /// Columns as the engine has them now; nullopt when there is no such table.
  virtual std::optional<dialect::TableInfo> tableInfo(std::string_view table) = 0;
  /// All of them at once, where each by itself would be a wait; otherwise none.
  virtual std::vector<dialect::TableInfo> tableInfos() { return {}; }
  /// Those of them that have one of the names, in lower case, likewise.
  virtual std::vector<dialect::TableInfo> tableInfos(const std::vector<std::string>& /*names*/) { return {}; }
  /// What it knows of its tables beyond that; not longer than the engine itself.
  virtual std::unique_ptr<StoredTables> storedTables() = 0;
  /// What the engine finds wrong with the file, in its own words; empty where that is nothing, and beside a
  /// server, which looks after itself.
  virtual std::string damage() { return {}; }
  /// Copies the state that is being read, as it is, into a file that is there and empty; false where the
  /// engine keeps no file, and its tables have to be carried.
  virtual bool copyInto(const std::filesystem::path& /*file*/) { return false; }

  /// The revision that the books here have reached, as it was written beside the tables; 0 where none was.
  virtual int booksRevision() = 0;
  virtual void setBooksRevision(int revision) = 0;
  /// Whether the functions that statements call are this program's, or those of a newer one.
  virtual bool hasOwnFunctions() { return true; }
  /// Within a transaction: puts this program's functions in the place of the others.
  virtual void layOwnFunctions() {}
  /// Within a transaction: waits for the end of another process's renewal. What is read afterwards is what
  /// that one has left.
  virtual void shutOutOtherRenewals() {}
};

}  // namespace zelkor
