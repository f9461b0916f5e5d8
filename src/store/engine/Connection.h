#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "store/engine/Engine.h"
#include "store/engine/ForeseenRows.h"
#include "store/engine/Recordset.h"
#include "store/engine/SchemaCache.h"
#include "store/engine/StatementCache.h"
#include "store/engine/WriteGathering.h"

namespace zelkor {

class RecordsetState;

/// A statement that is ready to be sent ahead of its answer: an action, or a query that is being opened.
struct AheadStatement {
  std::unique_ptr<EngineStatement> action;
  std::shared_ptr<RecordsetState> rows;
};

/// The one connection of a process to a data file: runs statements of the dialect, keeps their prepared
/// forms, gathers writes, and makes recordsets that are still reading let go before a write.
class Connection : public std::enable_shared_from_this<Connection> {
 public:
  /// `advice` follows the text of an error that a table or a column is not there.
  explicit Connection(std::unique_ptr<Engine> engine, std::string advice = {});
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;
  ~Connection();

  /// Runs an action statement; gives the rows touched.
  long execute(std::string_view sql);
  /// Runs a query, or opens the table of that name.
  Recordset open(std::string_view sql);

  /// The statement translated and bound; nothing where it cannot go out together with others.
  /// One that reads beside others that write is in a form that is right whatever it meets.
  std::optional<AheadStatement> ahead(std::string_view sql, bool besideWrites);
  /// The query, or the table of that name, opened for nothing but adding rows; nothing where it is none.
  std::shared_ptr<RecordsetState> openForAdding(std::string_view sql);
  /// Sends statements some of which write, and waits once; then calls `use`, where there is one, before what
  /// they have written is kept. A failure is that of the first that fails, or of `use`; nothing of what they
  /// have written stays then.
  void together(std::span<const AheadStatement> statements, const std::function<void()>& use);
  /// Sends queries: `startSent` waits for each one's rows.
  void sendQueries(std::span<const AheadStatement> queries);

  /// Commits gathered statements and lets recordsets give up the rows that they are still reading from.
  void writeOut();
  /// The same, and forces to disk what has been written.
  void flush();
  WriteGathering& gathering() { return gathering_; }
  /// See DbEngine::setEnded.
  void setEnded(std::optional<int> status) { ended_ = status; }
  /// Undoes what the workspace transaction has written, tables that it made included.
  void rollbackWorkspaceTransaction();
  Engine& engine() { return *engine_; }

  /// Runs a prepared statement that writes, as one statement of its own; gives the rows touched.
  long write(EngineStatement& statement);
  /// How many statements have written so far: shows a reader that what it has read may be old.
  std::uint64_t writes() const { return writes_; }
  /// A prepared statement of the engine's own SQL, kept by its text.
  EngineStatement& prepared(const std::string& sql);

  /// What was read of a query that is asked for soon: whoever opens it gets these rows, until something is
  /// written. See Foresight, whose number is `owner`.
  void foresee(const std::string& sql, const Recordset& rows, std::uint64_t owner) {
    foreseen_.keep(sql, rows, owner, writes_);
  }
  bool hasForeseen(std::string_view sql) const { return foreseen_.holds(sql, writes_); }
  void forgetForeseen(std::uint64_t owner) { foreseen_.forget(owner); }
  std::uint64_t numberForesight() { return ++foresights_; }
  /// See SchemaCache::foresee.
  void foreseeTables(const std::vector<std::string>& statements) { schema_.foresee(statements); }

  /// A recordset that holds a statement open on this connection.
  void addReader(RecordsetState& reader) { readers_.push_back(&reader); }
  void removeReader(RecordsetState& reader) { std::erase(readers_, &reader); }
  /// The error of a name that these books do not have, with the advice.
  RuntimeError withAdvice(const RuntimeError& error) const;
  /// Readers keep the keys of the rows that are left and read on by key.
  void letReadersGo();

 private:
  void letIdleReadersGo();
  template <typename Use>
  auto withStatement(std::string_view sql, Use use);
  Recordset openTable(std::string_view table);
  Recordset openQuery(std::string_view sql);
  long run(CachedStatement& statement, const dialect::Shape& shape);
  long runAction(CachedStatement& statement, const dialect::Shape& shape);
  void carryOut(std::span<const AheadStatement> statements);
  void useBeforeKept(const std::function<void()>& use);
  void takeBack(bool begun);
  long runTableChange(const CachedStatement& statement, const dialect::Shape& shape);
  void sendParts(const CachedStatement& statement, const dialect::Shape& shape);
  void stepParts(const CachedStatement& statement, const dialect::Shape& shape);
  void forgetChanged(const dialect::Translation& translation);
  bool fastFormAllowed(CachedStatement& statement);
  void forgetTables();
  void goOn() const;

  std::unique_ptr<Engine> engine_;
  std::string advice_;
  SchemaCache schema_;
  StatementCache statements_;
  WriteGathering gathering_;
  std::map<std::string, std::unique_ptr<EngineStatement>, std::less<>> prepared_;
  std::vector<RecordsetState*> readers_;
  ForeseenRows foreseen_;
  std::uint64_t foresights_ = 0;
  std::uint64_t writes_ = 0;
  std::optional<int> ended_;
  dialect::Shape shape_;  // buffers kept from statement to statement
};

}  // namespace zelkor
