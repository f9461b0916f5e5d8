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

// What the engine calls the file's own list, which is no table of the books.
constexpr std::string_view kListOfTables = "sqlite_schema";
// With which the names of the indexes begin by which texts are ordered as numbers.
constexpr std::string_view kNumberIndex = "zk_number_";

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

/// The names that a pragma tells, as far as they begin so.
std::vector<std::string> namesIn(EngineStatement& pragma, std::string_view beginning = {}) {
  constexpr int kName = 1;
  std::vector<std::string> names;
  while (pragma.step())
    if (pragma.text(kName).starts_with(beginning)) names.emplace_back(pragma.text(kName));
  return names;
}

bool isListed(const std::vector<std::string>& names, std::string_view name) {
  return std::ranges::any_of(names, [&](std::string_view listed) { return dialect::sameName(listed, name); });
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

// The engine knows its tables by heart; to look into the file's own list is to read all of it.
std::optional<TableInfo> SqliteEngine::tableInfo(std::string_view table) {
  const auto pragma = [this](const char* what, std::string_view name) {
    return prepare("PRAGMA main." + std::string(what) + "(" + words().quoted(name) + ")");
  };
  const auto names = namesIn(*pragma("table_list", table));
  if (names.empty() || names.front() == kListOfTables) return std::nullopt;

  TableInfo info;
  info.name = names.front();
  const auto numberIndexes = namesIn(*pragma("index_list", info.name), kNumberIndex);
  constexpr int kName = 1;
  constexpr int kType = 2;
  constexpr int kPrimaryKey = 5;
  const auto columns = pragma("table_info", info.name);
  while (columns->step()) {
    ColumnInfo column;
    column.name = columns->text(kName);
    column.type = typeOf(columns->text(kType));
    column.size = sizeOf(columns->text(kType));
    if (column.type == ColumnType::Long && columns->integer(kPrimaryKey) != 0)
      column.type = ColumnType::Counter;
    column.orderedAsNumber =
        !numberIndexes.empty() &&
        isListed(numberIndexes, std::string(kNumberIndex) + info.name + "_" + column.name);
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
