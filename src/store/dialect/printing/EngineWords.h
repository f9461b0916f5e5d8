#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/binding/ParameterSlot.h"
#include "store/dialect/binding/Schema.h"

namespace zelkor::dialect {

class Emitter;
struct NumberColumn;

/// All that the text of SQL differs in between the engines. One object per engine, for the whole program;
/// whoever writes a text for an engine asks it, and nobody asks which engine it is. Whole statements are
/// printed by the engine's emitter.
class EngineWords {
 public:
  virtual ~EngineWords() = default;

  /// By which administrators choose the engine: "sqlite", "postgresql".
  virtual std::string_view name() const = 0;

  /// The emitter of the engine. `fast`: in the form that the guard of a statement allows.
  virtual std::unique_ptr<Emitter> emitter(std::span<const ParameterSlot> slots = {},
                                           bool fast = false) const = 0;

  /// The name of a table, column or index in quotation marks, in the spelling that the engine keeps.
  std::string quoted(std::string_view name) const;
  /// The spelling that the engine keeps, without quotation marks.
  virtual std::string kept(std::string_view name) const { return std::string(name); }

  /// The column that addresses a row of any table.
  virtual std::string_view rowKey() const = 0;
  /// What an INSERT of one row ends with so that the engine gives the key of that row.
  virtual std::string_view returningRowKey() const { return {}; }

  /// A parameter, counting from 1: as it is, as the value of a column of that type, and as a row key.
  virtual std::string parameter(std::size_t number) const = 0;
  virtual std::string typedParameter(std::size_t number, ColumnType) const { return parameter(number); }
  virtual std::string rowKeyParameter(std::size_t number) const { return parameter(number); }

  /// The type of a column in CREATE TABLE: type, collation, counter, never Null. A default follows it.
  virtual std::string columnType(const ColumnInfo& column) const = 0;
  /// What CREATE TABLE has after the columns of the dialect, apart from a key; with a comma before it.
  virtual std::string_view hiddenColumn() const { return {}; }
  /// Statements that make the keys of a table that was created without them.
  virtual std::vector<std::string> keyStatements(const TableInfo&) const { return {}; }
  /// Statements that keep what the engine's own schema cannot say of new columns: spelling and type in the
  /// dialect's words.
  virtual std::vector<std::string> describingStatements(std::string_view /*table*/,
                                                        const std::vector<ColumnInfo>&) const {
    return {};
  }

  /// What follows a key of ORDER BY or a column of an index, so that it has the dialect's order.
  virtual std::string_view direction(bool descending) const = 0;

  /// The two indexes by which a text column is ordered as a whole number: one over the number, one that finds
  /// at once whether the text of some row is none.
  virtual std::vector<std::string> numberIndexes(const TableInfo& table, const ColumnInfo& column) const = 0;
  /// A query that gives a row when some text of the column is no whole number, or one beyond 16 bits where it
  /// is read as such; it is answered by those indexes.
  virtual std::string oddNumbers(const NumberColumn& column) const = 0;
  /// A query that fails where the given one finds a row; on an engine that sends statements ahead of their
  /// answers.
  virtual std::string requiringNone(const std::string& query) const { return query; }
};

/// A base table's physical index name: index names of the dialect are per table, the engines' per database.
std::string physicalIndexName(std::string_view table, std::string_view index);

/// A text constant of SQL, the same for all engines.
std::string textConstant(std::string_view text);

}  // namespace zelkor::dialect
