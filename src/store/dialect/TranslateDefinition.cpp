#include <algorithm>

#include "base/RuntimeError.h"
#include "store/dialect/binding/NameErrors.h"
#include "store/dialect/binding/Types.h"
#include "store/dialect/printing/Emit.h"
#include "store/dialect/TranslateStatements.h"

namespace zelkor::dialect {
namespace {

Translation definition(StatementKind kind, std::string table) {
  Translation result;
  result.kind = kind;
  result.table = std::move(table);
  return result;
}

const TableInfo& existing(const SchemaView& schema, std::string_view table) {
  const Shape none;
  return BindContext{schema, none, {}, {}}.table(table);
}

ColumnInfo columnOf(const ColumnDefinition& definition) {
  const auto type = columnTypeOf(definition.typeName);
  if (!type)
    throw RuntimeError(ErrorNumber::SyntaxInQuery, "字段定义语法错误 在 '" + definition.typeName + "' 中。");
  return {definition.name, *type, *type == ColumnType::Text ? definition.size.value_or(255) : 0, false};
}

const std::string& columnOf(const OrderKey& key) {
  if (const auto* column = std::get_if<ColumnRef>(&key.expr.node)) return column->column;
  throw RuntimeError(ErrorNumber::SyntaxInQuery, "字段定义语法错误 在 CREATE INDEX 语句中。");
}

std::string indexText(const EngineWords& engine, const std::string& table, const std::string& index,
                      bool unique, const std::vector<OrderKey>& columns, bool ignoreNull = false) {
  const auto emitter = engine.emitter();
  emitter->text(unique ? "CREATE UNIQUE INDEX " : "CREATE INDEX ").name(physicalIndexName(table, index));
  emitter->text(" ON ").name(table);
  std::string_view separator = " (";
  for (const OrderKey& key : columns) {
    emitter->text(separator).name(columnOf(key));
    emitter->text(engine.direction(key.descending));
    separator = ", ";
  }
  emitter->text(")");
  if (ignoreNull) emitter->text(" WHERE ").name(columnOf(columns.front())).text(" IS NOT NULL");
  return emitter->take();
}

OrderKey keyOf(const std::string& column) {
  return {Expr{ColumnRef{"", column}}, false};
}

std::vector<std::string> primaryKeyOf(const CreateTable& statement) {
  if (!statement.primaryKey.empty()) return statement.primaryKey;
  for (const ColumnDefinition& column : statement.columns)
    if (column.primaryKey) return {column.name};
  return {};
}

// A counter is the key of its table by itself.
bool isCounter(const std::vector<ColumnInfo>& columns, const std::vector<std::string>& key) {
  return key.size() == 1 && std::any_of(columns.begin(), columns.end(), [&](const ColumnInfo& column) {
           return column.type == ColumnType::Counter && sameName(column.name, key.front());
         });
}

/// The columns that hold no Null. A counter needs not be told.
std::vector<std::string> requiredColumns(const CreateTable& statement, const std::vector<ColumnInfo>& columns,
                                         const std::vector<std::string>& key) {
  std::vector<std::string> names = key;
  for (const ColumnDefinition& column : statement.columns)
    if (column.notNull) names.push_back(column.name);
  std::erase_if(names, [&](const std::string& name) { return isCounter(columns, {name}); });
  return names;
}

[[noreturn]] void refuse(std::string_view what) {
  throw RuntimeError(ErrorNumber::OperationNotSupported, "已有的表不支持 " + std::string(what) + "。");
}

const ColumnInfo& columnNamed(const TableInfo& table, const std::string& name) {
  if (const ColumnInfo* column = table.find(name)) return *column;
  throw unknownColumn(name);
}

}  // namespace

Translation translateDefinition(const CreateTable& statement, const SchemaView& schema,
                                const EngineWords& engine) {
  if (schema.table(statement.table)) raiseTableExists(statement.table);
  Translation result = definition(StatementKind::CreateTable, statement.table);
  std::vector<ColumnInfo> columns;
  for (const ColumnDefinition& column : statement.columns) columns.push_back(columnOf(column));
  const std::vector<std::string> key = primaryKeyOf(statement);
  const auto emitter = engine.emitter();
  emitter->createTable(statement.table, columns, requiredColumns(statement, columns, key));
  result.sql.push_back(emitter->take());
  std::ranges::move(engine.describingStatements(statement.table, columns), std::back_inserter(result.sql));

  if (!key.empty() && !isCounter(columns, key)) {
    std::vector<OrderKey> keys;
    keys.reserve(key.size());
    for (const std::string& column : key) keys.push_back(keyOf(column));
    result.sql.push_back(indexText(engine, statement.table, "PrimaryKey", true, keys));
  }
  for (const ColumnDefinition& column : statement.columns)
    if (column.unique)
      result.sql.push_back(indexText(engine, statement.table, column.name, true, {keyOf(column.name)}));
  return result;
}

Translation translateDefinition(const CreateIndex& statement, const SchemaView& schema,
                                const EngineWords& engine) {
  const TableInfo& table = existing(schema, statement.table);
  if (statement.disallowNull) refuse("PRIMARY 和 DISALLOW NULL");
  Translation result = definition(StatementKind::CreateIndex, table.name);
  result.index = statement.name;
  std::vector<OrderKey> columns;
  for (const OrderKey& key : statement.columns) {
    columns.push_back(keyOf(columnNamed(table, columnOf(key)).name));
    columns.back().descending = key.descending;
  }
  result.sql.push_back(
      indexText(engine, table.name, statement.name, statement.unique, columns, statement.ignoreNull));
  return result;
}

Translation translateDefinition(const DropTable& statement, const SchemaView& schema,
                                const EngineWords& engine) {
  const TableInfo* table = schema.table(statement.table);
  if (!table) throw RuntimeError(ErrorNumber::TableDoesNotExist, "表 '" + statement.table + "' 不存在。");
  Translation result = definition(StatementKind::DropTable, table->name);
  const auto emitter = engine.emitter();
  emitter->text("DROP TABLE ").name(table->name);
  result.sql.push_back(emitter->take());
  return result;
}

Translation translateDefinition(const DropIndex& statement, const SchemaView& schema,
                                const EngineWords& engine) {
  const TableInfo& table = existing(schema, statement.table);
  Translation result = definition(StatementKind::DropIndex, table.name);
  result.index = statement.name;
  const auto emitter = engine.emitter();
  emitter->text("DROP INDEX ").name(physicalIndexName(table.name, statement.name));
  result.sql.push_back(emitter->take());
  return result;
}

Translation translateDefinition(const AlterTable& statement, const SchemaView& schema,
                                const EngineWords& engine) {
  const TableInfo& table = existing(schema, statement.table);
  Translation result = definition(StatementKind::AlterTable, table.name);
  const auto emitter = engine.emitter();
  emitter->text("ALTER TABLE ").name(table.name);
  if (const auto* column = std::get_if<ColumnDefinition>(&statement.change)) {
    if (column->notNull || column->primaryKey) refuse("NOT NULL 和 PRIMARY KEY");
    emitter->text(" ADD COLUMN ").columnDefinition(columnOf(*column));
    std::ranges::move(engine.describingStatements(table.name, {columnOf(*column)}),
                      std::back_inserter(result.sql));
    if (column->unique)
      result.sql.push_back(indexText(engine, table.name, column->name, true, {keyOf(column->name)}));
  } else {
    emitter->text(" DROP COLUMN ").name(columnNamed(table, std::get<std::string>(statement.change)).name);
  }
  result.sql.insert(result.sql.begin(), emitter->take());
  return result;
}

}  // namespace zelkor::dialect
