#include "store/engine/sqlite/SqliteJobLock.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "base/LockedFile.h"

namespace zelkor {
namespace {

constexpr mode_t kWriters = S_IWUSR | S_IWGRP | S_IWOTH;

class FileJobLock final : public JobLock {
 public:
  explicit FileJobLock(std::unique_ptr<LockedFile> file) : file_(std::move(file)) {}

 private:
  std::unique_ptr<LockedFile> file_;
};

/// One file, by whatever name it was reached.
std::string lockPathOf(const std::string& dataFile) {
  std::error_code failure;
  const std::filesystem::path path = std::filesystem::canonical(dataFile, failure);
  return (failure ? dataFile : path.string()) + "-job";
}

/// Who may write the data file may lock it, and nobody else. Needed where the process may not: no matter.
void shareAmongWriters(const FileDescriptor& lock, const struct stat& data, mode_t mode) {
  const bool isRoot = ::geteuid() == 0;
  if (isRoot && ::fchown(lock.get(), data.st_uid, data.st_gid) != 0) return;
  grant(lock, {.mode = mode, .group = data.st_gid, .owner = data.st_uid});
}

std::optional<JobNote> noteOfHolder(const std::string& path) {
  std::string text = LockedFile::toldBy(path);
  std::ranges::replace_if(
      text, [](unsigned char c) { return c < ' '; }, '?');
  return noteOfText(text);
}

}  // namespace

std::optional<JobNote> holderOfFileLock(const std::string& dataFile) {
  return noteOfHolder(lockPathOf(dataFile));
}

JobLockAttempt lockFileForJob(const std::string& dataFile, const JobNote& note) {
  const std::string path = lockPathOf(dataFile);
  struct stat data {};
  ::stat(dataFile.c_str(), &data);
  const mode_t mode = (data.st_mode & kWriters) | (data.st_mode & kWriters) << 1U | S_IRUSR | S_IWUSR;
  auto file = LockedFile::take(path, mode, LockedFile::Afterwards::Goes);
  if (file == nullptr) return {.lock = nullptr, .holder = noteOfHolder(path)};
  shareAmongWriters(file->descriptor(), data, mode);
  file->tell(textOfNote(note));
  return {.lock = std::make_unique<FileJobLock>(std::move(file)), .holder = std::nullopt};
}

}  // namespace zelkor
