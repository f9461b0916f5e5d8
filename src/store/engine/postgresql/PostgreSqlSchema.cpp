#include <libpq-fe.h>

#include <array>
#include <charconv>

#include "base/Text.h"
#include "store/engine/postgresql/PostgreSqlEngine.h"

namespace zelkor {
namespace {

using dialect::ColumnInfo;
using dialect::ColumnType;
using dialect::TableInfo;

struct TypeWord {
  std::string_view word;
  ColumnType type;
};

// What the comment of a column says; without a comment (a table of somebody else) its type does.
constexpr std::array kTypeWords{
    TypeWord{"TEXT", ColumnType::Text},         TypeWord{"LONGTEXT", ColumnType::Memo},
    TypeWord{"SMALLINT", ColumnType::Short},    TypeWord{"INTEGER", ColumnType::Long},
    TypeWord{"COUNTER", ColumnType::Counter},   TypeWord{"DOUBLE", ColumnType::Double},
    TypeWord{"CURRENCY", ColumnType::Currency}, TypeWord{"DATETIME", ColumnType::Date},
    TypeWord{"BOOLEAN", ColumnType::Boolean},   TypeWord{"BLOB", ColumnType::Binary},
    TypeWord{"citext", ColumnType::Text},       TypeWord{"text", ColumnType::Text},
    TypeWord{"varchar", ColumnType::Text},      TypeWord{"int2", ColumnType::Short},
    TypeWord{"int4", ColumnType::Long},         TypeWord{"float8", ColumnType::Double},
    TypeWord{"numeric", ColumnType::Currency},  TypeWord{"timestamp", ColumnType::Date},
    TypeWord{"bytea", ColumnType::Binary},
};

ColumnType typeOf(std::string_view declared) {
  const std::string_view word = declared.substr(0, declared.find('('));
  for (const TypeWord& known : kTypeWords)
    if (known.word == word) return known.type;
  return ColumnType::Unknown;
}

int sizeOf(std::string_view declared) {
  const std::size_t open = declared.find('(');
  int size = 0;
  if (open != std::string_view::npos)
    std::from_chars(declared.data() + open + 1, declared.data() + declared.size(), size);
  return size;
}

std::string_view cell(const PgResult& result, int row, int column) {
  return PQgetvalue(result.get(), row, column);
}

// A table without columns of its own has zk_row.
const std::string kColumnsOfTables =
    "SELECT a.attname, t.typname, coalesce(d.description, ''), EXISTS (SELECT 1 FROM pg_class i "
    "WHERE i.relnamespace = c.relnamespace AND i.relname = 'zk_number_' || c.relname || '_' || a.attname), "
    "coalesce(n.description, c.relname) FROM pg_class c "
    "LEFT JOIN pg_description n ON n.objoid = c.oid AND n.objsubid = 0 AND n.classoid = 'pg_class'::regclass "
    "JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped "
    "JOIN pg_type t ON t.oid = a.atttypid LEFT JOIN pg_description d "
    "ON d.objoid = c.oid AND d.objsubid = a.attnum AND d.classoid = 'pg_class'::regclass "
    "WHERE c.relnamespace = current_schema()::regnamespace AND c.relkind IN ('r', 'p', 'v')";

ColumnInfo columnOf(std::string_view name, std::string_view type, std::string_view comment) {
  ColumnInfo column;
  const std::size_t blank = comment.rfind(' ');
  const bool described = blank != std::string_view::npos;
  const std::string_view declared = described ? comment.substr(blank + 1) : type;
  column.name = described ? comment.substr(0, blank) : name;
  column.type = typeOf(declared);
  column.size = sizeOf(declared);
  return column;
}

// Names without a character that would have to be quoted.
std::string arrayOf(const std::vector<std::string>& names) {
  std::string text = "{";
  for (const std::string& name : names) text += (text.size() > 1 ? "," : "") + name;
  return text + "}";
}

std::vector<TableInfo> tablesOf(const PgResult& columns) {
  std::vector<TableInfo> tables;
  for (int row = 0; row < PQntuples(columns.get()); ++row) {
    const std::string_view table = cell(columns, row, 4);
    if (tables.empty() || tables.back().name != table) tables.push_back({std::string(table), {}});
    if (cell(columns, row, 0) == "zk_row") continue;
    tables.back().columns.push_back(
        columnOf(cell(columns, row, 0), cell(columns, row, 1), cell(columns, row, 2)));
    tables.back().columns.back().orderedAsNumber = cell(columns, row, 3) == "t";
  }
  return tables;
}

}  // namespace

// By what depends on the schema, which has an index: pg_class holds the tables of all account sets.
std::vector<std::string> PostgreSqlEngine::tableNames() {
  const PgResult result = link_->query(
      "SELECT coalesce(d.description, c.relname) FROM pg_depend s JOIN pg_class c ON c.oid = s.objid "
      "LEFT JOIN pg_description d ON d.objoid = c.oid AND d.objsubid = 0 AND d.classoid = "
      "'pg_class'::regclass "
      "WHERE s.refclassid = 'pg_namespace'::regclass AND s.refobjid = current_schema()::regnamespace "
      "AND s.classid = 'pg_class'::regclass AND c.relkind IN ('r', 'p') ORDER BY c.relname",
      {});
  std::vector<std::string> names;
  names.reserve(static_cast<std::size_t>(PQntuples(result.get())));
  for (int row = 0; row < PQntuples(result.get()); ++row) names.emplace_back(cell(result, row, 0));
  return names;
}

std::optional<TableInfo> PostgreSqlEngine::tableInfo(std::string_view table) {
  std::vector<TableInfo> found =
      tablesOf(link_->query(kColumnsOfTables + " AND c.relname = $1 ORDER BY a.attnum", {asciiLower(table)}));
  if (found.empty()) return std::nullopt;
  link_->tables[asciiLower(table)] = found.front();
  return std::move(found.front());
}

// By the schema's own tables, as above.
std::vector<TableInfo> PostgreSqlEngine::tableInfos() {
  return noted(tablesOf(link_->query(
      kColumnsOfTables +
          " AND c.oid IN (SELECT objid FROM pg_depend WHERE refclassid = 'pg_namespace'::regclass AND "
          "refobjid = current_schema()::regnamespace AND classid = 'pg_class'::regclass) "
          "ORDER BY c.oid, a.attnum",
      {})));
}

std::vector<TableInfo> PostgreSqlEngine::tableInfos(const std::vector<std::string>& names) {
  return noted(tablesOf(link_->query(
      kColumnsOfTables + " AND c.relname = ANY ($1::name[]) ORDER BY c.oid, a.attnum", {arrayOf(names)})));
}

std::vector<TableInfo> PostgreSqlEngine::noted(std::vector<TableInfo> found) {
  for (const TableInfo& table : found) link_->tables[asciiLower(table.name)] = table;
  return found;
}

}  // namespace zelkor
