#include "base/FileAccess.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

namespace zelkor {
namespace {

constexpr mode_t kOwner = S_IRUSR | S_IWUSR;
constexpr mode_t kGroup = S_IRGRP | S_IWGRP;
constexpr int kGroupShift = 3;  // from the digit of strangers to that of the group

}  // namespace

FileDescriptor& FileDescriptor::operator=(FileDescriptor&& other) noexcept {
  std::swap(number_, other.number_);
  return *this;
}

FileDescriptor::~FileDescriptor() {
  close();
}

bool FileDescriptor::close() {
  const int number = std::exchange(number_, -1);
  return number < 0 || ::close(number) == 0;
}

FileAccess accessOf(const std::filesystem::path& file) {
  struct stat found {};
  if (::stat(file.c_str(), &found) != 0) return {};
  return {kOwner | (found.st_mode & (kGroup | S_IROTH)), found.st_gid, found.st_uid};
}

FileAccess accessWithin(const std::filesystem::path& folder) {
  struct stat found {};
  if (::stat(folder.c_str(), &found) != 0 || (found.st_mode & S_IWGRP) == 0) return {};
  return {kOwner | kGroup, found.st_gid};
}

std::filesystem::path folderOf(const std::filesystem::path& path) {
  std::filesystem::path whole = std::filesystem::absolute(path);
  if (!whole.has_filename()) whole = whole.parent_path();  // "books/"
  return whole.parent_path();
}

std::filesystem::path realPathOf(const std::filesystem::path& file) {
  std::error_code failure;
  const std::filesystem::path whole = std::filesystem::absolute(file, failure);
  std::filesystem::path real = std::filesystem::weakly_canonical(whole, failure);
  return failure ? whole : real;
}

bool makeFolder(const std::filesystem::path& folder) {
  const std::filesystem::path above = folderOf(folder);
  struct stat found {};
  const bool shared =
      ::stat(above.c_str(), &found) == 0 && (found.st_mode & S_ISGID) != 0 && (found.st_mode & S_IWGRP) != 0;
  if (::mkdir(folder.c_str(), S_IRWXU) == 0) {
    using std::filesystem::perms;
    if (shared) std::filesystem::permissions(folder, perms::set_gid | perms::owner_all | perms::group_all);
    forceToDisk(above);
    return true;
  }
  const std::error_code failure(errno, std::generic_category());
  if (std::filesystem::is_directory(folder)) return false;
  throw std::filesystem::filesystem_error("mkdir", folder, failure);
}

bool forceToDisk(const std::filesystem::path& path) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  return !file || ::fsync(file.get()) == 0 || errno == EINVAL;  // a file system that cannot be asked
}

// Where it fails the file is the superuser's, which is less than it could be.
void giveToOwner(const FileDescriptor& file, const FileAccess& access) {
  if (::geteuid() != 0 || access.owner == static_cast<uid_t>(-1)) return;
  (void)!::fchown(file.get(), access.owner, static_cast<gid_t>(-1));
}

bool grant(const FileDescriptor& file, const FileAccess& access) {
  mode_t mode = access.mode;
  const bool ownGroup = access.group == static_cast<gid_t>(-1);
  if (!ownGroup && ::fchown(file.get(), static_cast<uid_t>(-1), access.group) != 0) {
    mode &= ~kGroup | ((mode & S_IRWXO) << kGroupShift);
  }
  giveToOwner(file, access);
  return ::fchmod(file.get(), mode) == 0;
}

FileDescriptor createFile(const std::filesystem::path& file, const FileAccess& access) {
  FileDescriptor created(::open(file.c_str(), O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kOwner));
  if (created && !grant(created, access)) {
    const int failure = errno;
    ::unlink(file.c_str());
    created.close();
    errno = failure;
  }
  return created;
}

}  // namespace zelkor
