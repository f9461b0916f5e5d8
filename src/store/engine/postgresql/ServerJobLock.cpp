#include "store/engine/postgresql/ServerJobLock.h"

#include <libpq-fe.h>

#include <algorithm>
#include <exception>
#include <utility>

#include "store/engine/postgresql/ByteaText.h"

namespace zelkor {
namespace {

// The upper half of the key distinguishes our locks from those of other programs; the lower one is the
// schema's number.
constexpr const char* kKey = "(1516980834::bigint << 32 | oid::bigint)";
constexpr const char* kOfSchema = " FROM pg_catalog.pg_namespace WHERE nspname = $1";
constexpr const char* kHolder =
    "SELECT a.application_name, coalesce(host(a.client_addr), '') "
    "FROM pg_catalog.pg_locks l JOIN pg_catalog.pg_stat_activity a ON a.pid = l.pid "
    "WHERE l.locktype = 'advisory' AND l.granted AND l.classid = 1516980834 AND l.objsubid = 1 "
    "AND l.database = (SELECT oid FROM pg_catalog.pg_database WHERE datname = current_database()) "
    "AND l.objid = (SELECT oid FROM pg_catalog.pg_namespace WHERE nspname = $1)";
constexpr std::string_view kMark = "zelkor";
constexpr std::size_t kLongestName = 63;

/// A session's name is short and of plain letters: the user's is written in hexadecimal digits.
std::string sessionName(JobNote note) {
  std::string user = std::exchange(note.user, {});
  const std::string head = std::string(kMark) + textOfNote(note);
  const std::size_t most = (kLongestName - std::min(head.size(), kLongestName)) / 2;
  std::size_t length = std::min(user.size(), most);
  // Not within a character.
  while (length > 0 && length < user.size() && (static_cast<unsigned char>(user[length]) & 0xc0U) == 0x80U)
    --length;
  user.resize(length);
  return head + byteaText(user).substr(2);
}

std::optional<JobNote> noteOfSession(std::string_view name) {
  if (!name.starts_with(kMark)) return std::nullopt;
  auto note = noteOfText(name.substr(kMark.size()));
  if (note) note->user = bytesOfBytea("\\x" + note->user);
  return note;
}

class ServerJobLock final : public JobLock {
 public:
  ServerJobLock(std::shared_ptr<PostgreSqlLink> link, std::string schema)
      : link_(std::move(link)), schema_(std::move(schema)) {}
  ~ServerJobLock() override {
    try {
      link_->query(std::string("SELECT pg_advisory_unlock") + kKey + kOfSchema, {schema_});
      link_->run("RESET application_name");
    } catch (const std::exception&) {
      // the session has ended, and the lock with it
    }
  }

 private:
  std::shared_ptr<PostgreSqlLink> link_;
  std::string schema_;
};

}  // namespace

JobLockAttempt lockSchemaForJob(const std::shared_ptr<PostgreSqlLink>& link, const std::string& schema,
                                const JobNote& note) {
  const PgResult taken = link->query(std::string("SELECT CASE WHEN pg_try_advisory_lock") + kKey +
                                         " THEN set_config('application_name', $2, false) END" + kOfSchema,
                                     {schema, sessionName(note)});
  if (PQntuples(taken.get()) > 0 && !PQgetisnull(taken.get(), 0, 0))
    return {.lock = std::make_unique<ServerJobLock>(link, schema), .holder = std::nullopt};
  return {.lock = nullptr, .holder = holderOfSchemaLock(*link, schema)};
}

std::optional<JobNote> holderOfSchemaLock(PostgreSqlLink& link, const std::string& schema) {
  const PgResult holder = link.query(kHolder, {schema});
  if (PQntuples(holder.get()) == 0) return std::nullopt;
  auto known = noteOfSession(PQgetvalue(holder.get(), 0, 0));
  if (known) known->machine = PQgetvalue(holder.get(), 0, 1);
  return known;
}

}  // namespace zelkor
