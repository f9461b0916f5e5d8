#include "faults/KeptAccountSet.h"

#include <algorithm>
#include <iterator>

#include "store/accountset/DataFile.h"
#include "store/engine/ColumnValue.h"

namespace zelkor::test {
namespace {

namespace fs = std::filesystem;
using dialect::ColumnInfo;
using dialect::ColumnType;

std::vector<ColumnInfo> columnsOf(Engine& engine, const std::string& table) {
  std::vector<ColumnInfo> columns = engine.tableInfo(table)->columns;
  std::erase_if(columns, [](const ColumnInfo& column) { return column.type == ColumnType::Counter; });
  return columns;
}

std::string selectOf(const std::vector<ColumnInfo>& columns, const std::string& table,
                     std::string_view rowKey) {
  std::string list;
  for (const ColumnInfo& column : columns) list += (list.empty() ? "" : ", ") + column.name;
  return "SELECT " + list + " FROM " + table + " ORDER BY " + std::string(rowKey);
}

std::vector<std::string> rowsOf(Engine& engine, const std::string& table) {
  const std::vector<ColumnInfo> columns = columnsOf(engine, table);
  const auto statement = engine.prepare(selectOf(columns, table, engine.words().rowKey()));
  std::vector<std::string> rows;
  while (statement->step()) {
    std::string row;
    for (std::size_t i = 0; i < columns.size(); ++i) {
      const Value cell = readCell(*statement, static_cast<int>(i), columns[i].type);
      row += " " + (cell.isNull() ? "~" : cell.text()) + " |";
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

void copyFiles(const fs::path& from, const fs::path& to) {
  for (const fs::path& directory : {from, to}) fs::create_directories(directory);
  for (const auto& entry : fs::directory_iterator(to)) fs::remove_all(entry.path());
  fs::copy(from, to, fs::copy_options::recursive);
}

}  // namespace

KeptAccountSet::KeptAccountSet() = default;

std::string KeptAccountSet::argument(const std::string& runType, const std::string& user) const {
  return dataFile() + "," + user + ",2020-01-15," + runType + "," + (home_ / "ZkSystem.Mdb").string() +
         ",001";
}

void KeptAccountSet::keep() {
  if (!files_.database()) return copyFiles(home_.path(), kept_.path());
  keptDatabase_ = std::make_unique<TestDatabase>(files_.database()->name());
}

void KeptAccountSet::restore() {
  if (!files_.database()) return copyFiles(kept_.path(), home_.path());
  files_.database()->copyFrom(*keptDatabase_);
}

bool KeptAccountSet::isIntact() const {
  return files_.database() || ask("PRAGMA integrity_check") == "ok";
}

std::string KeptAccountSet::ask(const std::string& query) const {
  const auto engine = openDataFile(dataFile());
  const auto answer = engine->prepare(query);
  return answer->step() ? std::string(answer->text(0)) : std::string();
}

std::vector<std::string> KeptAccountSet::rows(const std::string& table) const {
  return rowsOf(*openDataFile(dataFile()), table);
}

std::vector<std::string> KeptAccountSet::content(const std::vector<std::string>& without) const {
  return contentOf(dataFile(), without);
}

std::vector<std::string> contentOf(const std::string& dataFile, const std::vector<std::string>& without) {
  const auto engine = openDataFile(dataFile);
  std::vector<std::string> lines;
  for (const std::string& table : engine->tableNames()) {
    if (std::ranges::find(without, table) != without.end()) continue;
    for (const std::string& row : rowsOf(*engine, table)) lines.push_back(table + ":" + row);
  }
  std::ranges::sort(lines);
  return lines;
}

std::string differenceOf(const std::vector<std::string>& a, const std::vector<std::string>& b) {
  constexpr std::size_t most = 6;
  std::vector<std::string> lines;
  std::ranges::set_symmetric_difference(a, b, std::back_inserter(lines));
  std::string text;
  for (std::size_t i = 0; i < lines.size() && i < most; ++i) text += lines[i] + "\n";
  return text;
}

}  // namespace zelkor::test
