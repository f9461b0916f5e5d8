#include "store/engine/postgresql/PostgreSqlLink.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string_view>
#include <utility>

#include "base/RuntimeError.h"
#include "store/engine/postgresql/PostgreSqlErrors.h"
#include "store/engine/postgresql/Results.h"

namespace zelkor {

void PgResultClearer::operator()(pg_result* result) const {
  PQclear(result);
}

void PostgreSqlLink::Closer::operator()(pg_conn* connection) const {
  PQfinish(connection);
}

namespace {

std::string randomTag() {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "zk_%08x_", std::random_device{}());
  return text.data();
}

}  // namespace

PostgreSqlLink::PostgreSqlLink(const std::string& conninfo, Manner manner)
    : connection_(PQconnectdb(conninfo.c_str())), manner_(manner), tag_(randomTag()) {
  if (PQstatus(connection_.get()) != CONNECTION_OK)
    throw RuntimeError(ErrorNumber::DeviceIo,
                       "设备 I/O 错误：无法连接数据库服务器。" + messageOf(connection_.get()));
  PQsetNoticeReceiver(
      connection_.get(), [](void*, const PGresult*) {}, nullptr);
  if (std::string_view(PQparameterStatus(connection_.get(), "server_encoding")) != "UTF8")
    throw RuntimeError(ErrorNumber::UnrecognizedFormat, "服务器上的数据库必须使用 UTF8 编码。");
  if (PQclientEncoding(connection_.get()) != pg_char_to_encoding("UTF8"))
    PQsetClientEncoding(connection_.get(), "UTF8");
}

PostgreSqlLink::~PostgreSqlLink() = default;

bool PostgreSqlLink::inTransaction() const {
  if (underWay_) return tripInTransaction_;
  if (beginOwed_ && PQstatus(connection_.get()) == CONNECTION_OK) return true;
  const PGTransactionStatusType status = PQtransactionStatus(connection_.get());
  return status == PQTRANS_INTRANS || status == PQTRANS_INERROR;
}

int PostgreSqlLink::toldSession() const {
  return PQbackendPID(connection_.get());
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

void PostgreSqlLink::raise(const pg_result* result) const {
  const ServerFailure failure = failureOf(connection_.get(), result);
  raiseServerError(failure, columnsOfKey(failure));
}

PgResult PostgreSqlLink::checked(PgResult result) const {
  if (!succeeded(result.get())) raise(result.get());
  return result;
}

// Such statements make savepoints of their own and end transactions: ours goes with them.
PgResult PostgreSqlLink::run(const std::string& sql) {
  readInWhatIsLeft();
  savepoint_ = Savepoint::None;
  readSavepoint_ = false;
  ++waits_;
  const bool begins = std::exchange(beginOwed_, false);
  PgResult result =
      checked(PgResult(PQexec(connection_.get(), begins ? ("BEGIN; " + sql).c_str() : sql.c_str())));
  noteCount(result.get());
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

void PostgreSqlLink::beginCopy(const std::string& sql) {
  run(sql);
}

// The server reports a wrong row at the end only.
void PostgreSqlLink::putCopy(std::string_view rows) {
  if (PQputCopyData(connection_.get(), rows.data(), static_cast<int>(rows.size())) != 1) raise(nullptr);
}

long PostgreSqlLink::endCopy() {
  PQputCopyEnd(connection_.get(), nullptr);
  ++waits_;
  const PgResult done = checked(lastResult(connection_.get()));
  return std::strtol(PQcmdTuples(done.get()), nullptr, 10);
}

void PostgreSqlLink::giveUpCopy() {
  PQputCopyEnd(connection_.get(), "given up");
  ++waits_;
  lastResult(connection_.get());
}

std::shared_ptr<ServerStatement> PostgreSqlLink::statement(const std::shared_ptr<PostgreSqlLink>& link,
                                                           std::string_view sql) {
  if (const auto known = link->statements_.find(sql); known != link->statements_.end())
    return known->second.lock();
  auto statement = std::make_shared<ServerStatement>(link, sql);
  link->statements_.emplace(statement->sql, statement);
  return statement;
}

void PostgreSqlLink::forget(const ServerStatement& statement) {
  statements_.erase(statement.sql);
  const auto isToldOfIt = [&](const Awaited& awaited) { return awaited.prepares == &statement; };
  if (std::ranges::any_of(awaited_, isToldOfIt)) readInWhatIsLeft();
  if (statement.known) forgotten_.push_back(statement.name);
}

}  // namespace zelkor
