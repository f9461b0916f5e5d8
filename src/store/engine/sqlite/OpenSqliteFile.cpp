#include "store/engine/sqlite/OpenSqliteFile.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <mutex>
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

/// The group of the data file for what is made beside it ("books-wal"). In a folder that hands none down it
/// would be the user's own, and keep out those who share the books. Needed where it is not his to give: no
/// matter.
void giveGroupOfData(int made, const std::string& path) {
  struct stat data {};
  if (::stat(path.substr(0, path.rfind('-')).c_str(), &data) != 0) return;
  if (::fchown(made, static_cast<uid_t>(-1), data.st_gid) != 0) return;
}

/// How the engine opens files. One that is there is opened without being asked for: in a sticky folder the
/// system refuses to make one where another user's is.
int openAmongUsers(const char* path, int flags, int mode) {
  if ((flags & O_CREAT) == 0 || (flags & O_EXCL) != 0) return ::open(path, flags, mode);
  const int there = ::open(path, flags & ~O_CREAT);
  if (there >= 0 || errno != ENOENT) return there;
  const int made = ::open(path, flags, mode);
  if (made >= 0) giveGroupOfData(made, path);
  return made;
}

/// For the whole process, before the engine opens its first file.
void prepareEngineOnce() {
  // The count of its memory, which nobody reads, takes a lock at every allocation.
  sqlite3_config(SQLITE_CONFIG_MEMSTATUS, 0);
  sqlite3_vfs* files = sqlite3_vfs_find(nullptr);
  files->xSetSystemCall(files, "open", reinterpret_cast<sqlite3_syscall_ptr>(openAmongUsers));
}

void prepareEngine() {
  static std::once_flag prepared;
  std::call_once(prepared, prepareEngineOnce);
}

/// A file that the engine has open without a connection.
class OpenFile {
 public:
  explicit OpenFile(const std::string& path)
      : name_(path + std::string(2, '\0')),
        memory_((static_cast<std::size_t>(sqlite3_vfs_find(nullptr)->szOsFile) + sizeof(Block) - 1) /
                sizeof(Block)) {
    sqlite3_vfs* files = sqlite3_vfs_find(nullptr);
    constexpr int kHow = SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_READONLY;
    open_ = files->xOpen(files, name_.c_str(), file(), kHow, nullptr) == SQLITE_OK;
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (open_) file()->pMethods->xClose(file());
  }

  std::string beginning(std::size_t most) {
    sqlite3_int64 size = 0;
    if (!open_ || file()->pMethods->xFileSize(file(), &size) != SQLITE_OK) return {};
    std::string text(std::min(most, static_cast<std::size_t>(size)), '\0');
    const int length = static_cast<int>(text.size());
    return file()->pMethods->xRead(file(), text.data(), length, 0) == SQLITE_OK ? text : std::string();
  }

 private:
  using Block = std::max_align_t;
  sqlite3_file* file() { return reinterpret_cast<sqlite3_file*>(memory_.data()); }

  std::string name_;
  std::vector<Block> memory_;
  bool open_ = false;
};

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
  prepareEngine();
  const auto most = static_cast<std::size_t>(sqlite3_vfs_find(nullptr)->mxPathname) - kLongestEnding - spare;
  const std::size_t length = wholePath(file).native().size();
  if (length > most)
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "文件 '" + file.string() + "' 的路径太长：有 " + std::to_string(length) +
                           " 个字节，数据库引擎最多接受 " + std::to_string(most) + " 个。");
}

std::string beginningOfFile(const std::string& path, std::size_t most) {
  prepareEngine();
  return OpenFile(path).beginning(most);
}

SqliteHandle openSqliteFile(const std::string& path, SqliteEngine::Access access) {
  prepareEngine();
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
