#include "store/engine/sqlite/SqliteIntegrity.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

using dialect::ColumnType;

/// A file that has this many problems is not mended one by one.
constexpr std::size_t kMostProblems = 100;

void checkPages(Engine& engine, IntegrityCheck& check) {
  const auto told = engine.prepare("PRAGMA integrity_check(" + std::to_string(kMostProblems) + ")");
  while (told->step()) {
    std::string line(told->text(0));
    std::ranges::replace(line, '\n', ' ');
    if (line != "ok") check.problems.push_back(std::move(line));
  }
}

bool isOfText(const dialect::ColumnInfo& column) {
  return column.type == ColumnType::Text || column.type == ColumnType::Memo ||
         column.type == ColumnType::Date || column.type == ColumnType::Unknown;
}

bool isReadable(std::string_view text) {
  const bool plain = std::ranges::all_of(text, [](char byte) { return static_cast<signed char>(byte) >= 0; });
  return plain || isValidUtf8(text);
}

void checkTexts(Engine& engine, const dialect::TableInfo& table, IntegrityCheck& check) {
  std::vector<std::string> names;
  std::string list;
  for (const dialect::ColumnInfo& column : table.columns) {
    if (!isOfText(column)) continue;
    list += (list.empty() ? "" : ", ") + engine.words().quoted(column.name);
    names.push_back(column.name);
  }
  if (names.empty()) return;
  const auto row = engine.prepare("SELECT " + list + " FROM " + engine.words().quoted(table.name));
  for (long number = 1; row->step() && check.problems.size() < kMostProblems; ++number) {
    for (int cell = 0; const std::string& name : names) {
      if (row->kind(cell) == CellKind::Text && !isReadable(row->text(cell)))
        check.problems.push_back("表 " + table.name + " 第 " + std::to_string(number) + " 行 " + name +
                                 "：文字已损坏（有不是 UTF-8 的字节）");
      ++cell;
    }
  }
}

/// The engine's check takes any bytes for text.
void checkTexts(Engine& engine, IntegrityCheck& check) {
  for (const std::string& name : engine.tableNames()) {
    if (const auto table = engine.tableInfo(name)) checkTexts(engine, *table, check);
  }
}

}  // namespace

IntegrityCheck sqliteIntegrity(Engine& engine) {
  IntegrityCheck check;
  try {
    checkPages(engine, check);
    if (check.problems.empty()) checkTexts(engine, check);
  } catch (const RuntimeError& error) {
    if (error.is(ErrorNumber::DiskFull)) throw;  // says nothing of the file
    check.problems.emplace_back(error.what());
  }
  return check;
}

}  // namespace zelkor
