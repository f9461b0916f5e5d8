#include "store/engine/sqlite/SqliteFileHold.h"

#include <fcntl.h>

#include <cerrno>

#include "base/SystemError.h"

namespace zelkor {
namespace {

// Where the engine locks a file: one byte for a writer to come, one for the writer, the rest for readers.
constexpr off_t kLockedFrom = 0x40000000;
constexpr off_t kLockedBytes = 512;

}  // namespace

FileDescriptor holdSqliteFile(const std::string& path) {
  FileDescriptor file(::open(path.c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY));
  if (!file) throw systemError("不能打开文件“" + path + "”", errno);
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = kLockedFrom;
  lock.l_len = kLockedBytes;
  if (::fcntl(file.get(), F_OFD_SETLK, &lock) != 0) throw RuntimeError(ErrorNumber::FileLocked);
  return file;
}

}  // namespace zelkor
