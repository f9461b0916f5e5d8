#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "store/dialect/Translation.h"
#include "store/engine/ColumnNames.h"
#include "store/engine/Engine.h"

namespace zelkor {

/// Which output columns a statement delivers, and where.
struct Projection {
  std::vector<std::size_t> columns;  // output columns in the order in which they are delivered
  std::vector<int> placeOf;          // for each output column its place in `columns`, or -1

  static Projection of(std::vector<std::size_t> columns, std::size_t outputColumns);
  /// Whether it delivers all that the other does.
  bool covers(const Projection& other) const;
};

/// The prepared statements of one query shape.
///
/// Recordsets of a keyed query record which columns are asked for; later runs of the shape deliver just these
/// along with the row keys, and what else is asked for is read by row key. So a walk over wide rows decodes
/// what it needs. Other queries deliver every column.
class PreparedQuery {
 public:
  PreparedQuery(Engine& engine, const dialect::Translation& translation);

  const dialect::Query& query() const { return *query_; }
  const ColumnNames& columnNames() const { return columnNames_; }
  dialect::ColumnType typeOf(std::size_t column) const { return types_[column]; }
  /// Where a statement delivers the first of its columns, after the row keys and tie keys.
  int firstColumn() const { return firstColumn_; }
  std::span<const dialect::ParameterSlot> slots() const { return slots_; }

  /// A statement on its way through a result, and what it delivers after the row keys and tie keys.
  struct Run {
    std::unique_ptr<EngineStatement> statement;
    std::shared_ptr<const Projection> projection;
    bool fast = false;
    bool firstRowsOnly = false;
    bool learns = false;  // which of the columns that it delivers are asked for
    /// Of one that goes out with others: what goes before it, and fails where its fast form may not be used.
    std::unique_ptr<EngineStatement> guard = nullptr;
  };
  /// An idle or new statement, not yet bound. Checks the query's guard for whether the fast form may be used.
  /// The statement gives the first rows only where all of them are dear: many walks in an order end early,
  /// and few need all columns of a wide table, which a first run delivers where each further statement is a
  /// wait.
  Run take();
  /// A statement that gives every row.
  Run takeWhole();
  /// One of many that go out together, where each row that has to be read again is a wait: while nobody has
  /// asked for a column it delivers every plain one.
  Run takeAhead(bool besideWrites);
  static constexpr int kFirstRows = 50;
  void giveBack(Run run);

  /// Makes later runs and reads by key deliver this column too.
  void learn(std::size_t column);

  /// A statement that reads one row by its keys; shared, to be reset after each use.
  struct RowByKey {
    std::unique_ptr<EngineStatement> statement;
    std::shared_ptr<const Projection> projection;
  };
  /// With the columns that have been learned, or with every plain one: a row that is asked for a new column
  /// is soon asked for others.
  const RowByKey& rowByKey(bool isNewColumn);
  const Projection& projection() const { return *projection_; }

 private:
  using Idle = std::vector<std::unique_ptr<EngineStatement>>;

  bool fastFormAllowed();
  bool mayEndEarly() const;
  bool readsEveryColumn() const;
  Run takeUnknown();
  const std::shared_ptr<const Projection>& plain();
  Run take(bool firstRowsOnly, std::shared_ptr<const Projection> projection, bool fast);
  Idle& idle(const Run& run) { return idle_[run.fast ? 1 : 0][run.firstRowsOnly ? 1 : 0]; }

  Engine& engine_;
  std::shared_ptr<const dialect::Query> query_;
  std::vector<dialect::ParameterSlot> slots_;
  ColumnNames columnNames_;
  std::vector<dialect::ColumnType> types_;  // of the columns, close together
  int firstColumn_;
  std::shared_ptr<const Projection> projection_;
  std::shared_ptr<const Projection> plain_;  // without bytes; once it has been needed
  std::array<std::array<Idle, 2>, 2> idle_;
  std::unique_ptr<EngineStatement> guard_;
  bool irregular_ = false;  // as the guard has found last
  RowByKey learnedByKey_;
  RowByKey plainByKey_;
};

}  // namespace zelkor
