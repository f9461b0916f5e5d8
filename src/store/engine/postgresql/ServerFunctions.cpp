#include "store/engine/postgresql/ServerFunctions.h"

#include <libpq-fe.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "base/EmbeddedText.h"
#include "base/RuntimeError.h"
#include "store/dialect/binding/functions/ServerDefinitions.h"
#include "store/engine/postgresql/PostgreSqlEngine.h"
#include "store/engine/postgresql/PostgreSqlErrors.h"

namespace zelkor {
namespace {

// A text's digest: the same for the same text, and hardly ever for another.
std::string digestOf(std::string_view text) {
  std::uint64_t digest = 14695981039346656037U;
  for (const char c : text) digest = (digest ^ static_cast<unsigned char>(c)) * 1099511628211U;
  std::array<char, 17> digits{};
  std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(digest));
  return digits.data();
}

const std::string& definitions() {
  static const std::string all = [] {
    std::string text = "SET check_function_bodies = off;";
    for (const char* part : {"postgresql.sql", "postgresql-reading.sql", "postgresql-format.sql"})
      text.append(embeddedText(part));
    return text + dialect::serverDefinitions();
  }();
  return all;
}

// Empty without an account set; sets of before the mark are marked by a number or not at all.
std::string markIn(PostgreSqlLink& server, const std::string& schema) {
  const PgResult found = server.query(
      "SELECT coalesce(obj_description(p.oid, 'pg_proc'), '1'), has_schema_privilege(n.oid, 'USAGE') "
      "FROM pg_proc p "
      "JOIN pg_namespace n ON n.oid = p.pronamespace WHERE n.nspname = $1 AND p.proname = 'zk_describe'",
      {schema});
  if (PQntuples(found.get()) == 0) return {};
  if (*PQgetvalue(found.get(), 0, 1) != 't') throw noRight("schema " + schema);
  return PQgetvalue(found.get(), 0, 0);
}

bool hasOurs(PostgreSqlLink& server, const std::string& schema) {
  const std::string mark = markIn(server, schema);
  if (mark.empty())
    throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                       "服务器上没有账套 '" + schema + "'；请用 zelkorctl create --server 建立。");
  return mark == serverFunctionsDigest();
}

}  // namespace

const std::string& serverFunctionsDigest() {
  static const std::string digest = digestOf(definitions());
  return digest;
}

void layFunctions(PostgreSqlLink& server) {
  server.run(definitions() + "COMMENT ON FUNCTION zk_describe(text, text[]) IS '" + serverFunctionsDigest() +
             "'");
}

void requireFunctions(PostgreSqlLink& server, const std::string& schema) {
  if (!hasOurs(server, schema))
    throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                       "服务器上账套 '" + schema + "' 的函数是旧版本；请由管理员运行 zelkorctl renew 更新。");
}

void renewFunctions(const ServerFile& file) {
  PostgreSqlLink server(file.conninfo);
  if (hasOurs(server, file.schema)) return;
  server.run(sessionSettings(file.schema));
  layFunctions(server);
}

}  // namespace zelkor
