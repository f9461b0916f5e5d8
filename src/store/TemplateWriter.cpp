#include "store/TemplateWriter.h"

#include <sqlite3.h>

#include <stdexcept>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

using dialect::ColumnType;

[[noreturn]] void fail(sqlite3* handle) {
  const int code = sqlite3_errcode(handle) & 0xff;
  const ErrorNumber number = code == SQLITE_FULL       ? ErrorNumber::DiskFull
                             : code == SQLITE_CANTOPEN ? ErrorNumber::CannotOpenReadOnly
                                                       : ErrorNumber::DeviceIo;
  throw RuntimeError(number, std::string("账套文件写入失败：") + sqlite3_errmsg(handle));
}

struct Finalizer {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using Statement = std::unique_ptr<sqlite3_stmt, Finalizer>;

Statement prepare(sqlite3* handle, std::string_view sql) {
  sqlite3_stmt* statement = nullptr;
  if (sqlite3_prepare_v2(handle, sql.data(), static_cast<int>(sql.size()), &statement, nullptr) != SQLITE_OK)
    fail(handle);
  return Statement(statement);
}

void step(sqlite3* handle, sqlite3_stmt* statement) {
  const int code = sqlite3_step(statement);
  if (code != SQLITE_DONE && code != SQLITE_ROW) fail(handle);
  sqlite3_reset(statement);
}

void bindText(sqlite3_stmt* statement, int parameter, const std::string& text) {
  sqlite3_bind_text(statement, parameter, text.data(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void bindCell(sqlite3_stmt* statement, int parameter, ColumnType type,
              const std::optional<std::string>& cell) {
  if (!cell) {
    sqlite3_bind_null(statement, parameter);
    return;
  }
  switch (type) {
    case ColumnType::Short:
    case ColumnType::Long:
    case ColumnType::Counter:
      sqlite3_bind_int64(statement, parameter, std::stoll(*cell));
      return;
    case ColumnType::Boolean:
      sqlite3_bind_int64(statement, parameter, std::stoll(*cell) == 0 ? 0 : -1);
      return;
    case ColumnType::Double:
    case ColumnType::Currency:
      sqlite3_bind_double(statement, parameter, std::stod(*cell));
      return;
    default:
      bindText(statement, parameter, *cell);
  }
}

std::vector<ColumnType> typesOf(const TemplateRows& rows) {
  const TableDef* table = catalogueTable(rows.table);
  if (table == nullptr) throw std::logic_error("template rows: no table " + rows.table);
  std::vector<ColumnType> types;
  for (const std::string& name : rows.columns) {
    const dialect::ColumnInfo* column = table->info.find(name);
    if (column == nullptr) throw std::logic_error("template rows: no column " + rows.table + "." + name);
    types.push_back(column->type);
  }
  return types;
}

std::string insertStatement(std::string_view table, const std::vector<std::string>& columns) {
  std::string names;
  std::string places;
  for (const std::string& column : columns) {
    names += (names.empty() ? "\"" : ", \"") + column + '"';
    places += places.empty() ? "?" : ", ?";
  }
  return "INSERT INTO \"" + std::string(table) + "\" (" + names + ") VALUES (" + places + ")";
}

}  // namespace

void TemplateWriter::Closer::operator()(sqlite3* handle) const {
  sqlite3_close(handle);
}

TemplateWriter::TemplateWriter(const std::filesystem::path& file) {
  sqlite3* handle = nullptr;
  const int code = sqlite3_open_v2(
      file.c_str(), &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE | SQLITE_OPEN_EXCLUSIVE, nullptr);
  handle_.reset(handle);
  if (code != SQLITE_OK) fail(handle);
  // A file that is not finished is thrown away: nothing of it needs to survive a failure.
  run("PRAGMA journal_mode = OFF");
  run("PRAGMA synchronous = OFF");
  run("BEGIN IMMEDIATE");
}

TemplateWriter::~TemplateWriter() = default;

void TemplateWriter::createTables(const std::vector<TableDef>& tables) {
  for (const TableDef& table : tables)
    for (const std::string& statement : createStatements(table, dialect::EngineKind::Sqlite)) run(statement);
}

void TemplateWriter::insert(const TemplateRows& rows, std::string_view table) {
  const std::vector<ColumnType> types = typesOf(rows);
  const Statement statement =
      prepare(handle_.get(), insertStatement(table.empty() ? rows.table : table, rows.columns));
  for (const auto& row : rows.rows) {
    for (std::size_t i = 0; i < row.size(); ++i)
      bindCell(statement.get(), static_cast<int>(i) + 1, types[i], row[i]);
    step(handle_.get(), statement.get());
  }
}

void TemplateWriter::run(std::string_view statement, std::span<const std::string> parameters) {
  const Statement prepared = prepare(handle_.get(), statement);
  int parameter = 0;
  for (const std::string& text : parameters) bindText(prepared.get(), ++parameter, text);
  step(handle_.get(), prepared.get());
}

void TemplateWriter::finish() {
  run("COMMIT");
  run("PRAGMA synchronous = FULL");
  run("PRAGMA journal_mode = WAL");
  handle_.reset();
}

}  // namespace zelkor
