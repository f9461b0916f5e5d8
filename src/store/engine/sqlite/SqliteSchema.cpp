#include <algorithm>
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
constexpr std::array kDeclaredTypes{
    DeclaredType{"TEXT", ColumnType::Text},         DeclaredType{"VARCHAR", ColumnType::Text},
    DeclaredType{"LONGTEXT", ColumnType::Memo},     DeclaredType{"SMALLINT", ColumnType::Short},
    DeclaredType{"INTEGER", ColumnType::Long},      DeclaredType{"INT", ColumnType::Long},
    DeclaredType{"DOUBLE", ColumnType::Double},     DeclaredType{"REAL", ColumnType::Double},
    DeclaredType{"CURRENCY", ColumnType::Currency}, DeclaredType{"DATETIME", ColumnType::Date},
    DeclaredType{"BOOLEAN", ColumnType::Boolean},   DeclaredType{"BLOB", ColumnType::Binary},
};

ColumnType typeOf(std::string_view declared) {
  const std::string_view name = declared.substr(0, declared.find('('));
  for (const DeclaredType& candidate : kDeclaredTypes)
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

/// What the file's list says of one table.
struct ListedTable {
  std::string name;  // in the table's own spelling; empty when there is none
  std::vector<std::string> indexes;

  bool hasIndex(std::string_view index) const {
    return std::ranges::any_of(indexes,
                               [&](std::string_view known) { return dialect::sameName(known, index); });
  }
};

// One pass for everything: the list has hundreds of rows, and no index.
ListedTable listedTable(EngineStatement& list, std::string_view table) {
  list.bindText(1, table);
  ListedTable found;
  while (list.step()) {
    if (list.text(0) == "index") {
      found.indexes.emplace_back(list.text(1));
    } else {
      found.name = list.text(1);
    }
  }
  return found;
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
  const auto list = prepare(
      "SELECT type, name FROM sqlite_master WHERE tbl_name = ?1 COLLATE NOCASE AND type <> 'trigger'");
  const ListedTable listed = listedTable(*list, table);
  if (listed.name.empty()) return std::nullopt;

  TableInfo info;
  info.name = listed.name;
  constexpr int kName = 1;
  constexpr int kType = 2;
  constexpr int kPrimaryKey = 5;
  const auto columns = prepare("PRAGMA table_info(" + words().quoted(info.name) + ")");
  while (columns->step()) {
    ColumnInfo column;
    column.name = columns->text(kName);
    column.type = typeOf(columns->text(kType));
    column.size = sizeOf(columns->text(kType));
    if (column.type == ColumnType::Long && columns->integer(kPrimaryKey) != 0)
      column.type = ColumnType::Counter;
    column.orderedAsNumber = listed.hasIndex("zk_number_" + info.name + "_" + column.name);
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
