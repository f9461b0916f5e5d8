#include "store/engine/postgresql/PostgreSqlEngine.h"

#include <libpq-fe.h>

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <thread>

#include "base/RuntimeError.h"
#include "store/engine/postgresql/PostgreSqlStatement.h"
#include "store/engine/postgresql/ServerJobLock.h"

namespace zelkor {
namespace {

// "+08:00", how far the workstation's clock is ahead of that of Greenwich.
std::string clockOffset() {
  tzset();
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  const std::string digits =
      std::to_string(10000 + std::labs(local.tm_gmtoff) / 3600 * 100 + std::labs(local.tm_gmtoff) / 60 % 60);
  return (local.tm_gmtoff < 0 ? "-" : "+") + digits.substr(1, 2) + ':' + digits.substr(3);
}

// By the name: a schema that was made once more has another number. The first half of the key distinguishes
// our locks from those of other programs.
constexpr const char* kOpenKey = "(1516980835, hashtext($1))";

/// A session that has just been closed is there for a moment longer.
bool takeAlone(PostgreSqlLink& server, const std::string& schema) {
  constexpr int kMostAttempts = 20;
  constexpr std::chrono::milliseconds kBetweenAttempts{50};
  for (int attempt = 1; attempt <= kMostAttempts; ++attempt) {
    const PgResult taken = server.query(std::string("SELECT pg_try_advisory_lock") + kOpenKey, {schema});
    if (*PQgetvalue(taken.get(), 0, 0) == 't') return true;
    std::this_thread::sleep_for(kBetweenAttempts);
  }
  return false;
}

int numberIn(const PgResult& result) {
  return std::atoi(PQgetvalue(result.get(), 0, 0));
}

/// Where a pooler gives each transaction another session, another connection is given the one that ours has
/// just left: our settings, locks and statements would be those of whoever comes next. What we have left in
/// it is given up.
void requireOwnSession(PostgreSqlLink& server, const std::string& conninfo, int session) {
  if (session == server.toldSession()) return;
  PostgreSqlLink other(conninfo, server.manner());
  if (numberIn(other.query("SELECT pg_backend_pid()", {})) != session) return;
  server.run("DISCARD ALL");
  throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                     "服务器前面的连接池把每个事务交给不同的会话，账套不能这样使用；请让它把会话分给整个连接"
                     "（PgBouncer：pool_mode=session）。");
}

/// Makes the session see the books, and notes in it that it has them open, in one trip. Nobody looks at its
/// other locks: a session at rest has none.
ServerBooks openBooks(PostgreSqlLink& server, const ServerFile& file, PostgreSqlEngine::Among among) {
  const auto& [conninfo, schema] = file;
  std::vector<ServerQuestion> questions = sessionSettings(schema);
  const bool amongOthers = among == PostgreSqlEngine::Among::Others;
  if (amongOthers) questions.push_back({std::string("SELECT pg_advisory_lock_shared") + kOpenKey, {schema}});
  questions.push_back({"SELECT pg_backend_pid()"});
  questions.push_back(booksQuestion(schema));
  const std::vector<PgResult> answers = server.ask(questions);
  requireOwnSession(server, conninfo, numberIn(answers[answers.size() - 2]));
  ServerBooks books = serverBooksIn(answers.back().get(), schema);
  if (!amongOthers && !takeAlone(server, schema))
    throw RuntimeError(ErrorNumber::FileLocked, "服务器上的 '" + schema + "' 正被别人打开，不能替换。");
  return books;
}

/// What stands between us and the server may refuse statements that go out together.
ServerBooks openInSomeManner(std::shared_ptr<PostgreSqlLink>& link, const ServerFile& file,
                             PostgreSqlEngine::Among among) {
  try {
    return openBooks(*link, file, among);
  } catch (const RuntimeError&) {
    if (!link->tripRefused()) throw;
  }
  link = std::make_shared<PostgreSqlLink>(file.conninfo, PostgreSqlLink::Manner::OneByOne);
  return openBooks(*link, file, among);
}

// Who waits longer for another's lock gets error 3045.
constexpr const char* kLongestLockWait = "10s";
// A group has locked others' rows already. Whoever waits with less in hand does so with the statement by
// itself.
constexpr const char* kLongestLockWaitOfGroup = "100ms";

// In a transaction that no BEGIN has opened, SET LOCAL works as well, but is a warning in the server's log.
std::string settingLockWait(const char* longest) {
  return std::string("SELECT set_config('lock_timeout', '") + longest + "', true)";
}

}  // namespace

