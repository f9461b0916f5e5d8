#include "base/LockedFile.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "base/SystemError.h"

namespace zelkor {
namespace {

constexpr int kAnyway = O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK;  // a pipe in its place does not hold us up
constexpr std::size_t kLongestTold = 200;

[[noreturn]] void raise(const std::string& path) {
  throw systemError("不能锁定文件“" + path + "”", errno);
}

/// Of the lock that says that what is in the file is its holder's: a killed one leaves the words, not
/// this.
struct flock markOfWords() {
  struct flock mark {};
  mark.l_type = F_WRLCK;
  mark.l_whence = SEEK_SET;
  return mark;
}

/// A file that is there is opened without being asked for: in a folder that everybody may write, the system
/// refuses to make one where somebody else's is. Without the right to write it, it can still be locked.
FileDescriptor opened(const std::string& path, mode_t mode) {
  while (true) {
    FileDescriptor file(::open(path.c_str(), O_RDWR | kAnyway));
    if (!file && errno == EACCES) file = FileDescriptor(::open(path.c_str(), O_RDONLY | kAnyway));
    if (!file && errno == ENOENT)
      file = FileDescriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | kAnyway, mode));
    if (file) return file;
    if (errno != EEXIST) raise(path);
  }
}

/// A holder that removes its file can do so between the opening here and the locking.
bool isStillThere(const FileDescriptor& file, const std::string& path) {
  struct stat locked {};
  struct stat named {};
  return ::fstat(file.get(), &locked) == 0 && ::stat(path.c_str(), &named) == 0 &&
         locked.st_dev == named.st_dev && locked.st_ino == named.st_ino;
}

bool lock(const FileDescriptor& file, const std::string& path) {
  while (::flock(file.get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK) return false;
    if (errno != EINTR) raise(path);
  }
  return true;
}

}  // namespace

std::unique_ptr<LockedFile> LockedFile::take(const std::string& path, mode_t mode, Afterwards afterwards) {
  while (true) {
    FileDescriptor file = opened(path, mode);
    if (!lock(file, path)) return nullptr;
    if (!isStillThere(file, path)) continue;
    return std::unique_ptr<LockedFile>(new LockedFile(path, std::move(file), afterwards));
  }
}

LockedFile::~LockedFile() {
  // Where somebody has removed it, another holder may have made one of this name.
  if (afterwards_ == Afterwards::Goes && isStillThere(file_, path_)) ::unlink(path_.c_str());
}

// The lock counts, not the words: what does not fit on a full disk is left out.
void LockedFile::tell(std::string_view text) const {
  if (::ftruncate(file_.get(), 0) != 0) return;
  if (::pwrite(file_.get(), text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) return;
  struct flock mark = markOfWords();
  ::fcntl(file_.get(), F_OFD_SETLK, &mark);
}

std::string LockedFile::toldBy(const std::string& path) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | kAnyway));
  struct flock mark = markOfWords();
  if (!file || ::fcntl(file.get(), F_OFD_GETLK, &mark) != 0 || mark.l_type == F_UNLCK) return {};
  std::string text(kLongestTold, '\0');
  const ssize_t length = ::pread(file.get(), text.data(), text.size(), 0);
  text.resize(length < 0 ? 0 : static_cast<std::size_t>(length));
  return text;
}

}  // namespace zelkor
