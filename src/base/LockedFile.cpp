#include "base/LockedFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

[[noreturn]] void raise(const std::string& path) {
  throw RuntimeError(ErrorNumber::DeviceIo, "不能锁定文件“" + path + "”：" + std::strerror(errno));
}

/// A holder that removes its file can do so between the opening here and the locking.
bool isStillThere(int descriptor, const std::string& path) {
  struct stat locked {};
  struct stat named {};
  return ::fstat(descriptor, &locked) == 0 && ::stat(path.c_str(), &named) == 0 &&
         locked.st_dev == named.st_dev && locked.st_ino == named.st_ino;
}

bool lock(int descriptor, const std::string& path) {
  while (::flock(descriptor, LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) return false;
    if (errno != EINTR) raise(path);
  }
  return true;
}

}  // namespace

std::unique_ptr<LockedFile> LockedFile::take(const std::string& path, mode_t mode, Afterwards afterwards) {
  while (true) {
    const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, mode);
    if (descriptor < 0) raise(path);
    // Whatever comes now, the descriptor has an owner; until the file is ours it must not remove it.
    std::unique_ptr<LockedFile> file(new LockedFile(path, descriptor, Afterwards::Stays));
    if (!lock(descriptor, path)) return nullptr;
    if (!isStillThere(descriptor, path)) continue;
    file->afterwards_ = afterwards;
    return file;
  }
}

LockedFile::~LockedFile() {
  // Where somebody has removed it, another holder may have made one of this name.
  if (afterwards_ == Afterwards::Goes && isStillThere(descriptor_, path_)) ::unlink(path_.c_str());
  ::close(descriptor_);
}

}  // namespace zelkor
