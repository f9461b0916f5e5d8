#pragma once

#include <optional>
#include <string>
#include <vector>

#include "store/dialect/binding/BindTree.h"
#include "store/dialect/binding/ParameterSlot.h"
#include "store/dialect/binding/Schema.h"
#include "store/dialect/reading/Ast.h"
#include "store/dialect/reading/Shape.h"

namespace zelkor::dialect {

/// A text column that the statement reads as a number in the way that an index helps with.
struct NumberColumn {
  std::string table;
  std::string column;
  bool asShort = false;  // by CInt, which overflows sooner
};

/// What is gathered while one statement is bound.
struct BindContext {
  const SchemaView& schema;
  const Shape& shape;
  std::vector<ParameterSlot> slots;
  std::vector<NumberColumn> numberColumns;
  bool dependsOnLiterals = false;  // see Translation
  bool inOrder = false;            // the SELECT that is being bound gathers the first or the last row

  const TableInfo& table(std::string_view name) const;  // 3078 when there is none
  std::size_t addSlot(std::size_t literal, BindAs bindAs, ColumnType target = ColumnType::Unknown);
  const Literal& literalOf(std::size_t slot) const { return shape.literals[slots[slot].literal]; }
  void noteNumberColumn(const bound::Column& column, bool asShort);
};

struct ScopeSource {
  std::string name;  // alias, or the table's own spelling
  TableInfo columns;
  bool derived = false;
  bool missing = false;  // an outer join may leave it out
};

/// The tables whose columns an expression may name: those of its own SELECT, then those around it.
struct Scope {
  const Scope* outer = nullptr;
  std::vector<ScopeSource> sources;
  const std::vector<bound::Item>* items =
      nullptr;              // columns that may be named by alias when no table has them
  bool itemsFirst = false;  // the aliases hide columns of the tables

  /// Errors: 3061 for an unknown name, 3079 for one that several tables have.
  bound::Node resolve(const ColumnRef& reference) const;
  /// Index of the source of that name; 3078 when there is none.
  std::size_t sourceNamed(std::string_view name) const;
};

bound::Node columnNode(const ScopeSource& source, std::size_t index, const ColumnInfo& column);

}  // namespace zelkor::dialect
