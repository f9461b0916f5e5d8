#include "store/accountset/NewFile.h"

#include <cerrno>
#include <system_error>

#include "base/RuntimeError.h"
#include "base/SystemError.h"

namespace zelkor {

namespace fs = std::filesystem;

void requireAbsent(const fs::path& file) {
  std::error_code unreadable;
  if (fs::exists(file, unreadable))
    throw RuntimeError(ErrorNumber::DatabaseAlreadyExists,
                       "文件 '" + file.string() + "' 已存在，不能在此处建立账套。");
}

Unfinished::~Unfinished() {
  std::error_code ignored;
  if (!path_.empty()) fs::remove(path_, ignored);
}

NewFile::NewFile(fs::path file, const FileAccess& access)
    : path_(std::move(file)), temporary_(fs::path(path_).concat(kTemporaryEnding)) {
  requireAbsent(path_);
  removeTemporary();
  if (!createFile(temporary_, access)) {
    const int failure = errno;
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "无法建立文件 '" + path_.string() + "'：" + systemReason(failure));
  }
}

NewFile::~NewFile() {
  removeTemporary();
}

void NewFile::giveName() {
  requireAbsent(path_);
  std::error_code failure;
  if (forceToDisk(temporary_))
    fs::rename(temporary_, path_, failure);
  else
    failure.assign(errno, std::generic_category());
  if (!failure && !forceToDisk(folderOf(path_))) failure.assign(errno, std::generic_category());
  if (failure)
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "无法写入文件 '" + path_.string() + "'：" + systemReason(failure.value()));
}

// An SQLite file has its log and the log's index beside it while it is open.
void NewFile::removeTemporary() {
  std::error_code ignored;
  for (const char* ending : {"-journal", "-wal", "-shm", ""})
    fs::remove(fs::path(temporary_).concat(ending), ignored);
}

void giveNames(NewFile& data, NewFile& system) {
  data.giveName();
  Unfinished half(data.path());
  system.giveName();
  half.keep();
}

}  // namespace zelkor
