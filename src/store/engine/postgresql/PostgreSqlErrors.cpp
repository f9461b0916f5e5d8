#include "store/engine/postgresql/PostgreSqlErrors.h"

#include <libpq-fe.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "base/RuntimeError.h"
#include "store/dialect/binding/NameErrors.h"

namespace zelkor {
namespace {

constexpr std::string_view kOwnErrorMark = "ZK";
constexpr std::string_view kUnsupportedPicture = "ZK001";
constexpr std::string_view kNoPrivilege = "42501";
constexpr std::string_view kNullInColumn = "23502";
constexpr std::string_view kReadOnlyTransaction = "25006";

struct KnownState {
  std::string_view state;
  ErrorNumber number;
};

constexpr std::array kKnownStates{
    KnownState{"22003", ErrorNumber::Overflow},     KnownState{"22012", ErrorNumber::DivisionByZero},
    KnownState{"22P02", ErrorNumber::TypeMismatch}, KnownState{"22007", ErrorNumber::TypeMismatch},
    KnownState{"22008", ErrorNumber::TypeMismatch}, KnownState{"53100", ErrorNumber::DiskFull},
};

// No lock in time, a deadlock, a transaction that another one has overtaken.
constexpr std::array<std::string_view, 3> kLockedStates{"55P03", "40P01", "40001"};

std::string field(const PGresult* result, int code) {
  const char* text = PQresultErrorField(result, code);
  return text == nullptr ? std::string() : text;
}

// Messages come in the server's language; names are in quotes in all of them.
std::string quotedName(std::string_view message) {
  const std::size_t open = message.find('"');
  const std::size_t close = message.find('"', open + 1);
  if (open != std::string_view::npos && close != std::string_view::npos)
    return std::string(message.substr(open + 1, close - open - 1));
  const std::size_t blank = message.find(' ');  // column a.b does not exist
  const std::size_t end = message.find(' ', blank + 1);
  return blank == std::string_view::npos ? std::string()
                                         : std::string(message.substr(blank + 1, end - blank - 1));
}

void raiseOwnError(const ServerFailure& failure) {
  if (!failure.state.starts_with(kOwnErrorMark)) return;
  if (failure.state == kUnsupportedPicture)
    throw RuntimeError(ErrorNumber::OperationNotSupported, "不支持格式 '" + failure.message + "'。");
  int number = 0;
  std::from_chars(failure.state.data() + kOwnErrorMark.size(), failure.state.data() + failure.state.size(),
                  number);
  throw RuntimeError(static_cast<ErrorNumber>(number));
}

// "Key (typname, typnamespace)=(yxkp, 16402) already exists.": two sessions make a table of that name at
// once, and an index over the server's own tables identifies the later one.
std::string nameMadeAtOnce(const ServerFailure& failure) {
  if (failure.state != "23505" || !failure.table.starts_with("pg_")) return {};
  constexpr std::string_view mark = ")=(";
  const std::size_t begin = failure.detail.find(mark);
  if (begin == std::string::npos) return {};
  const std::size_t name = begin + mark.size();
  return failure.detail.substr(name, failure.detail.find(',', name) - name);
}

[[noreturn]] void raiseNameTaken(const std::string& name) {
  if (name.find("__") != std::string::npos) throw RuntimeError(ErrorNumber::IndexAlreadyExists);
  throw RuntimeError(ErrorNumber::TableAlreadyExists, "表 '" + name + "' 已存在。");
}

// Index names are per table in the dialect: "<table>__<index>" in the schema.
std::string indexNamed(const std::string& name) {
  const std::size_t mark = name.find("__");
  return mark == std::string::npos ? name : name.substr(mark + 2);
}

void raiseNameError(const ServerFailure& failure) {
  const std::string name = quotedName(failure.message);
  if (failure.state == "42P01") throw dialect::unknownTable(name);
  if (failure.state == "42703") throw dialect::unknownColumn(name);
  if (failure.state == "42704")
    throw RuntimeError(ErrorNumber::NoSuchIndex, "没有这样的索引。（" + indexNamed(name) + "）");
  if (failure.state == "42883" && name.starts_with("zk_"))  // the account set's functions are older
    throw RuntimeError(ErrorNumber::UndefinedFunction,
                       "表达式中 '" + name.substr(0, name.find('(')) + "' 函数未定义。");
  // 42710: the row type of a table that another session makes at this moment.
  if (failure.state == "42P07" || failure.state == "42710") raiseNameTaken(name);
  if (const std::string taken = nameMadeAtOnce(failure); !taken.empty()) raiseNameTaken(taken);
}

bool connectionLost(std::string_view state) {
  return state.empty() || state.starts_with("08") || state.starts_with("57P");
}

}  // namespace

std::string messageOf(const PGconn* connection) {
  std::string message = PQerrorMessage(connection);
  while (message.ends_with('\n')) message.pop_back();
  return message;
}

ServerFailure failureOf(const PGconn* connection, const PGresult* result) {
  ServerFailure failure;
  failure.state = field(result, PG_DIAG_SQLSTATE);
  failure.message = field(result, PG_DIAG_MESSAGE_PRIMARY);
  failure.detail = field(result, PG_DIAG_MESSAGE_DETAIL);
  failure.table = field(result, PG_DIAG_TABLE_NAME);
  failure.column = field(result, PG_DIAG_COLUMN_NAME);
  if (failure.state.empty() || PQstatus(connection) == CONNECTION_BAD) {
    failure.state.clear();
    failure.message = messageOf(connection);
  }
  return failure;
}

RuntimeError noRight(const std::string& reason) {
  return {ErrorNumber::CannotOpenReadOnly, "没有数据库服务器上的权限，不能进行该操作。（" + reason + "）"};
}

void raiseServerError(const ServerFailure& failure, const std::string& columnsOfKey) {
  if (connectionLost(failure.state))
    throw RuntimeError(ErrorNumber::DeviceIo,
                       "设备 I/O 错误：与数据库服务器的连接已中断。" + failure.message);
  raiseOwnError(failure);
  raiseNameError(failure);
  if (failure.state == kNullInColumn)
    throw RuntimeError(ErrorNumber::RequiredField, "字段 '" + failure.table + '.' + failure.column +
                                                       "' 不能包含 Null 值，必须在此字段中输入一个值。");
  if (failure.state.starts_with("23"))
    throw RuntimeError(
        ErrorNumber::DuplicateKey,
        "由于将在索引、主关键字或关系中创建重复的值，请求对表的更改没有成功。（索引：" + columnsOfKey + "）");
  if (failure.state == kNoPrivilege) throw noRight(failure.message);
  if (failure.state == kReadOnlyTransaction)
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "数据库服务器只供读取（例如备用服务器），不能写入。（" + failure.message + "）");
  if (std::ranges::find(kLockedStates, failure.state) != kLockedStates.end())
    throw RuntimeError(ErrorNumber::FileLocked, "数据文件正被另一个进程锁定，无法使用。");
  for (const KnownState& known : kKnownStates)
    if (known.state == failure.state) throw RuntimeError(known.number);
  throw RuntimeError(ErrorNumber::OperationNotUpdatable, "数据库引擎错误：" + failure.message);
}

}  // namespace zelkor
