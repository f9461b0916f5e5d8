#include "store/engine/postgresql/ServerFunctions.h"

#include <libpq-fe.h>

#include <charconv>
#include <string_view>

#include "base/EmbeddedText.h"
#include "base/RuntimeError.h"
#include "store/engine/postgresql/PostgreSqlEngine.h"
#include "store/engine/postgresql/PostgreSqlErrors.h"

namespace zelkor {
namespace {

// What the last statement of postgresql.sql leaves.
constexpr int ourVersion = 3;

// 0 without an account set; the first sets did not say their version.
int versionIn(PostgreSqlLink& server, const std::string& schema) {
  const PgResult found = server.query(
      "SELECT coalesce(obj_description(p.oid, 'pg_proc'), '1'), has_schema_privilege(n.oid, 'USAGE') "
      "FROM pg_proc p "
      "JOIN pg_namespace n ON n.oid = p.pronamespace WHERE n.nspname = $1 AND p.proname = 'zk_describe'",
      {schema});
  int version = 0;
  if (PQntuples(found.get()) == 0) return version;
  if (*PQgetvalue(found.get(), 0, 1) != 't') throw noRight("schema " + schema);
  const std::string_view text = PQgetvalue(found.get(), 0, 0);
  std::from_chars(text.data(), text.data() + text.size(), version);
  return version;
}

int existingVersion(PostgreSqlLink& server, const std::string& schema) {
  const int version = versionIn(server, schema);
  if (version == 0)
    throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                       "服务器上没有账套 '" + schema + "'；请用 zelkorctl create --server 建立。");
  return version;
}

}  // namespace

void layFunctions(PostgreSqlLink& server) {
  std::string all = "SET check_function_bodies = off;";
  for (const char* part : {"postgresql.sql", "postgresql-reading.sql", "postgresql-format.sql"})
    all.append(embeddedText(part));
  server.run(all);
}

void requireFunctions(PostgreSqlLink& server, const std::string& schema) {
  if (existingVersion(server, schema) < ourVersion)
    throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                       "服务器上账套 '" + schema + "' 的函数是旧版本；请由管理员运行 zelkorctl renew 更新。");
}

void renewFunctions(const ServerFile& file) {
  PostgreSqlLink server(file.conninfo);
  if (existingVersion(server, file.schema) >= ourVersion) return;
  server.run(sessionSettings(file.schema));
  layFunctions(server);
}

}  // namespace zelkor
