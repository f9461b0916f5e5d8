#include "store/dialect/binding/BindScope.h"

#include "base/RuntimeError.h"
#include "store/dialect/binding/NameErrors.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::Node;

const TableInfo& BindContext::table(std::string_view name) const {
  if (const TableInfo* info = schema.table(name)) return *info;
  throw unknownTable(name);
}

std::size_t BindContext::addSlot(std::size_t literal, BindAs bindAs, ColumnType target) {
  slots.push_back({literal, bindAs, target});
  return slots.size() - 1;
}

void BindContext::noteNumberColumn(const bound::Column& column, bool asShort) {
  for (NumberColumn& known : numberColumns) {
    if (known.table != column.table || known.column != column.name) continue;
    known.asShort = known.asShort || asShort;
    return;
  }
  numberColumns.push_back({column.table, column.name, asShort});
}

// Where a row lacks the table, its column is Null, which the guard of the fast form does not see.
Node columnNode(const ScopeSource& source, std::size_t index, const ColumnInfo& column) {
  bound::Column node{source.name, column.name, source.derived ? "" : source.columns.name, index,
                     column.orderedAsNumber && !source.missing};
  return {std::move(node), valueType(column)};
}

namespace {

[[noreturn]] void raiseUnknownName(const ColumnRef& reference) {
  const std::string name =
      reference.table.empty() ? reference.column : reference.table + "." + reference.column;
  throw unknownColumn(name);
}

[[noreturn]] void raiseAmbiguous(const ColumnRef& reference) {
  throw RuntimeError(ErrorNumber::AmbiguousColumn,
                     "特定字段 '" + reference.column + "' 可以参考 FROM 子句列表中的多个表。");
}

std::optional<Node> amongItems(const Scope& scope, const ColumnRef& reference) {
  if (!scope.items || !reference.table.empty()) return std::nullopt;
  for (const bound::Item& item : *scope.items)
    if (sameName(item.name, reference.column)) return item.expr;
  return std::nullopt;
}

std::optional<Node> amongSources(const Scope& scope, const ColumnRef& reference) {
  std::optional<Node> found;
  for (std::size_t i = 0; i < scope.sources.size(); ++i) {
    const ScopeSource& source = scope.sources[i];
    if (!reference.table.empty() && !sameName(source.name, reference.table)) continue;
    const ColumnInfo* column = source.columns.find(reference.column);
    if (!column) continue;
    if (found) raiseAmbiguous(reference);
    found = columnNode(source, i, *column);
  }
  return found;
}

std::optional<Node> inScope(const Scope& scope, const ColumnRef& reference) {
  if (scope.itemsFirst) {
    if (auto item = amongItems(scope, reference)) return item;
    return amongSources(scope, reference);
  }
  if (auto column = amongSources(scope, reference)) return column;
  return amongItems(scope, reference);
}

}  // namespace

Node Scope::resolve(const ColumnRef& reference) const {
  for (const Scope* scope = this; scope; scope = scope->outer) {
    auto node = inScope(*scope, reference);
    if (!node) continue;
    if (scope != this)
      if (auto* column = std::get_if<bound::Column>(&node->node)) column->source.reset();
    return std::move(*node);
  }
  raiseUnknownName(reference);
}

std::size_t Scope::sourceNamed(std::string_view name) const {
  for (std::size_t i = 0; i < sources.size(); ++i)
    if (sameName(sources[i].name, name)) return i;
  throw unknownTable(name);
}

}  // namespace zelkor::dialect
