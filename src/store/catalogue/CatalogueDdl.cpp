#include <algorithm>
#include <iterator>

#include "store/catalogue/Catalogue.h"

// How a table of the catalogue is created in an engine's own language.

namespace zelkor {
namespace {

using dialect::ColumnInfo;
using dialect::ColumnType;
using dialect::EngineWords;

std::string defaultOf(const TableDef& table, const ColumnInfo& column) {
  if (const auto value = table.defaults.find(column.name); value != table.defaults.end())
    return " DEFAULT " + value->second;
  return column.type == ColumnType::Boolean ? " DEFAULT 0" : "";
}

std::string columnClause(const TableDef& table, const ColumnInfo& column, const EngineWords& engine) {
  return engine.quoted(column.name) + ' ' + engine.columnType(column) + defaultOf(table, column);
}

std::string createTable(const TableDef& table, const EngineWords& engine) {
  std::string columns;
  for (const ColumnInfo& column : table.info.columns)
    columns += (columns.empty() ? "" : ", ") + columnClause(table, column, engine);
  return "CREATE TABLE " + engine.quoted(table.info.name) + " (" + columns +
         std::string(engine.hiddenColumn()) + ")";
}

bool isDescending(const IndexDef& index, const std::string& column) {
  return std::any_of(index.descending.begin(), index.descending.end(),
                     [&](const std::string& name) { return dialect::sameName(name, column); });
}

}  // namespace

std::vector<std::string> createTableStatements(const TableDef& table, const EngineWords& engine) {
  std::vector<std::string> statements{createTable(table, engine)};
  std::ranges::move(engine.describingStatements(table.info.name, table.info.columns),
                    std::back_inserter(statements));
  return statements;
}

std::string createIndexStatement(const TableDef& table, const IndexDef& index, const EngineWords& engine) {
  std::string columns;
  for (const std::string& column : index.columns)
    columns += (columns.empty() ? "" : ", ") + engine.quoted(column) +
               std::string(engine.direction(isDescending(index, column)));
  std::string statement = std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX " +
                          engine.quoted(dialect::physicalIndexName(table.info.name, index.name)) + " ON " +
                          engine.quoted(table.info.name) + " (" + columns + ")";
  if (index.ignoresNull) statement += " WHERE " + engine.quoted(index.columns.front()) + " IS NOT NULL";
  return statement;
}

std::vector<std::string> createNumberIndexStatements(const TableDef& table, const EngineWords& engine) {
  std::vector<std::string> statements;
  for (const ColumnInfo& column : table.info.columns)
    if (column.orderedAsNumber)
      std::ranges::move(engine.numberIndexes(table.info, column), std::back_inserter(statements));
  return statements;
}

std::vector<std::string> addColumnStatements(const TableDef& table, const ColumnInfo& column,
                                             const EngineWords& engine) {
  const TableDef added{{table.info.name, {column}}, {}, {}};
  std::vector<std::string> statements{"ALTER TABLE " + engine.quoted(table.info.name) + " ADD COLUMN " +
                                      columnClause(table, column, engine)};
  std::ranges::move(engine.describingStatements(table.info.name, added.info.columns),
                    std::back_inserter(statements));
  std::ranges::move(createNumberIndexStatements(added, engine), std::back_inserter(statements));
  return statements;
}

std::vector<std::string> createStatements(const TableDef& table, const EngineWords& engine) {
  std::vector<std::string> statements = createTableStatements(table, engine);
  for (std::string& statement : engine.keyStatements(table.info)) statements.push_back(std::move(statement));
  for (const IndexDef& index : table.indexes)
    statements.push_back(createIndexStatement(table, index, engine));
  for (std::string& statement : createNumberIndexStatements(table, engine))
    statements.push_back(std::move(statement));
  return statements;
}

}  // namespace zelkor