// What values are read by, what time it is, and how transactions see each other, is not left to the server's
// configuration. Short statements gain nothing from compiled expressions. Groups are sorted out, not hashed,
// so that they come in the order of their keys. What a workstation has locked that was switched off or cut
// from the net, in the middle of a group even, is free again after half a minute.
std::vector<ServerQuestion> sessionSettings(const std::string& schema) {
  return {{"SET search_path = \"" + schema + "\", public"},
          {"SET datestyle = 'ISO, YMD'"},
          {"SET synchronous_commit = off"},
          {std::string("SET lock_timeout = '") + kLongestLockWait + "'"},
          {"SET tcp_keepalives_idle = 15"},
          {"SET tcp_keepalives_interval = 5"},
          {"SET tcp_keepalives_count = 3"},
          {"SET tcp_user_timeout = 30000"},
          {"SET extra_float_digits = 1"},
          {"SET bytea_output = 'hex'"},
          {"SET default_transaction_isolation = 'read committed'"},
          {"SET standard_conforming_strings = on"},
          {"SET jit = off"},
          {"SET enable_hashagg = off"},
          {"SET TIME ZONE INTERVAL '" + clockOffset() + "' HOUR TO MINUTE"}};
}

PostgreSqlEngine::PostgreSqlEngine(const ServerFile& file, Among among)
    : link_(std::make_shared<PostgreSqlLink>(file.conninfo)),
      schema_(file.schema),
      books_(openInSomeManner(link_, file, among)) {}

std::string PostgreSqlEngine::remark() const {
  if (link_->sendsTogether()) return {};
  return "到服务器的连接不接受连续发送的语句，改为一条一条地发送：每条语句都要等一次往返，远处的服务器会慢得"
         "多。";
}

std::unique_ptr<EngineStatement> PostgreSqlEngine::prepare(std::string_view sql) {
  return std::make_unique<PostgreSqlStatement>(PostgreSqlLink::statement(link_, sql));
}

void PostgreSqlEngine::run(const std::string& sql) {
  link_->run(sql);
}

void PostgreSqlEngine::openGroup() {
  link_->sendAhead(settingLockWait(kLongestLockWaitOfGroup));
}

// Inside a transaction the setting would outlast the group.
void PostgreSqlEngine::closeGroup() {
  link_->sendAhead(settingLockWait(kLongestLockWait));
}

void PostgreSqlEngine::begin() {
  link_->begin();
}

void PostgreSqlEngine::commit() {
  link_->commit();
}

void PostgreSqlEngine::rollback() {
  link_->rollback();
}

// A transaction that is forced to disk takes all earlier ones with it. The server forces one only where it
// has written something to its log: a message, which nobody reads.
void PostgreSqlEngine::makeDurable() {
  if (inTransaction() || !link_->takeWritten()) return;
  try {
    link_->run(
        "BEGIN; SET LOCAL synchronous_commit = on; SELECT pg_logical_emit_message(true, 'zelkor', ''); "
        "COMMIT");
  } catch (const RuntimeError&) {
    link_->noteWritten();  // it still has to be forced
    throw;
  }
}

JobLockAttempt PostgreSqlEngine::lockForJob(const JobNote& note) {
  return lockSchemaForJob(link_, schema_, note);
}

std::optional<JobNote> PostgreSqlEngine::jobHolder() {
  return holderOfSchemaLock(*link_, schema_);
}

void PostgreSqlEngine::setBooksRevision(int revision) {
  writeServerRevision(*link_, schema_, revision);
  books_.revision = revision;
}

void PostgreSqlEngine::layOwnFunctions() {
  layFunctions(*link_, books_);
  books_ = readServerBooks(*link_, schema_);
}

void PostgreSqlEngine::shutOutOtherRenewals() {
  link_->run("SET LOCAL synchronous_commit = on");
  link_->query("SELECT pg_advisory_xact_lock(hashtext('zelkor renew ' || $1))", {schema_});
  books_ = readServerBooks(*link_, schema_);
}

}  // namespace zelkor
