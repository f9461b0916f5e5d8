#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/binding/ParameterSlot.h"
#include "store/dialect/binding/Schema.h"
#include "store/dialect/reading/Shape.h"

namespace zelkor::dialect {

/// A column of a query's result.
struct OutputColumn {
  std::string name;  // the alias, the column's own spelling, or Expr1000, Expr1001, ...
  ColumnType type = ColumnType::Unknown;
  int size = 0;
  /// Where the column is a plain column of a base table: index into Query::sources, and its name there.
  std::optional<std::size_t> source;
  std::string sourceColumn;
};

/// A base table in the FROM clause of a query whose rows can be addressed by row keys.
struct QuerySource {
  std::string table;
};

enum class StatementKind : std::uint8_t {
  Query,
  SelectInto,
  Insert,
  Update,
  Delete,
  CreateTable,
  CreateIndex,
  DropTable,
  DropIndex,
  AlterTable
};

/// A query in a form of which the engine can print what it needs.
///
/// A query is keyed when its FROM clause holds base tables only and its rows are not grouped, made distinct,
/// aggregated or united: then each result row is addressed by one row key per source.
///
/// A text that leaves out columns or conditions may name only some of the slots, whose numbers stay. For an
/// engine that infers the types of parameters from their use (PostgreSQL) the caller therefore declares the
/// types of all of them, text for each slot and bigint for each row key, when it prepares the text.
class Query {
 public:
  virtual ~Query() = default;

  const std::vector<OutputColumn>& columns() const { return columns_; }
  /// Base tables of a keyed query; empty when the query is not keyed.
  const std::vector<QuerySource>& sources() const { return sources_; }
  bool keyed() const { return !sources_.empty(); }
  /// Rows wanted by TOP; ties on the order keys of row `top` belong to the result. The caller stops the walk.
  std::optional<int> top() const { return top_; }
  /// Plain columns of all rows of one table in no order: to run it can neither fail nor depend on anything.
  bool wholeTable() const { return wholeTable_; }
  /// Whether the statement says in what order the rows come.
  bool ordered() const { return ordered_; }
  /// How many order key columns `rows` delivers for comparing ties (0 without TOP or without ORDER BY).
  std::size_t tieKeys() const { return tieKeys_; }
  /// A query that, when it gives a row, forbids the fast form: some text that is ordered as a number is none.
  const std::optional<std::string>& guard() const { return guard_; }

  enum class Form : std::uint8_t { Plain, Fast };

  /// The query, giving first one row key per source (keyed only), then the tie keys, then the output columns
  /// whose indexes are listed. Without TOP in the text where the engine has no ties.
  virtual std::string rows(std::span<const std::size_t> outputColumns, Form form) const = 0;
  /// For a keyed query: the listed output columns of the one row whose keys are bound after the slots
  /// (parameter slots.size() + 1 for the first source, and so on; a Null key is an unmatched outer row).
  virtual std::string rowByKey(std::span<const std::size_t> outputColumns) const = 0;
  /// For a keyed query: as `rows` with no output columns, restricted to rows that meet `criteria`, an
  /// expression of the dialect whose constants stay in the text (for FindFirst and FindLast). The literals of
  /// the query itself keep their slots. A query over one table leaves its own conditions out: the caller
  /// looks for the keys that it holds, whether their rows still meet those conditions or not.
  virtual std::string keysWhere(std::string_view criteria) const = 0;

 protected:
  std::vector<OutputColumn> columns_;
  std::vector<QuerySource> sources_;
  std::optional<int> top_;
  bool wholeTable_ = false;
  bool ordered_ = false;
  std::size_t tieKeys_ = 0;
  std::optional<std::string> guard_;
};

/// One statement of the dialect, ready for an engine.
struct Translation {
  StatementKind kind{};
  /// The engine's statements, in order, to be run as one: several only for SelectInto (create, fill) and for
  /// DDL; one for Insert, Update and Delete; empty for Query.
  std::vector<std::string> sql;
  /// The same in the form that the guard allows; empty when there is none.
  std::vector<std::string> fastSql;
  std::optional<std::string> guard;
  std::vector<ParameterSlot> slots;    // parameters of the last statement, or of the query
  std::shared_ptr<const Query> query;  // kind Query
  std::string table;                   // the table that is written, created or dropped, in its own spelling
  /// For messages: the dialect's name of a created index.
  std::string index;
  /// The text holds for these literals only, not for all statements of the shape: whether a column repeats a
  /// group key or an order key was given by literals in both.
  bool dependsOnLiterals = false;
};

}  // namespace zelkor::dialect
