#include "store/engine/PostgreSqlLink.h"

#include <libpq-fe.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <utility>

#include "base/RuntimeError.h"
#include "store/engine/PostgreSqlErrors.h"

namespace zelkor {
namespace {

constexpr unsigned textType = 25;  // the server's number of the type text
constexpr std::string_view savepoint = "zk_step";

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

bool writes(const PGresult* result) {
  const std::string_view tag = PQcmdStatus(const_cast<PGresult*>(result));
  return tag.starts_with("INSERT") || tag.starts_with("UPDATE") || tag.starts_with("DELETE");
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
    throw RuntimeError(ErrorNumber::DeviceIo, "设备 I/O 错误：无法连接数据库服务器。" +
                                                  std::string(PQerrorMessage(connection_.get())));
  PQsetNoticeReceiver(
      connection_.get(), [](void*, const PGresult*) {}, nullptr);
  if (std::string_view(PQparameterStatus(connection_.get(), "server_encoding")) != "UTF8")
    throw RuntimeError(ErrorNumber::UnrecognizedFormat, "服务器上的数据库必须使用 UTF8 编码。");
  PQsetClientEncoding(connection_.get(), "UTF8");
}

PostgreSqlLink::~PostgreSqlLink() = default;

bool PostgreSqlLink::inTransaction() const {
  const PGTransactionStatusType status = PQtransactionStatus(connection_.get());
  return status == PQTRANS_INTRANS || status == PQTRANS_INERROR;
}

bool PostgreSqlLink::takeWritten() {
  return std::exchange(written_, false);
}

// "Key (snum, lid)=(A1, 2) already exists.": the columns stand in the first parentheses in every language.
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

// The server gives up a whole transaction for one failure; a savepoint keeps what went before.
template <typename Step>
PgResult PostgreSqlLink::guarded(Step step) {
  if (!inTransaction()) return checked(step());
  checked(PQexec(connection_.get(), ("SAVEPOINT " + std::string(savepoint)).c_str()));
  PgResult result(step());
  if (succeeded(result.get())) {
    checked(PQexec(connection_.get(), ("RELEASE " + std::string(savepoint)).c_str()));
    return result;
  }
  const ServerFailure failure = failureOf(connection_.get(), result.get());
  if (inTransaction()) {
    const std::string name(savepoint);
    checked(PQexec(connection_.get(), ("ROLLBACK TO " + name + "; RELEASE " + name).c_str()));
  }
  raiseServerError(failure, columnsOfKey(failure));
}

void PostgreSqlLink::note(const pg_result* result) {
  if (!writes(result)) return;
  changes_ = std::strtol(PQcmdTuples(const_cast<PGresult*>(result)), nullptr, 10);
  written_ = true;
  if (PQntuples(result) > 0) lastRowKey_ = std::strtoll(PQgetvalue(result, 0, 0), nullptr, 10);
}

PgResult PostgreSqlLink::run(const std::string& sql) {
  PgResult result = checked(PQexec(connection_.get(), sql.c_str()));
  note(result.get());
  return result;
}

PgResult PostgreSqlLink::query(const std::string& sql, const PgValues& values) {
  const auto pointers = pointersTo(values);
  const std::vector<Oid> types(values.size(), textType);
  return guarded([&] {
    return PQexecParams(connection_.get(), sql.c_str(), static_cast<int>(values.size()), types.data(),
                        pointers.data(), nullptr, nullptr, 0);
  });
}

std::string PostgreSqlLink::prepare(const std::string& sql, int parameters) {
  std::string unused;
  for (const std::string& name : std::exchange(forgotten_, {})) unused += "DEALLOCATE " + name + ";";
  if (!unused.empty()) run(unused);
  std::string name = "zk_" + std::to_string(++prepared_);
  const std::vector<Oid> types(static_cast<std::size_t>(parameters), textType);
  guarded([&] { return PQprepare(connection_.get(), name.c_str(), sql.c_str(), parameters, types.data()); });
  return name;
}

PgResult PostgreSqlLink::execute(const std::string& name, const PgValues& values) {
  const auto pointers = pointersTo(values);
  PgResult result = guarded([&] {
    return PQexecPrepared(connection_.get(), name.c_str(), static_cast<int>(values.size()), pointers.data(),
                          nullptr, nullptr, 0);
  });
  note(result.get());
  return result;
}

void PostgreSqlLink::copyIn(const std::string& sql, const std::string& rows) {
  checked(PQexec(connection_.get(), sql.c_str()));
  PQputCopyData(connection_.get(), rows.data(), static_cast<int>(rows.size()));
  PQputCopyEnd(connection_.get(), nullptr);
  PgResult done;
  while (pg_result* next = PQgetResult(connection_.get())) done = checked(next);
}

}  // namespace zelkor
