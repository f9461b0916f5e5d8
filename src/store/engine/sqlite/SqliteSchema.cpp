#include <array>
#include <charconv>

#include "store/engine/sqlite/SqliteEngine.h"

namespace zelkor {
namespace {

using dialect::ColumnInfo;
using dialect::ColumnType;
using dialect::TableInfo;

struct DeclaredType {
  std::string_view name;
  ColumnType type;
};

// The physical types that the catalogue declares, and near relatives that foreign tools create.
constexpr std::array declaredTypes{
    DeclaredType{"TEXT", ColumnType::Text},         DeclaredType{"VARCHAR", ColumnType::Text},
    DeclaredType{"LONGTEXT", ColumnType::Memo},     DeclaredType{"SMALLINT", ColumnType::Short},
    DeclaredType{"INTEGER", ColumnType::Long},      DeclaredType{"INT", ColumnType::Long},
    DeclaredType{"DOUBLE", ColumnType::Double},     DeclaredType{"REAL", ColumnType::Double},
    DeclaredType{"CURRENCY", ColumnType::Currency}, DeclaredType{"DATETIME", ColumnType::Date},
    DeclaredType{"BOOLEAN", ColumnType::Boolean},   DeclaredType{"BLOB", ColumnType::Binary},
};

ColumnType typeOf(std::string_view declared) {
  const std::string_view name = declared.substr(0, declared.find('('));
  for (const DeclaredType& candidate : declaredTypes)
    if (dialect::sameName(candidate.name, name)) return candidate.type;
  return ColumnType::Unknown;
}

int sizeOf(std::string_view declared) {
  const std::size_t open = declared.find('(');
  int size = 0;
  if (open != std::string_view::npos)
    std::from_chars(declared.data() + open + 1, declared.data() + declared.size(), size);
  return size;
}

std::string schemaName(EngineStatement& master, std::string_view table) {
  master.bindText(1, table);
  std::string name;
  if (master.step()) name = master.text(0);
  master.reset();
  return name;
}

}  // namespace

std::vector<std::string> SqliteEngine::tableNames() {
  const auto statement = prepare(
      "SELECT name FROM sqlite_master WHERE type = 'table' AND name NOT LIKE 'sqlite\\_%' ESCAPE '\\' "
      "ORDER BY name COLLATE NOCASE");
  std::vector<std::string> names;
  while (statement->step()) names.emplace_back(statement->text(0));
  return names;
}

std::optional<TableInfo> SqliteEngine::tableInfo(std::string_view table) {
  const auto master =
      prepare("SELECT name FROM sqlite_master WHERE type IN ('table', 'view') AND name = ?1 COLLATE NOCASE");
  TableInfo info;
  info.name = schemaName(*master, table);
  if (info.name.empty()) return std::nullopt;

  const auto columns = prepare(
      "SELECT c.name, c.type, c.pk, EXISTS (SELECT 1 FROM sqlite_master i WHERE i.type = 'index' "
      "AND i.name = 'zk_number_' || ?1 || '_' || c.name COLLATE NOCASE) FROM pragma_table_info(?1) c");
  columns->bindText(1, info.name);
  while (columns->step()) {
    ColumnInfo column;
    column.name = columns->text(0);
    column.type = typeOf(columns->text(1));
    column.size = sizeOf(columns->text(1));
    if (column.type == ColumnType::Long && columns->integer(2) != 0) column.type = ColumnType::Counter;
    column.orderedAsNumber = columns->integer(3) != 0;
    info.columns.push_back(std::move(column));
  }
  return info;
}

// The number has a place of its own in the header of a file; it is part of the transaction.
std::string revisionStatement(int revision) {
  return "PRAGMA user_version = " + std::to_string(revision);
}

int SqliteEngine::booksRevision() {
  const auto number = prepare("PRAGMA user_version");
  number->step();
  return static_cast<int>(number->integer(0));
}

void SqliteEngine::setBooksRevision(int revision) {
  run(revisionStatement(revision));
}

}  // namespace zelkor
