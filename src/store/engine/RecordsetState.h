#pragma once

#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Value.h"
#include "store/dialect/reading/Shape.h"
#include "store/engine/PreparedQuery.h"
#include "store/engine/RowEdit.h"

namespace zelkor {

class Connection;

/// The state behind a Recordset: a walk over a query's rows.
///
/// It begins by streaming from a statement. When something is about to be written through the connection it
/// lets go of the statement: of a keyed query it keeps the keys of the remaining rows and reads on by key, of
/// any other query the rows themselves. A whole table is not begun before somebody looks at a row: many are
/// opened for adding only.
class RecordsetState : public std::enable_shared_from_this<RecordsetState> {
 public:
  RecordsetState(std::shared_ptr<Connection> connection, std::shared_ptr<PreparedQuery> query,
                 std::string_view sql, const std::vector<dialect::Literal>& literals);
  RecordsetState(const RecordsetState&) = delete;
  RecordsetState& operator=(const RecordsetState&) = delete;
  ~RecordsetState();

  /// Runs the query (again) and moves to its first row.
  void start();
  /// Instead of `start`: runs the query when a row is looked at.
  void startLater() { untouched_ = true; }
  /// Instead of `start`: gets the query ready, puts it on its way without waiting for a row, and moves to the
  /// first.
  void prepareAhead(bool besideWrites);
  void sendAhead();
  void startSent();
  /// Whether a check goes before the query when it is sent ahead.
  bool isGuarded() const { return run_.guard != nullptr; }
  /// Gives up the statement; see the class.
  void letGo();
  /// Only a write interrupts the walk then.
  void keepStreaming() { keepsStreaming_ = true; }
  bool keepsStreaming() const { return keepsStreaming_; }

  bool atEnd() {
    look();
    return atEnd_;
  }
  bool atBeginning() {
    look();
    return current_ < 0 && !currentDeleted_;
  }
  void moveNext();
  void movePrevious();
  void moveFirst();
  void moveLast();
  long visited() {
    look();
    return visited_;
  }

  const std::vector<dialect::OutputColumn>& columns() const { return query_->query().columns(); }
  std::size_t columnIndex(std::string_view name) const;
  Value value(std::size_t column);

  void set(std::size_t column, const Value& value);
  void addNew();
  void edit();
  void update();
  /// What `update` would write, which is no longer under way.
  RowEdit takeEdit();
  void write(const RowEdit& edit);
  /// See RowEdit::ahead.
  std::unique_ptr<EngineStatement> ahead(const RowEdit& edit) const;
  /// Whether the query has to be run to see which rows there are before one is added.
  bool isWholeTable() const { return query_->query().wholeTable(); }
  void cancelUpdate() { edit_.reset(); }
  void deleteRow();

  void find(std::string_view criteria, bool last);
  bool noMatch() const { return noMatch_; }
  std::shared_ptr<RecordsetState> clone();

 private:
  using RowKey = std::optional<std::int64_t>;  // empty: an outer join found no row

  std::size_t sources() const { return query_->query().sources().size(); }
  bool keyed() const { return query_->query().keyed(); }
  bool streaming() const { return run_.statement != nullptr; }
  bool onStreamedRow() const { return streaming() && current_ >= 0 && current_ == known_ - 1; }
  int placeInStream(std::size_t column) const;

  void look();
  void run();
  bool streamNext();
  bool step();
  void leaveRow();
  bool wasPassed();
  bool withinTop() const;
  std::vector<Value> tieKeys() const;
  std::vector<RowKey> keysOf(const EngineStatement& row) const;
  void takeKeys();
  void widenStream();
  void keepStreamedRow();
  std::vector<Value> decodeStreamedRow() const;
  void finish();
  void collectAll();
  void standOn(long row);

  void requireCurrentRow() const;
  Value valueElsewhere(std::size_t column);
  Value keyedValue(std::size_t column);
  bool cacheHolds(std::size_t column) const;
  void readCurrentByKey(const PreparedQuery::RowByKey& byKey);
  void bindKeys(EngineStatement& statement);
  RowEdit::Target editTarget(const RowEdit& edit) const;

  std::shared_ptr<Connection> connection_;
  std::shared_ptr<PreparedQuery> query_;
  std::string sql_;
  std::vector<dialect::Literal> literals_;  // point into sql_

  PreparedQuery::Run run_;
  std::vector<RowKey> keys_;              // keyed: sources() keys for each known row; see takeKeys
  std::vector<RowKey> passed_;            // of the first rows, until the whole result has come to them
  std::vector<std::vector<Value>> rows_;  // otherwise: the rows that the statement has left behind
  std::vector<Value> lastTieKeys_;

  long known_ = 0;     // rows that the statement has delivered
  long current_ = -1;  // the current row, counted from 0
  long visited_ = 0;
  bool atEnd_ = true;
  bool untouched_ = false;       // opened, and no row looked at
  bool currentDeleted_ = false;  // by this recordset: current_ is then the row before it
  bool noMatch_ = false;
  bool keepsStreaming_ = false;
  std::exception_ptr failure_;  // of the row after the known ones

  // The columns of the current row that have been read so far, of a keyed query.
  std::vector<Value> cache_;
  std::shared_ptr<const Projection> cacheProjection_;
  long cachedRow_ = -1;
  std::uint64_t cachedAtWrite_ = 0;

  std::optional<RowEdit> edit_;
};

}  // namespace zelkor
