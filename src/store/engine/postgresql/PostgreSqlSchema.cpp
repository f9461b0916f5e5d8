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
constexpr const char* kColumnQuery =
    "SELECT a.attname, t.typname, coalesce(d.description, ''), EXISTS (SELECT 1 FROM pg_class i "
    "WHERE i.relnamespace = c.relnamespace AND i.relname = 'zk_number_' || $1 || '_' || a.attname), "
    "coalesce(n.description, c.relname) FROM pg_class c "
    "LEFT JOIN pg_description n ON n.objoid = c.oid AND n.objsubid = 0 AND n.classoid = 'pg_class'::regclass "
    "JOIN pg_attribute a ON a.attrelid = c.oid AND a.attnum > 0 AND NOT a.attisdropped "
    "JOIN pg_type t ON t.oid = a.atttypid LEFT JOIN pg_description d "
    "ON d.objoid = c.oid AND d.objsubid = a.attnum AND d.classoid = 'pg_class'::regclass "
    "WHERE c.relnamespace = current_schema()::regnamespace AND c.relkind IN ('r', 'p', 'v') AND "
    "c.relname = $1 ORDER BY a.attnum";

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
  const std::string key = asciiLower(table);
  const PgResult columns = link_->query(kColumnQuery, {key});
  if (PQntuples(columns.get()) == 0) return std::nullopt;
  TableInfo info;
  info.name = cell(columns, 0, 4);
  for (int row = 0; row < PQntuples(columns.get()); ++row) {
    if (cell(columns, row, 0) == "zk_row") continue;
    info.columns.push_back(columnOf(cell(columns, row, 0), cell(columns, row, 1), cell(columns, row, 2)));
    info.columns.back().orderedAsNumber = cell(columns, row, 3) == "t";
  }
  link_->tables[key] = info;
  return info;
}

}  // namespace zelkor
