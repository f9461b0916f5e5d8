#include <algorithm>
#include <cctype>

#include "store/catalogue/Catalogue.h"
#include "store/dialect/printing/ColumnTypes.h"
#include "store/dialect/printing/Emit.h"

// How a table of the catalogue is laid down in an engine's own language. The declared types of an SQLite file
// are read back as the column types, so that a file that was created elsewhere opens as well.

namespace zelkor {
namespace {

using dialect::ColumnInfo;
using dialect::ColumnType;
using dialect::EngineKind;

std::string lower(std::string_view text) {
  std::string folded(text);
  for (char& c : folded) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return folded;
}

std::string defaultOf(const TableDef& table, const ColumnInfo& column) {
  if (const auto value = table.defaults.find(column.name); value != table.defaults.end())
    return " DEFAULT " + value->second;
  return column.type == ColumnType::Boolean ? " DEFAULT 0" : "";
}

std::string columnClause(const TableDef& table, const ColumnInfo& column, EngineKind engine) {
  return quotedName(column.name, engine) + ' ' + dialect::columnType(column, engine) +
         defaultOf(table, column);
}

std::string createTable(const TableDef& table, EngineKind engine) {
  std::string columns;
  for (const ColumnInfo& column : table.info.columns)
    columns += (columns.empty() ? "" : ", ") + columnClause(table, column, engine);
  // Rows are addressed by the rowid in SQLite; PostgreSQL has nothing of the kind that lasts.
  if (engine == EngineKind::PostgreSql) columns += ", \"zk_row\" bigint GENERATED ALWAYS AS IDENTITY";
  return "CREATE TABLE " + quotedName(table.info.name, engine) + " (" + columns + ")";
}

bool isDescending(const IndexDef& index, const std::string& column) {
  return std::any_of(index.descending.begin(), index.descending.end(),
                     [&](const std::string& name) { return dialect::sameName(name, column); });
}

/// The two indexes by which a text is ordered as a whole number: one over the number, one that finds at once
/// whether some row's text is none. Only SQLite casts any text without an error, which an index must. A cast
/// keeps its column's collation, and SQLite uses an index over one only where it names that collation.
void addNumberIndexes(std::vector<std::string>& statements, const TableDef& table, const ColumnInfo& column) {
  const auto quoted = [](std::string_view name) { return quotedName(name, EngineKind::Sqlite); };
  const std::string name = table.info.name + '_' + column.name;
  const std::string text = quoted(column.name);
  const std::string on = " ON " + quoted(table.info.name);
  const std::string number = "CAST(" + text + " AS INTEGER)";
  statements.push_back("CREATE INDEX " + quoted("zk_number_" + name) + on + " (" + number +
                       " COLLATE NOCASE, " + text + ")");
  statements.push_back("CREATE INDEX " + quoted("zk_odd_" + name) + on + " (" + text + ") WHERE " + text +
                       " IS NULL OR " + text + " = '' OR " + text + " GLOB '*[^0-9]*' OR " + number +
                       " > 999999999");
}

/// The same two on a server, over a function that gives Null for a text that is no whole number.
void addServerNumberIndexes(std::vector<std::string>& statements, const TableDef& table,
                            const ColumnInfo& column) {
  const auto quoted = [](std::string_view name) { return quotedName(name, EngineKind::PostgreSql); };
  const std::string name = table.info.name + '_' + column.name;
  const std::string text = quoted(column.name);
  const auto create = [&](const char* kind) {
    return "CREATE INDEX " + quoted(kind + name) + " ON " + quoted(table.info.name);
  };
  statements.push_back(create("zk_number_") + " (zk_digits(" + text + ") NULLS FIRST, " + text +
                       " NULLS FIRST)");
  statements.push_back(create("zk_odd_") + " (" + text + ") WHERE zk_digits(" + text + ") IS NULL");
}

}  // namespace

// PostgreSQL folds unquoted names to lower case; ours are quoted in lower case, so that both spell one name.
std::string quotedName(std::string_view name, EngineKind engine) {
  std::string quoted = "\"";
  for (const char c : engine == EngineKind::PostgreSql ? lower(name) : std::string(name)) {
    if (c == '"') quoted += c;
    quoted += c;
  }
  return quoted + '"';
}

std::vector<std::string> createTableStatements(const TableDef& table, EngineKind engine) {
  std::vector<std::string> statements{createTable(table, engine)};
  if (auto description = dialect::describingStatement(table.info.name, table.info.columns, engine))
    statements.push_back(std::move(*description));
  return statements;
}

std::vector<std::string> createKeyStatements(const TableDef& table, EngineKind engine) {
  if (engine == EngineKind::Sqlite) return {};  // a key there is the row's own number
  std::string statement = "ALTER TABLE " + quotedName(table.info.name, engine);
  for (const ColumnInfo& column : table.info.columns)
    if (column.type == ColumnType::Counter)
      statement += " ADD UNIQUE (" + quotedName(column.name, engine) + "),";
  return {statement + " ADD PRIMARY KEY (\"zk_row\")"};
}

std::string createIndexStatement(const TableDef& table, const IndexDef& index, EngineKind engine) {
  std::string columns;
  for (const std::string& column : index.columns)
    columns += (columns.empty() ? "" : ", ") + quotedName(column, engine) +
               std::string(dialect::directionInIndex(isDescending(index, column), engine));
  std::string statement = std::string("CREATE ") + (index.unique ? "UNIQUE " : "") + "INDEX " +
                          quotedName(dialect::physicalIndexName(table.info.name, index.name), engine) +
                          " ON " + quotedName(table.info.name, engine) + " (" + columns + ")";
  if (index.ignoresNull) statement += " WHERE " + quotedName(index.columns.front(), engine) + " IS NOT NULL";
  return statement;
}

std::vector<std::string> createNumberIndexStatements(const TableDef& table, EngineKind engine) {
  std::vector<std::string> statements;
  const auto addIndexes = engine == EngineKind::Sqlite ? addNumberIndexes : addServerNumberIndexes;
  for (const ColumnInfo& column : table.info.columns)
    if (column.orderedAsNumber) addIndexes(statements, table, column);
  return statements;
}

std::vector<std::string> createStatements(const TableDef& table, EngineKind engine) {
  std::vector<std::string> statements = createTableStatements(table, engine);
  for (std::string& statement : createKeyStatements(table, engine))
    statements.push_back(std::move(statement));
  for (const IndexDef& index : table.indexes)
    statements.push_back(createIndexStatement(table, index, engine));
  for (std::string& statement : createNumberIndexStatements(table, engine))
    statements.push_back(std::move(statement));
  return statements;
}

}  // namespace zelkor
