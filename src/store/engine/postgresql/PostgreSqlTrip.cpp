#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdlib>
#include <limits>
#include <string_view>
#include <utility>

#include "base/RuntimeError.h"
#include "store/engine/postgresql/PostgreSqlErrors.h"
#include "store/engine/postgresql/PostgreSqlLink.h"
#include "store/engine/postgresql/Results.h"

// Statements on their way to the server, and their answers.
namespace zelkor {
namespace {

constexpr unsigned kTextType = 25;  // the server's number of the type text
constexpr const char* kSetSavepoint = "SAVEPOINT zk_step";
constexpr const char* kLeaveSavepoint = "RELEASE zk_step";
constexpr const char* kBackToSavepoint = "ROLLBACK TO zk_step";
// Within the other, which takes it along when it goes.
constexpr const char* kSetReadSavepoint = "SAVEPOINT zk_read";
constexpr const char* kBackToReadSavepoint = "ROLLBACK TO zk_read";
// Nearly every result is shorter; a longer one is walked through in pieces of this size.
constexpr std::size_t kRowsAtOnce = 1000;
constexpr std::size_t kAllRows = std::numeric_limits<std::size_t>::max();

std::vector<const char*> pointersTo(const PgValues& values) {
  std::vector<const char*> pointers;
  pointers.reserve(values.size());
  for (const auto& value : values) pointers.push_back(value ? value->c_str() : nullptr);
  return pointers;
}

std::int64_t numberOf(std::string_view text) {
  std::int64_t number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  return number;
}

bool isBroken(const PGconn* connection) {
  return PQstatus(connection) == CONNECTION_BAD;
}

}  // namespace

// The server gives up a whole transaction for one failure; a savepoint keeps what went before. One after
// which nothing has been written serves the next trip as well. (A query that writes by a function is part of
// a change of tables, which is undone as a whole.)
std::vector<std::string> PostgreSqlLink::preamble() {
  std::vector<std::string> commands;
  for (const std::string& name : std::exchange(forgotten_, {})) commands.push_back("DEALLOCATE " + name);
  if (!tripInTransaction_) return commands;
  if (beginOwed_) commands.emplace_back("BEGIN");
  if (savepointKept_ && savepoint_ != Savepoint::None) {
    if (!std::exchange(readSavepoint_, true)) commands.emplace_back(kSetReadSavepoint);
    return commands;
  }
  if (savepoint_ == Savepoint::WrittenBehind) commands.emplace_back(kLeaveSavepoint);
  if (savepoint_ != Savepoint::Fresh) commands.emplace_back(kSetSavepoint);
  return commands;
}

void PostgreSqlLink::openTrip() {
  if (asked_ || !sendsTogether()) readInWhatIsLeft();
  if (underWay_) return;
  tripInTransaction_ = inTransaction();
  tripHasWritten_ = false;
  const std::vector<std::string> commands = preamble();
  if (!sendsTogether()) runAlone(commands);
  underWay_ = true;
  PQenterPipelineMode(connection_.get());
  if (!sendsTogether()) return;
  for (const std::string& command : commands) sendAhead(command);
}

void PostgreSqlLink::sendAhead(const std::string& command) {
  openTrip();
  PQsendQueryParams(connection_.get(), command.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0);
  awaited_.emplace_back();
}

void PostgreSqlLink::runAlone(const std::vector<std::string>& commands) {
  for (const std::string& command : commands) {
    ++waits_;
    checked(PgResult(PQexec(connection_.get(), command.c_str())));
  }
  beginOwed_ = false;
  if (tripInTransaction_) savepoint_ = Savepoint::Fresh;
}

void PostgreSqlLink::send(ServerStatement& statement, const PgValues& values, PostgreSqlStream& stream) {
  openTrip();
  const auto parameters = static_cast<int>(statement.types.size());
  const auto pointers = pointersTo(values);
  if (!sendsTogether()) {
    PQsendQueryParams(connection_.get(), statement.sql.c_str(), parameters, statement.types.data(),
                      pointers.data(), nullptr, nullptr, 0);
    awaited_.push_back({.stream = &stream});
    return stream.begin();
  }
  if (!std::exchange(statement.known, true)) {
    PQsendPrepare(connection_.get(), statement.name.c_str(), statement.sql.c_str(), parameters,
                  statement.types.data());
    awaited_.push_back({.prepares = &statement});
  }
  PQsendQueryPrepared(connection_.get(), statement.name.c_str(), static_cast<int>(values.size()),
                      pointers.data(), nullptr, nullptr, 0);
  awaited_.push_back({.stream = &stream});
  stream.begin();
}

std::vector<PgResult> PostgreSqlLink::ask(std::span<const ServerQuestion> questions) {
  std::vector<PgResult> results(questions.size());
  std::vector<PostgreSqlStream> streams(questions.size());
  for (std::size_t i = 0; i < questions.size(); ++i) {
    openTrip();
    const PgValues& values = questions[i].values;
    const auto pointers = pointersTo(values);
    const std::vector<Oid> types(values.size(), kTextType);
    PQsendQueryParams(connection_.get(), questions[i].sql.c_str(), static_cast<int>(values.size()),
                      types.data(), pointers.data(), nullptr, nullptr, 0);
    streams[i].begin();
    awaited_.push_back({.stream = &streams[i], .whole = &results[i]});
  }
  readInWhatIsLeft();
  for (const PostgreSqlStream& stream : streams)
    if (stream.failure) std::rethrow_exception(stream.failure);
  return results;
}

PgResult PostgreSqlLink::query(const std::string& sql, const PgValues& values) {
  return std::move(ask(std::array{ServerQuestion{sql, values}}).front());
}

void PostgreSqlLink::ask() {
  if (std::exchange(asked_, true)) return;
  PQpipelineSync(connection_.get());
  ++waits_;
}

// Rows that come one by one are in results of their own; the last result has none.
void PostgreSqlLink::readFront(std::size_t upTo) {
  Awaited& front = awaited_.front();
  if (!std::exchange(front.begun, true) && front.whole == nullptr) PQsetSingleRowMode(connection_.get());
  PgResult result;
  while (PgResult next{PQgetResult(connection_.get())}) {
    result = std::move(next);
    if (isBroken(connection_.get())) break;
    if (PQresultStatus(result.get()) != PGRES_SINGLE_TUPLE || front.stream == nullptr) continue;
    front.stream->rows.take(result.get());
    if (front.stream->rows.count() >= upTo) return;
  }
  finishFront(std::move(result));
}

void PostgreSqlLink::finishFront(PgResult result) {
  const Awaited front = std::exchange(awaited_.front(), {});
  awaited_.pop_front();
  if (!succeeded(result.get())) return giveUpTrip(front, result.get());
  if (front.stream != nullptr) {
    front.stream->open = false;
    noteCount(result.get());
    if (writes(result.get()) && front.stream->rows.count() > 0)
      lastRowKey_ = numberOf(front.stream->rows.text(0, 0));
    if (const std::string_view tag = tagOf(result.get()); !tag.empty() && !tag.starts_with("SELECT"))
      tripHasWritten_ = true;
  }
  if (front.whole != nullptr) *front.whole = std::move(result);
  if (!awaited_.empty()) return;
  const PgResult end(PQgetResult(connection_.get()));
  if (PQresultStatus(end.get()) != PGRES_PIPELINE_SYNC) return giveUpTrip(front, end.get());
  beginOwed_ = false;
  if (tripInTransaction_ && !(savepointKept_ && savepoint_ == Savepoint::WrittenBehind))
    savepoint_ = tripHasWritten_ ? Savepoint::WrittenBehind : Savepoint::Fresh;
  endTrip();
}

void PostgreSqlLink::endTrip() {
  PQexitPipelineMode(connection_.get());
  underWay_ = asked_ = false;
}

// Up to the end of the trip; between two results there is none.
void PostgreSqlLink::passOverRest() {
  for (int none = 0; none < 2 && !isBroken(connection_.get());) {
    const PgResult next(PQgetResult(connection_.get()));
    if (PQresultStatus(next.get()) == PGRES_PIPELINE_SYNC) return;
    none = next ? 0 : none + 1;
  }
}

namespace {

bool isProtocolRefused(const PGconn* connection, const PGresult* result) {
  if (isBroken(connection)) return true;
  const char* state = result == nullptr ? nullptr : PQresultErrorField(result, PG_DIAG_SQLSTATE);
  return state != nullptr && (std::string_view(state) == "08P01" || std::string_view(state) == "0A000");
}

}  // namespace

// The failure is that of the statement, or of the one for which the command went out. What the trip has
// written is undone.
void PostgreSqlLink::giveUpTrip(const Awaited& failing, const pg_result* result) {
  tripRefused_ = isProtocolRefused(connection_.get(), result);
  std::exception_ptr failure;
  try {
    raise(result);
  } catch (const RuntimeError&) {
    failure = std::current_exception();
  }
  std::deque<Awaited> rest = std::exchange(awaited_, {});
  rest.push_front(failing);
  for (const Awaited& one : rest) {
    if (one.prepares != nullptr) one.prepares->known = false;
    if (one.stream == nullptr) continue;
    one.stream->open = false;
    one.stream->passedOver = failure == nullptr;
    one.stream->failure = std::exchange(failure, nullptr);
  }
  passOverRest();
  endTrip();
  if (PQtransactionStatus(connection_.get()) != PQTRANS_INERROR) return;
  beginOwed_ = false;
  backToSavepoint();
}

// While the savepoint is kept, what fails has only read.
void PostgreSqlLink::backToSavepoint() {
  ++waits_;
  const PgResult back(PQexec(connection_.get(), readSavepoint_ ? kBackToReadSavepoint : kBackToSavepoint));
  if (!succeeded(back.get())) {
    savepoint_ = Savepoint::None;
  } else if (!readSavepoint_) {
    savepoint_ = Savepoint::Fresh;
  }
}

// What is still under way belongs to the time before.
void PostgreSqlLink::keepSavepoint(bool on) {
  readInWhatIsLeft();
  savepointKept_ = on;
  readSavepoint_ = false;
}

void PostgreSqlLink::takeBack() {
  readInWhatIsLeft();
  if (inTransaction() && savepoint_ == Savepoint::WrittenBehind) backToSavepoint();
}

void PostgreSqlLink::noteCount(const pg_result* result) {
  if (!writes(result)) return;
  changes_ = std::strtol(PQcmdTuples(const_cast<PGresult*>(result)), nullptr, 10);
  written_ = true;
}

void PostgreSqlLink::readOn(PostgreSqlStream& stream) {
  stream.rows.clear();
  ask();
  while (stream.open && awaited_.front().stream != &stream) readFront(kAllRows);
  if (stream.open) readFront(kRowsAtOnce);
}

void PostgreSqlLink::readInWhatIsLeft() {
  if (!awaited_.empty()) ask();
  while (!awaited_.empty()) readFront(kAllRows);
}

// What nobody asks for any more is read where it comes first, so that it holds nothing on the server.
void PostgreSqlLink::drop(PostgreSqlStream& stream) {
  if (stream.open) {
    ask();
    for (Awaited& awaited : awaited_)
      if (awaited.stream == &stream) awaited.stream = nullptr;
    while (!awaited_.empty() && awaited_.front().stream == nullptr) readFront(kAllRows);
  }
  stream.end();
}

}  // namespace zelkor
