#include "store/engine/postgresql/ServerFunctions.h"

#include <libpq-fe.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <sstream>
#include <string_view>

#include "base/EmbeddedText.h"
#include "base/RuntimeError.h"
#include "store/dialect/binding/functions/ServerDefinitions.h"
#include "store/engine/postgresql/PostgreSqlErrors.h"

namespace zelkor {
namespace {

// The comment on a schema is this and a number.
constexpr std::string_view kRevisionMark = "zelkor revision ";

const std::string& definitions() {
  static const std::string all = [] {
    std::string text = "SET check_function_bodies = off;";
    for (const char* part : {"postgresql.sql", "postgresql-reading.sql", "postgresql-format.sql"})
      text.append(embeddedText(part));
    return text + dialect::serverDefinitions();
  }();
  return all;
}

/// The version of this program's functions: a digest of their text (FNV-1a).
const std::string& ownVersion() {
  static const std::string version = [] {
    std::uint64_t digest = 0xcbf29ce484222325;
    for (const char c : definitions()) digest = (digest ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    std::ostringstream hex;
    hex << std::hex << digest;
    return hex.str();
  }();
  return version;
}

int revisionIn(std::string_view comment) {
  int revision = 0;
  if (comment.starts_with(kRevisionMark))
    std::from_chars(comment.data() + kRevisionMark.size(), comment.data() + comment.size(), revision);
  return revision;
}

// Words that are no digest are somebody else's remark.
std::vector<std::string> versionsIn(const std::string& comment) {
  std::istringstream words(comment);
  std::vector<std::string> versions;
  for (std::string word; words >> word;)
    if (word.find_first_not_of("0123456789abcdef") == std::string::npos) versions.push_back(word);
  return versions;
}

}  // namespace

// What was installed over functions like ours is newer.
bool ServerBooks::hasOwnFunctions() const {
  return std::ranges::find(functions, ownVersion()) != functions.end();
}

ServerQuestion booksQuestion(const std::string& schema) {
  return {
      "SELECT has_schema_privilege(n.oid, 'USAGE'), coalesce(obj_description(n.oid, 'pg_namespace'), ''), "
      "coalesce(obj_description(p.oid, 'pg_proc'), '') FROM pg_proc p "
      "JOIN pg_namespace n ON n.oid = p.pronamespace WHERE n.nspname = $1 AND p.proname = 'zk_describe'",
      {schema}};
}

ServerBooks serverBooksIn(const pg_result* found, const std::string& schema) {
  if (PQntuples(found) == 0)
    throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                       "服务器上没有账套 '" + schema + "'；请用 zelkorctl create --server 建立。");
  if (*PQgetvalue(found, 0, 0) != 't') throw noRight("schema " + schema);
  return {revisionIn(PQgetvalue(found, 0, 1)), versionsIn(PQgetvalue(found, 0, 2))};
}

ServerBooks readServerBooks(PostgreSqlLink& server, const std::string& schema) {
  const ServerQuestion question = booksQuestion(schema);
  return serverBooksIn(server.query(question.sql, question.values).get(), schema);
}

void layFunctions(PostgreSqlLink& server, const ServerBooks& before) {
  std::string versions = ownVersion();
  for (const std::string& version : before.functions) versions += ' ' + version;
  server.run(definitions() + "COMMENT ON FUNCTION zk_describe(text, text[]) IS '" + versions + "'");
}

void writeServerRevision(PostgreSqlLink& server, const std::string& schema, int revision) {
  server.run("COMMENT ON SCHEMA \"" + schema + "\" IS '" + std::string(kRevisionMark) +
             std::to_string(revision) + "'");
}

}  // namespace zelkor
