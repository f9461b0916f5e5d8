#include "store/engine/sqlite/OpenSqliteFile.h"

#include <sqlite3.h>
#include <unistd.h>

#include <string_view>

#include "base/RuntimeError.h"
#include "store/engine/sqlite/SqliteErrors.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestEnding = std::string_view("-journal").size();

fs::path wholePath(const fs::path& file) {
  std::error_code failure;
  const fs::path whole = fs::weakly_canonical(fs::absolute(file, failure), failure);
  return failure ? file : whole;
}

/// Where nothing can be written there is no place for the index of the log; without a log, and
/// with nobody who has it open, the file alone is all there is.
enum class Surroundings : std::uint8_t { Writable, FileAlone, LogToo };

Surroundings surroundingsOf(const fs::path& file) {
  if (::access(file.parent_path().c_str(), W_OK) == 0) return Surroundings::Writable;
  std::error_code missing;
  const auto log = fs::file_size(fs::path(file).concat("-wal"), missing);
  std::error_code ignored;
  const bool open = fs::exists(fs::path(file).concat("-shm"), ignored);
  return open || (!missing && log != 0) ? Surroundings::LogToo : Surroundings::FileAlone;
}

std::string unchangingUri(const fs::path& file) {
  static constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string uri = "file:";
  for (const char c : file.string()) {
    const auto byte = static_cast<unsigned char>(c);
    if (c == '%' || c == '?' || c == '#') {
      uri += '%';
      uri += kHex[byte >> 4];
      uri += kHex[byte & 0xF];
    } else {
      uri += c;
    }
  }
  return uri + "?immutable=1";
}

SqliteHandle opened(const std::string& name, int flags) {
  sqlite3* handle = nullptr;
  const int code = sqlite3_open_v2(name.c_str(), &handle, flags | SQLITE_OPEN_NOMUTEX, nullptr);
  SqliteHandle owner(handle);
  if (code != SQLITE_OK) raiseSqliteError(handle, code);
  return owner;
}

/// The log is read with the first statement.
void requireReadableLog(sqlite3* handle, const fs::path& file) {
  if (sqlite3_exec(handle, "PRAGMA schema_version", nullptr, nullptr, nullptr) == SQLITE_OK) return;
  throw RuntimeError(
      ErrorNumber::CannotOpenReadOnly,
      "文件 '" + file.string() +
          "' 旁边有尚未写入的日志（-wal），而所在的文件夹不能写：请把它们一起复制到可写的文件夹再试。");
}

}  // namespace

void requireShortPath(const fs::path& file, std::size_t spare) {
  const auto most = static_cast<std::size_t>(sqlite3_vfs_find(nullptr)->mxPathname) - kLongestEnding - spare;
  const std::size_t length = wholePath(file).native().size();
  if (length > most)
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "文件 '" + file.string() + "' 的路径太长：有 " + std::to_string(length) +
                           " 个字节，数据库引擎最多接受 " + std::to_string(most) + " 个。");
}

SqliteHandle openSqliteFile(const std::string& path, SqliteEngine::Access access) {
  // The count of its memory, which nobody reads, takes a lock at every allocation.
  static const int uncounted = sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  (void)uncounted;
  requireShortPath(path);
  const fs::path whole = wholePath(path);
  const bool reading = access == SqliteEngine::Access::Read;
  const Surroundings surroundings = reading ? surroundingsOf(whole) : Surroundings::Writable;
  if (surroundings == Surroundings::FileAlone)
    return opened(unchangingUri(whole), SQLITE_OPEN_READONLY | SQLITE_OPEN_URI);
  // A file that may not be written is opened for reading.
  SqliteHandle handle = opened(path, SQLITE_OPEN_READWRITE);
  if (surroundings == Surroundings::LogToo) requireReadableLog(handle.get(), whole);
  return handle;
}

}  // namespace zelkor
