#include "store/engine/sqlite/SqliteErrors.h"

#include <sqlite3.h>

#include <cerrno>
#include <charconv>
#include <string>
#include <string_view>

#include "base/RuntimeError.h"
#include "store/dialect/binding/NameErrors.h"

namespace zelkor {
namespace {

constexpr std::string_view kOwnErrorMark = "ZK";

// Functions of the dialect report "ZK<number>:<description>".
void raiseOwnError(std::string_view message) {
  if (!message.starts_with(kOwnErrorMark)) return;
  const std::size_t colon = message.find(':');
  if (colon == std::string_view::npos) return;
  int number = 0;
  std::from_chars(message.data() + kOwnErrorMark.size(), message.data() + colon, number);
  throw RuntimeError(static_cast<ErrorNumber>(number), std::string(message.substr(colon + 1)));
}

std::string behind(std::string_view message, std::string_view mark) {
  const std::size_t place = message.find(mark);
  return place == std::string_view::npos ? std::string() : std::string(message.substr(place + mark.size()));
}

// Index names are per table in the dialect: "<table>__<index>" in the file.
void raiseIndexError(std::string_view message) {
  if (const std::string index = behind(message, "no such index: "); !index.empty())
    throw RuntimeError(ErrorNumber::NoSuchIndex, "没有这样的索引。（" + behind(index, "__") + "）");
  if (message.starts_with("index ") && message.ends_with(" already exists"))
    throw RuntimeError(ErrorNumber::IndexAlreadyExists);
}

// Another process has made the table since its name was looked up.
void raiseTableExists(std::string_view message) {
  constexpr std::string_view before = "table \"";
  constexpr std::string_view after = "\" already exists";
  if (!message.starts_with(before) || !message.ends_with(after)) return;
  message.remove_prefix(before.size());
  message.remove_suffix(after.size());
  throw RuntimeError(ErrorNumber::TableAlreadyExists, "表 '" + std::string(message) + "' 已存在。");
}

void raiseUnknownName(std::string_view message) {
  if (const std::string table = behind(message, "no such table: "); !table.empty())
    throw dialect::unknownTable(table);
  if (const std::string column = behind(message, "no such column: "); !column.empty())
    throw dialect::unknownColumn(column);
}

// "UNIQUE constraint failed: fa_departments.sNum": the engine names the columns of the index.
RuntimeError duplicateKey(std::string_view message) {
  const std::string index = behind(message, "failed: ");
  return {ErrorNumber::DuplicateKey,
          "由于将在索引、主关键字或关系中创建重复的值，请求对表的更改没有成功。（索引：" + index + "）"};
}

RuntimeError nullInColumn(std::string_view message) {
  return {ErrorNumber::RequiredField,
          "字段 '" + behind(message, "failed: ") + "' 不能包含 Null 值，必须在此字段中输入一个值。"};
}

/// The engine tells of damage without naming the file.
RuntimeError unrecognized(sqlite3* handle) {
  const char* file = sqlite3_db_filename(handle, "main");
  if (file == nullptr || *file == '\0') return RuntimeError(ErrorNumber::UnrecognizedFormat);
  return {ErrorNumber::UnrecognizedFormat, "不可识别的数据库格式 '" + std::string(file) + "'。"};
}

/// Beside the file the engine makes the index of its log, for who only reads, too.
bool hasNoRoom(sqlite3* handle, int code) {
  if ((code & 0xff) == SQLITE_FULL || code == SQLITE_IOERR_SHMSIZE) return true;
  const int failure = (code & 0xff) == SQLITE_IOERR ? sqlite3_system_errno(handle) : 0;
  return failure == ENOSPC || failure == EDQUOT;
}

[[noreturn]] void raiseByPrimaryCode(sqlite3* handle, int code, const std::string& message) {
  if (hasNoRoom(handle, code))
    throw RuntimeError(ErrorNumber::DiskFull, "磁盘空间不足，数据文件或旁边的临时文件无法写入。");
  switch (code & 0xff) {
    case SQLITE_CONSTRAINT:
      if (code == SQLITE_CONSTRAINT_NOTNULL) throw nullInColumn(message);
      throw duplicateKey(message);
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN:
      throw RuntimeError(ErrorNumber::DeviceIo, "设备 I/O 错误：" + message);
    case SQLITE_READONLY:
    case SQLITE_PERM:
      throw RuntimeError(ErrorNumber::CannotOpenReadOnly, "数据文件是只读的，无法写入。");
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      throw RuntimeError(ErrorNumber::FileLocked, "数据文件正被另一个进程锁定，无法使用。");
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      throw unrecognized(handle);
    default:
      throw RuntimeError(ErrorNumber::OperationNotUpdatable, "数据库引擎错误：" + message);
  }
}

}  // namespace

void raiseSqliteError(sqlite3* handle, int code) {
  const std::string message = sqlite3_errmsg(handle);
  raiseOwnError(message);
  if ((code & 0xff) == SQLITE_ERROR) {
    raiseIndexError(message);
    raiseTableExists(message);
    raiseUnknownName(message);
  }
  raiseByPrimaryCode(handle, code, message);
}

}  // namespace zelkor
