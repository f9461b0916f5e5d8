#include "store/accountset/Replacement.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <fstream>
#include <optional>
#include <system_error>
#include <thread>

#include "base/LockedFile.h"
#include "base/RuntimeError.h"
#include "base/SystemError.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr const char* kListName = "zelkor-replacing";
constexpr const char* kPreparedEnding = ".restored";
constexpr const char* kLastLine = "end";
constexpr std::chrono::milliseconds kBetweenAttempts{50};
constexpr std::chrono::milliseconds kPatience{10'000};

fs::path listIn(const fs::path& folder) {
  return folder / kListName;
}

[[noreturn]] void fail(const fs::path& file, int failure) {
  throw systemError("不能替换文件“" + file.string() + "”", failure);
}

void force(const fs::path& path) {
  if (!forceToDisk(path)) fail(path, errno);
}

void giveName(const fs::path& from, const fs::path& to) {
  if (::rename(from.c_str(), to.c_str()) != 0) fail(to, errno);
}

void takeAway(const fs::path& file) {
  if (::unlink(file.c_str()) != 0 && errno != ENOENT) fail(file, errno);
}

fs::path preparedFor(const fs::path& file) {
  return fs::path(file).concat(kPreparedEnding);
}

/// What an engine keeps beside a file.
void removeBeside(const fs::path& file) {
  for (const char* ending : {"-journal", "-wal", "-shm"}) takeAway(fs::path(file).concat(ending));
}

bool isName(const std::string& line) {
  return !line.empty() && line.find('/') == std::string::npos && line != "." && line != "..";
}

/// The names in a folder's list; nothing without one.
std::optional<std::vector<std::string>> namesToReplace(const fs::path& folder) {
  const fs::path list = listIn(folder);
  if (::access(list.c_str(), F_OK) != 0) return std::nullopt;
  std::ifstream file(list);
  std::vector<std::string> names;
  for (std::string line; std::getline(file, line);) names.push_back(line);
  if (!file.is_open() && ::access(list.c_str(), F_OK) != 0) return std::nullopt;  // it has gone meanwhile
  if (names.empty() || names.back() != kLastLine || !std::all_of(names.begin(), names.end(), isName))
    throw RuntimeError(ErrorNumber::UnrecognizedFormat,
                       "文件“" + list.string() + "”记录着一次没有完成的恢复，但不能读取。");
  names.pop_back();
  return names;
}

/// Each step can be taken again: a file that is not prepared any more is in its place.
void carry(const fs::path& folder, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    const fs::path file = folder / name;
    if (::access(preparedFor(file).c_str(), F_OK) != 0) continue;
    removeBeside(file);
    force(folder);  // the log of what was there before must not come back beside it
    giveName(preparedFor(file), file);
  }
  force(folder);
  takeAway(listIn(folder));
  force(folder);
}

void writeList(const fs::path& folder, const std::vector<std::string>& names) {
  const fs::path written = fs::path(listIn(folder)).concat(".new");
  takeAway(written);
  std::string text;
  for (const std::string& name : names) text += name + '\n';
  text += kLastLine;
  text += '\n';
  FileDescriptor file = createFile(written, accessWithin(folder));
  if (!file) fail(written, errno);
  errno = ENOSPC;  // of a write that was cut short
  if (::write(file.get(), text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
      ::fsync(file.get()) != 0)
    fail(written, errno);
  giveName(written, listIn(folder));
}

std::unique_ptr<LockedFile> lockOf(const fs::path& file) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (true) {
    auto lock = LockedFile::take(file.string() + "-job", S_IRUSR | S_IWUSR, LockedFile::Afterwards::Goes);
    if (lock) return lock;
    if (std::chrono::steady_clock::now() >= end)
      throw RuntimeError(ErrorNumber::FileLocked, "账套“" + file.string() + "”正在从备份恢复，无法使用。");
    std::this_thread::sleep_for(kBetweenAttempts);
  }
}

bool concerns(const std::optional<std::vector<std::string>>& names, const fs::path& real) {
  return names && std::find(names->begin(), names->end(), real.filename()) != names->end();
}

}  // namespace

Replacement::Replacement(fs::path folder, std::vector<std::string> names)
    : folder_(std::move(folder)), names_(std::move(names)) {
  for (const std::string& name : names_) {
    takeAway(prepared(name));
    removeBeside(prepared(name));
  }
}

Replacement::~Replacement() {
  std::error_code ignored;
  if (!decided_)
    for (const std::string& name : names_) fs::remove(prepared(name), ignored);
}

FileDescriptor Replacement::create(const std::string& name, const FileAccess& access) const {
  FileDescriptor file = createFile(prepared(name), access);
  if (!file) fail(folder_ / name, errno);
  return file;
}

fs::path Replacement::prepared(const std::string& name) const {
  return preparedFor(folder_ / name);
}

void Replacement::carryOut() {
  for (const std::string& name : names_) force(prepared(name));
  force(folder_);
  writeList(folder_, names_);
  decided_ = true;
  force(folder_);
  carry(folder_, names_);
}

// The lock is that of the jobs of the set, whose data file is the first in the list.
void finishReplacement(const fs::path& file) {
  const fs::path real = realPathOf(file);
  const fs::path folder = real.parent_path();
  auto names = namesToReplace(folder);
  if (!concerns(names, real)) return;
  const auto lock = lockOf(folder / names->front());
  names = namesToReplace(folder);
  if (names) carry(folder, *names);
}

bool isBeingReplaced(const fs::path& file) {
  const fs::path real = realPathOf(file);
  return concerns(namesToReplace(real.parent_path()), real);
}

}  // namespace zelkor
