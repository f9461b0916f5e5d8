#include "store/engine/postgresql/PostgreSqlLink.h"

#include <libpq-fe.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <iterator>
#include <limits>
#include <string_view>
#include <utility>

#include "base/RuntimeError.h"
#include "store/engine/postgresql/PostgreSqlErrors.h"

namespace zelkor {
namespace {

constexpr unsigned kTextType = 25;  // the server's number of the type text
constexpr const char* kSetSavepoint = "SAVEPOINT zk_step";
constexpr const char* kLeaveSavepoint = "RELEASE zk_step";
constexpr const char* kBackToSavepoint = "ROLLBACK TO zk_step";
// Nearly every result is shorter; a longer one is walked through in pieces of this size.
constexpr std::size_t kRowsAtOnce = 1000;

bool succeeded(const PGresult* result) {
  const ExecStatusType status = PQresultStatus(result);
  return status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK || status == PGRES_COPY_IN;
}

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

std::string_view tagOf(const PGresult* result) {
  return PQcmdStatus(const_cast<PGresult*>(result));
}

bool writes(const PGresult* result) {
  const std::string_view tag = tagOf(result);
  return tag.starts_with("INSERT") || tag.starts_with("UPDATE") || tag.starts_with("DELETE");
}

// The results of one statement end with none. A broken connection gives its failure and no end.
PgResult lastResult(PGconn* connection) {
  PgResult last;
  while (PgResult next{PQgetResult(connection)}) {
    last = std::move(next);
    if (PQstatus(connection) == CONNECTION_BAD) break;
  }
  return last;
}

}  // namespace

void PgResultClearer::operator()(pg_result* result) const {
  PQclear(result);
}

void PostgreSqlLink::Closer::operator()(pg_conn* connection) const {
  PQfinish(connection);
}

PostgreSqlLink::PostgreSqlLink(const std::string& conninfo) : connection_(PQconnectdb(conninfo.c_str())) {
  if (PQstatus(connection_.get()) != CONNECTION_OK)
    throw RuntimeError(ErrorNumber::DeviceIo,
                       "设备 I/O 错误：无法连接数据库服务器。" + messageOf(connection_.get()));
  PQsetNoticeReceiver(
      connection_.get(), [](void*, const PGresult*) {}, nullptr);
  if (std::string_view(PQparameterStatus(connection_.get(), "server_encoding")) != "UTF8")
    throw RuntimeError(ErrorNumber::UnrecognizedFormat, "服务器上的数据库必须使用 UTF8 编码。");
  PQsetClientEncoding(connection_.get(), "UTF8");
}

PostgreSqlLink::~PostgreSqlLink() = default;

bool PostgreSqlLink::inTransaction() const {
  if (reading_ != nullptr) return readingInTransaction_;
  if (beginOwed_ && PQstatus(connection_.get()) == CONNECTION_OK) return true;
  const PGTransactionStatusType status = PQtransactionStatus(connection_.get());
  return status == PQTRANS_INTRANS || status == PQTRANS_INERROR;
}

bool PostgreSqlLink::takeWritten() {
  return std::exchange(written_, false);
}

// "Key (snum, lid)=(A1, 2) already exists.": the columns are in the first parentheses in every language.
std::string PostgreSqlLink::columnsOfKey(const ServerFailure& failure) const {
  const std::size_t open = failure.detail.find('(');
  const std::size_t close = failure.detail.find(")=(");
  if (open == std::string::npos || close == std::string::npos) return failure.table;
  const auto table = tables.find(failure.table);
  std::string names;
  std::string_view rest = std::string_view(failure.detail).substr(open + 1, close - open - 1);
  while (!rest.empty()) {
    const std::size_t comma = std::min(rest.find(", "), rest.size());
    const std::string_view name = rest.substr(0, comma);
    rest.remove_prefix(std::min(comma + 2, rest.size()));
    const dialect::ColumnInfo* column = table == tables.end() ? nullptr : table->second.find(name);
    names += (names.empty() ? "" : ", ") + (table == tables.end() ? failure.table : table->second.name) +
             '.' + (column == nullptr ? std::string(name) : column->name);
  }
  return names;
}

PgResult PostgreSqlLink::checked(pg_result* result) {
  PgResult owner(result);
  if (succeeded(result)) return owner;
  const ServerFailure failure = failureOf(connection_.get(), result);
  raiseServerError(failure, columnsOfKey(failure));
}

void PostgreSqlLink::fail(const pg_result* result) {
  const ServerFailure failure = failureOf(connection_.get(), result);
  if (savepoint_ == Savepoint::Fresh && PQtransactionStatus(connection_.get()) == PQTRANS_INERROR)
    const PgResult back(PQexec(connection_.get(), kBackToSavepoint));
  raiseServerError(failure, columnsOfKey(failure));
}

// The server gives up a whole transaction for one failure; a savepoint keeps what went before. One after
// which nothing has been written serves the next statement as well. (A query that writes by a function is
// part of a change of tables, which is undone as a whole.)
std::vector<std::string> PostgreSqlLink::preamble() const {
  std::vector<std::string> commands;
  if (!inTransaction()) return commands;
  if (beginOwed_) commands.emplace_back("BEGIN");
  if (savepoint_ == Savepoint::WrittenBehind) commands.emplace_back(kLeaveSavepoint);
  if (savepoint_ != Savepoint::Fresh) commands.emplace_back(kSetSavepoint);
  return commands;
}

// One trip, whatever goes before the statement.
template <typename Send>
void PostgreSqlLink::send(std::vector<std::string> before, Send send) {
  readInWhatIsLeft();
  readingInTransaction_ = inTransaction();
  std::ranges::move(preamble(), std::back_inserter(before));
  pipelined_ = !before.empty();
  if (pipelined_) PQenterPipelineMode(connection_.get());
  for (const std::string& command : before)
    PQsendQueryParams(connection_.get(), command.c_str(), 0, nullptr, nullptr, nullptr, nullptr, 0);
  send(connection_.get());
  if (pipelined_) PQpipelineSync(connection_.get());
  takePreamble(before.size());
}

void PostgreSqlLink::takePreamble(std::size_t commands) {
  if (commands == 0) return;
  PgResult result;
  for (bool good = true; good && commands > 0; --commands) {
    result = lastResult(connection_.get());
    good = succeeded(result.get());
  }
  if (succeeded(result.get())) {
    beginOwed_ = false;
    if (readingInTransaction_) savepoint_ = Savepoint::Fresh;
    return;
  }
  for (; commands > 0; --commands) lastResult(connection_.get());
  lastResult(connection_.get());
  endTrip();
  fail(result.get());
}

void PostgreSqlLink::endTrip() {
  if (!std::exchange(pipelined_, false)) return;
  const PgResult sync(PQgetResult(connection_.get()));
  PQexitPipelineMode(connection_.get());
}

PgResult PostgreSqlLink::collect() {
  PgResult result = lastResult(connection_.get());
  endTrip();
  if (!succeeded(result.get())) fail(result.get());
  note(result.get());
  return result;
}

// Rows that come one by one are in results of their own; the last result has none.
void PostgreSqlLink::read(PostgreSqlStream& stream, std::size_t upTo) {
  PgResult result;
  while (PgResult next{PQgetResult(connection_.get())}) {
    result = std::move(next);
    if (PQstatus(connection_.get()) == CONNECTION_BAD) break;
    if (PQresultStatus(result.get()) != PGRES_SINGLE_TUPLE) continue;
    stream.rows.take(result.get());
    if (stream.rows.count() >= upTo) return;
  }
  reading_ = nullptr;
  stream.open = false;
  endTrip();
  try {
    if (!succeeded(result.get())) fail(result.get());
  } catch (const RuntimeError&) {
    stream.failure = std::current_exception();
    return;
  }
  note(result.get());
  if (writes(result.get()) && stream.rows.count() > 0) lastRowKey_ = numberOf(stream.rows.text(0, 0));
}

void PostgreSqlLink::readInWhatIsLeft() {
  if (reading_ != nullptr) read(*reading_, std::numeric_limits<std::size_t>::max());
}

void PostgreSqlLink::note(const pg_result* result) {
  const std::string_view tag = tagOf(result);
  if (savepoint_ == Savepoint::Fresh && !tag.empty() && !tag.starts_with("SELECT"))
    savepoint_ = Savepoint::WrittenBehind;
  if (!writes(result)) return;
  changes_ = std::strtol(PQcmdTuples(const_cast<PGresult*>(result)), nullptr, 10);
  written_ = true;
}

// Such statements make savepoints of their own and end transactions: ours goes with them.
PgResult PostgreSqlLink::run(const std::string& sql) {
  readInWhatIsLeft();
  if (std::exchange(beginOwed_, false)) checked(PQexec(connection_.get(), "BEGIN"));
  savepoint_ = Savepoint::None;
  PgResult result = checked(PQexec(connection_.get(), sql.c_str()));
  note(result.get());
  return result;
}

void PostgreSqlLink::begin() {
  beginOwed_ = true;
}

void PostgreSqlLink::commit() {
  readInWhatIsLeft();
  if (std::exchange(beginOwed_, false)) return;
  // The server answers the commit of a transaction that has failed with its rollback.
  if (tagOf(run("COMMIT").get()) != "COMMIT")
    throw RuntimeError(ErrorNumber::DeviceIo, "设备 I/O 错误：数据库服务器没有接受写入。");
  written_ = true;  // tables that were made or dropped, too
}

void PostgreSqlLink::rollback() {
  readInWhatIsLeft();
  if (!std::exchange(beginOwed_, false)) run("ROLLBACK");
}

PgResult PostgreSqlLink::query(const std::string& sql, const PgValues& values) {
  const auto pointers = pointersTo(values);
  const std::vector<Oid> types(values.size(), kTextType);
  send({}, [&](PGconn* connection) {
    PQsendQueryParams(connection, sql.c_str(), static_cast<int>(values.size()), types.data(), pointers.data(),
                      nullptr, nullptr, 0);
  });
  return collect();
}

std::string PostgreSqlLink::prepare(const std::string& sql, int parameters) {
  std::vector<std::string> unused;
  for (const std::string& name : std::exchange(forgotten_, {})) unused.push_back("DEALLOCATE " + name);
  std::string name = "zk_" + std::to_string(++prepared_);
  const std::vector<Oid> types(static_cast<std::size_t>(parameters), kTextType);
  send(std::move(unused), [&](PGconn* connection) {
    PQsendPrepare(connection, name.c_str(), sql.c_str(), parameters, types.data());
  });
  collect();
  return name;
}

void PostgreSqlLink::start(const std::string& name, const PgValues& values, PostgreSqlStream& stream) {
  const auto pointers = pointersTo(values);
  send({}, [&](PGconn* connection) {
    PQsendQueryPrepared(connection, name.c_str(), static_cast<int>(values.size()), pointers.data(), nullptr,
                        nullptr, 0);
  });
  PQsetSingleRowMode(connection_.get());
  stream.rows.clear();
  stream.failure = nullptr;
  stream.open = true;
  reading_ = &stream;
  read(stream, kRowsAtOnce);
}

void PostgreSqlLink::readOn(PostgreSqlStream& stream) {
  stream.rows.clear();
  read(stream, kRowsAtOnce);
}

void PostgreSqlLink::drop(PostgreSqlStream& stream) {
  while (stream.open) readOn(stream);
  stream.rows.clear();
  stream.failure = nullptr;
}

void PostgreSqlLink::beginCopy(const std::string& sql) {
  run(sql);
}

// The server reports a wrong row at the end only.
void PostgreSqlLink::putCopy(std::string_view rows) {
  if (PQputCopyData(connection_.get(), rows.data(), static_cast<int>(rows.size())) == 1) return;
  fail(nullptr);
}

long PostgreSqlLink::endCopy() {
  PQputCopyEnd(connection_.get(), nullptr);
  PgResult done = lastResult(connection_.get());
  if (!succeeded(done.get())) fail(done.get());
  return std::strtol(PQcmdTuples(done.get()), nullptr, 10);
}

void PostgreSqlLink::giveUpCopy() {
  PQputCopyEnd(connection_.get(), "given up");
  lastResult(connection_.get());
}

}  // namespace zelkor
