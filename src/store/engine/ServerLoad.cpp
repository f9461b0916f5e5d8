#include "store/engine/ServerLoad.h"

#include <libpq-fe.h>

#include <array>
#include <charconv>

#include "base/RuntimeError.h"
#include "store/engine/ByteaText.h"
#include "store/engine/PostgreSqlEngine.h"
#include "store/TemplateData.h"

namespace zelkor {
namespace {

void requireFitDatabase(PostgreSqlLink& server) {
  const PgResult collation =
      server.query("SELECT datcollate, datctype FROM pg_database WHERE datname = current_database()", {});
  for (const int column : {0, 1})
    if (std::string_view(PQgetvalue(collation.get(), 0, column)) != "C")
      throw RuntimeError(
          ErrorNumber::UnrecognizedFormat,
          "数据库的排序规则必须是 C：请用 createdb -E UTF8 --locale=C -T template0 建立数据库。");
}

void appendText(std::string& rows, std::string_view text) {
  for (const char c : text) {
    switch (c) {
      case '\\':
        rows += "\\\\";
        break;
      case '\t':
        rows += "\\t";
        break;
      case '\n':
        rows += "\\n";
        break;
      case '\r':
        rows += "\\r";
        break;
      default:
        rows += c;
    }
  }
}

void appendCell(std::string& rows, const EngineStatement& row, int column) {
  std::array<char, 64> buffer{};
  switch (row.kind(column)) {
    case CellKind::Null:
      rows += "\\N";
      return;
    case CellKind::Integer:
      rows += std::to_string(row.integer(column));
      return;
    case CellKind::Real:
      rows.append(buffer.data(),
                  std::to_chars(buffer.data(), buffer.data() + buffer.size(), row.real(column)).ptr);
      return;
    case CellKind::Text:
      return appendText(rows, row.text(column));
    case CellKind::Bytes:
      return appendText(rows, byteaText(row.bytes(column)));
  }
}

std::string lowered(std::string text) {
  for (char& c : text)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return text;
}

std::string columnList(const dialect::TableInfo& table, bool lower) {
  std::string list;
  for (const dialect::ColumnInfo& column : table.columns)
    list += (list.empty() ? "\"" : ", \"") + (lower ? lowered(column.name) : column.name) + '"';
  return list;
}

void carryRows(PostgreSqlLink& server, Engine& source, const dialect::TableInfo& table) {
  const auto statement =
      source.prepare("SELECT " + columnList(table, false) + " FROM \"" + table.name + "\" ORDER BY rowid");
  std::string rows;
  const auto columns = static_cast<int>(table.columns.size());
  while (statement->step()) {
    for (int column = 0; column < columns; ++column) {
      if (column > 0) rows += '\t';
      appendCell(rows, *statement, column);
    }
    rows += '\n';
  }
  if (rows.empty()) return;
  server.copyIn("COPY \"" + lowered(table.name) + "\" (" + columnList(table, true) + ") FROM STDIN", rows);
}

}  // namespace

void createSchema(PostgreSqlLink& server, const std::string& schema) {
  requireFitDatabase(server);
  const PgResult known = server.query("SELECT 1 FROM pg_namespace WHERE nspname = $1", {schema});
  if (PQntuples(known.get()) > 0)
    throw RuntimeError(ErrorNumber::DatabaseAlreadyExists,
                       "服务器上已有 '" + schema + "'，不能在此处建立账套。");
  server.run("CREATE EXTENSION IF NOT EXISTS citext SCHEMA public; CREATE SCHEMA \"" + schema + "\"");
  server.run(sessionSettings(schema));
  server.run("SET check_function_bodies = off");
  server.run(std::string(embeddedText("postgresql.sql")));
}

void loadTables(PostgreSqlLink& server, Engine& source, const std::vector<TableDef>& tables) {
  for (const TableDef& table : tables) {
    for (const std::string& statement : createStatements(table, dialect::EngineKind::PostgreSql))
      server.run(statement);
    carryRows(server, source, table.info);
  }
}

}  // namespace zelkor
