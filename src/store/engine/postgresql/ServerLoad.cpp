#include "store/engine/postgresql/ServerLoad.h"

#include <libpq-fe.h>

#include "base/RuntimeError.h"
#include "store/catalogue/Revisions.h"
#include "store/engine/postgresql/PostgreSqlEngine.h"
#include "store/engine/postgresql/ServerCopy.h"
#include "store/engine/postgresql/ServerFunctions.h"

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

void carryCell(ServerCopy& copy, const EngineStatement& row, int column) {
  switch (row.kind(column)) {
    case CellKind::Null:
      return copy.null();
    case CellKind::Integer:
      return copy.integer(row.integer(column));
    case CellKind::Real:
      return copy.real(row.real(column));
    case CellKind::Text:
      return copy.text(row.text(column));
    case CellKind::Bytes:
      return copy.bytes(row.bytes(column));
  }
}

std::string selectStatement(Engine& source, const dialect::TableInfo& table) {
  const dialect::EngineWords& words = source.words();
  std::string columns;
  for (const dialect::ColumnInfo& column : table.columns)
    columns += (columns.empty() ? "" : ", ") + words.quoted(column.name);
  return "SELECT " + columns + " FROM " + words.quoted(table.name) + " ORDER BY " +
         std::string(words.rowKey());
}

void carryRows(PostgreSqlLink& server, Engine& source, const dialect::TableInfo& table) {
  const auto rows = source.prepare(selectStatement(source, table));
  ServerCopy copy(server, table);
  const auto columns = static_cast<int>(table.columns.size());
  while (rows->step()) {
    for (int column = 0; column < columns; ++column) carryCell(copy, *rows, column);
    copy.endRow();
  }
  copy.finish();
}

// The server itself lets two who create its first account sets at once run into each other.
constexpr const char* kCreateExtension =
    "DO $$ BEGIN IF NOT EXISTS (SELECT FROM pg_catalog.pg_extension WHERE extname = 'citext') THEN "
    "PERFORM pg_advisory_xact_lock(hashtext('zelkor create')); "
    "CREATE EXTENSION IF NOT EXISTS citext SCHEMA public; END IF; END $$";

}  // namespace

bool hasSchema(PostgreSqlLink& server, const std::string& schema) {
  const PgResult known = server.query("SELECT 1 FROM pg_namespace WHERE nspname = $1", {schema});
  return PQntuples(known.get()) > 0;
}

void clearSchema(PostgreSqlLink& server, const std::string& schema) {
  const ServerBooks books = readServerBooks(server, schema);
  server.run(sessionSettings(schema));
  const PgResult tables = server.query(
      "SELECT string_agg(format('%I.%I', n.nspname, c.relname), ', ') FROM pg_class c "
      "JOIN pg_namespace n ON n.oid = c.relnamespace WHERE n.nspname = $1 AND c.relkind IN ('r', 'p')",
      {schema});
  if (!PQgetisnull(tables.get(), 0, 0))
    server.run("DROP TABLE " + std::string(PQgetvalue(tables.get(), 0, 0)) + " CASCADE");
  if (!books.hasOwnFunctions()) layFunctions(server, books);
  writeServerRevision(server, schema, currentRevision());
}

void createSchema(PostgreSqlLink& server, const std::string& schema) {
  requireFitDatabase(server);
  if (hasSchema(server, schema))
    throw RuntimeError(ErrorNumber::DatabaseAlreadyExists,
                       "服务器上已有 '" + schema + "'，不能在此处建立账套。");
  server.run(kCreateExtension);
  server.run("CREATE SCHEMA \"" + schema + "\"");
  server.run(sessionSettings(schema));
  layFunctions(server);
  writeServerRevision(server, schema, currentRevision());
}

void loadTables(PostgreSqlLink& server, Engine& source, const std::vector<TableDef>& tables) {
  for (const TableDef& table : tables) {
    for (const std::string& statement : createStatements(table, postgreSqlWords())) server.run(statement);
    carryRows(server, source, table.info);
  }
}

}  // namespace zelkor
