#include "store/engine/sqlite/SqliteJobLock.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

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
void shareAmongWriters(int lock, const struct stat& data, mode_t mode) {
  const bool isRoot = ::geteuid() == 0;
  if (isRoot && ::fchown(lock, data.st_uid, data.st_gid) != 0) return;
  if (::fchmod(lock, mode) != 0) return;
}

void write(const LockedFile& file, const std::string& text) {
  // The lock counts, not the words: what does not fit on a full disk is left out.
  if (::ftruncate(file.descriptor(), 0) != 0) return;
  if (::pwrite(file.descriptor(), text.data(), text.size(), 0) < 0) return;
}

std::optional<JobNote> readNote(const std::string& path) {
  constexpr std::size_t kLongest = 200;
  std::ifstream file(path, std::ios::binary);
  std::string text(kLongest, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  std::ranges::replace_if(
      text, [](unsigned char c) { return c < ' '; }, '?');
  return noteOfText(text);
}

}  // namespace

JobLockAttempt lockFileForJob(const std::string& dataFile, const JobNote& note) {
  const std::string path = lockPathOf(dataFile);
  struct stat data {};
  ::stat(dataFile.c_str(), &data);
  const mode_t mode = (data.st_mode & kWriters) | (data.st_mode & kWriters) << 1U | S_IRUSR | S_IWUSR;
  auto file = LockedFile::take(path, mode, LockedFile::Afterwards::Goes);
  if (file == nullptr) return {.lock = nullptr, .holder = readNote(path)};
  shareAmongWriters(file->descriptor(), data, mode);
  write(*file, textOfNote(note));
  return {.lock = std::make_unique<FileJobLock>(std::move(file)), .holder = std::nullopt};
}

}  // namespace zelkor
