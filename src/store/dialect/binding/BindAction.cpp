#include <algorithm>

#include "base/RuntimeError.h"
#include "store/dialect/binding/Bind.h"
#include "store/dialect/binding/NameErrors.h"
#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {
namespace {

const ColumnInfo& columnOf(const TableInfo& table, const std::string& name) {
  if (const ColumnInfo* column = table.find(name)) return *column;
  throw unknownColumn(name);
}

[[noreturn]] void raiseColumnCount() {
  throw RuntimeError(ErrorNumber::ColumnCountDiffers, "查询值的数目与目标字段中的数目不同。");
}

// The columns that are filled: those named; else all for values, and for rows of a query those of its
// columns.
std::vector<ColumnInfo> targets(const TableInfo& table, const Insert& insert, const bound::Select* select) {
  std::vector<ColumnInfo> columns;
  if (!insert.columns.empty()) {
    for (const std::string& name : insert.columns) columns.push_back(columnOf(table, name));
  } else if (select) {
    for (const bound::Item& item : select->items) columns.push_back(columnOf(table, item.name));
  } else {
    columns = table.columns;
  }
  return columns;
}

// A boolean column is never Null in its own table, so it can be copied as it is.
bool isOwnBoolean(const BoundSelect& rows, const bound::Item& item) {
  return item.expr.type.type == ColumnType::Boolean && item.source && *item.source < rows.missing.size() &&
         !rows.missing[*item.source];
}

void requireEachOnce(const std::vector<std::string>& columns) {
  for (std::size_t i = 0; i < columns.size(); ++i)
    if (std::find(columns.begin(), columns.begin() + static_cast<std::ptrdiff_t>(i), columns[i]) !=
        columns.begin() + static_cast<std::ptrdiff_t>(i))
      throw RuntimeError(ErrorNumber::DuplicateDestination, "重复的输出目标 '" + columns[i] + "'。");
}

bool isSingleTable(const TableSource& source) {
  return std::holds_alternative<TableName>(source);
}

// Finds the one table whose columns are set; a statement that sets columns of several is not supported.
std::size_t updatedSource(const Update& update, const Scope& scope) {
  std::optional<std::size_t> target;
  for (const Assignment& assignment : update.assignments) {
    const bound::Node node = scope.resolve(assignment.target);
    const auto* column = std::get_if<bound::Column>(&node.node);
    if (!column || !column->source || scope.sources[*column->source].derived ||
        target.value_or(*column->source) != *column->source)
      throw RuntimeError(ErrorNumber::OperationNotUpdatable, "操作必须使用一个可更新的查询。");
    target = column->source;
  }
  return target.value_or(0);
}

bound::Table tableOf(const Scope& scope, std::size_t index) {
  const ScopeSource& source = scope.sources[index];
  return {source.columns.name, sameName(source.name, source.columns.name) ? "" : source.name};
}

bool isScalarSelect(const Expr& expr) {
  return std::holds_alternative<ScalarSelect>(expr.node);
}

// What is stored is made of the rows that DISTINCT and UNION have left, in their order.
BoundSelect behind(BoundSelect rows) {
  constexpr const char* kName = "zk_from";
  BoundSelect outer;
  for (std::size_t i = 0; i < rows.select.items.size(); ++i) {
    bound::Item& item = rows.select.items[i];
    item.name = "zk_" + std::to_string(i + 1);
    outer.select.items.push_back(
        {{bound::Column{kName, item.name, {}, {}, false}, item.expr.type}, item.name});
  }
  outer.select.from.emplace_back(bound::Derived{std::move(rows.select), kName});
  return outer;
}

}  // namespace

bound::Select storedRows(BindContext& context, BoundSelect rows, const std::vector<ColumnInfo>& columns) {
  if (rows.select.distinct || !rows.select.unions.empty()) rows = behind(std::move(rows));
  for (std::size_t i = 0; i < columns.size(); ++i) {
    bound::Item& item = rows.select.items[i];
    if (columns[i].type != ColumnType::Boolean || !isOwnBoolean(rows, item))
      item.expr = assigned(context, std::move(item.expr), columns[i]);
  }
  return std::move(rows.select);
}

bound::Insert bindInsert(BindContext& context, const Insert& insert) {
  const TableInfo& table = context.table(insert.table);
  bound::Insert result;
  result.table = table.name;
  std::optional<BoundSelect> rows;
  if (const auto* source = std::get_if<Box<Select>>(&insert.source))
    rows = bindSelect(context, **source, nullptr);
  const std::vector<ColumnInfo> columns = targets(table, insert, rows ? &rows->select : nullptr);
  for (const ColumnInfo& column : columns) result.columns.push_back(column.name);
  requireEachOnce(result.columns);
  if (rows) {
    if (columns.size() != rows->select.items.size()) raiseColumnCount();
    result.source = storedRows(context, std::move(*rows), columns);
    return result;
  }
  const auto& values = std::get<std::vector<Expr>>(insert.source);
  if (columns.size() != values.size()) raiseColumnCount();
  const Scope none;
  std::vector<bound::Node> nodes;
  for (std::size_t i = 0; i < columns.size(); ++i)
    nodes.push_back(ExprBinder(context, none).assigned(values[i], columns[i]));
  result.source = std::move(nodes);
  return result;
}

bound::Update bindUpdate(BindContext& context, const Update& update) {
  BoundFrom from = bindFrom(context, {update.target}, nullptr);
  const std::size_t target = updatedSource(update, from.scope);
  bound::Update result;
  result.target = tableOf(from.scope, target);
  ExprBinder binder(context, from.scope);
  const TableInfo& columns = from.scope.sources[target].columns;
  for (const Assignment& assignment : update.assignments) {
    if (isScalarSelect(assignment.value))
      throw RuntimeError(ErrorNumber::OperationNotUpdatable, "操作必须使用一个可更新的查询。");
    const ColumnInfo& column = columnOf(columns, assignment.target.column);
    result.assignments.push_back({column.name, binder.assigned(assignment.value, column)});
  }
  if (update.where) result.where = binder.condition(*update.where);
  if (!isSingleTable(update.target)) result.from = std::move(from.sources);
  return result;
}

bound::Delete bindDelete(BindContext& context, const Delete& statement) {
  BoundFrom from = bindFrom(context, statement.from, nullptr);
  const std::size_t target = statement.target.empty() ? 0 : from.scope.sourceNamed(statement.target);
  bound::Delete result;
  result.target = tableOf(from.scope, target);
  if (statement.where) result.where = ExprBinder(context, from.scope).condition(*statement.where);
  const bool single = statement.from.size() == 1 && isSingleTable(statement.from.front());
  if (!single) result.from = std::move(from.sources);
  return result;
}

}  // namespace zelkor::dialect
