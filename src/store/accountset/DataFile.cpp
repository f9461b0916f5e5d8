#include "store/accountset/DataFile.h"

#include <unistd.h>

#include <filesystem>
#include <string_view>

#include "base/RuntimeError.h"
#include "base/SystemError.h"
#include "store/accountset/BooksRevision.h"
#include "store/accountset/Replacement.h"
#include "store/engine/postgresql/PostgreSqlEngine.h"
#include "store/engine/postgresql/ServerJobLock.h"
#include "store/engine/sqlite/OpenSqliteFile.h"
#include "store/engine/sqlite/SqliteEngine.h"
#include "store/engine/sqlite/SqliteJobLock.h"

namespace zelkor {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSqliteMark{"SQLite format 3\0", 16};
constexpr std::string_view kJetMark = "Standard Jet DB";
constexpr std::size_t kJetMarkOffset = 4;

std::string beginningOf(const std::string& path) {
  constexpr std::size_t kLongest = 4096;  // a text file may begin with comments
  return beginningOfFile(path, kLongest);
}

// A privileged user may write whatever the permissions say; a file without any write bit is meant to be kept.
bool writable(const fs::path& path) {
  using fs::perms;
  const perms bits = fs::status(path).permissions();
  const bool anyWriteBit =
      (bits & (perms::owner_write | perms::group_write | perms::others_write)) != perms::none;
  return anyWriteBit && ::access(path.c_str(), W_OK) == 0;
}

void requirePath(const std::string& path) {
  if (path.empty())
    throw RuntimeError(ErrorNumber::FileNotFound, "找不到文件 ''：参数中没有给出数据文件或系统文件的路径。");
}

void checkIsWritable(const std::string& path) {
  if (!writable(path))
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "文件 '" + path + "' 是只读的或没有写权限，无法打开。");
}

void checkFormat(const std::string& path) {
  const std::string beginning = beginningOf(path);
  if (beginning.starts_with(kSqliteMark)) return;
  if (beginning.size() > kJetMarkOffset &&
      std::string_view(beginning).substr(kJetMarkOffset).starts_with(kJetMark))
    throw RuntimeError(
        ErrorNumber::UnrecognizedFormat,
        "'" + path +
            "' 是 Jet 数据库文件，不能直接打开；请先用 zelkorctl import 把它导入为本系统的数据文件。");
  throw RuntimeError(ErrorNumber::UnrecognizedFormat, "不可识别的数据库格式 '" + path + "'。");
}

std::unique_ptr<Engine> engineOf(const std::string& path, SqliteEngine::Access access) {
  const bool alone = access == SqliteEngine::Access::Alone;
  if (ServerFile::isServerFile(beginningOf(path))) {
    using Among = PostgreSqlEngine::Among;
    return std::make_unique<PostgreSqlEngine>(ServerFile::read(path), alone ? Among::Nobody : Among::Others);
  }
  if (access != SqliteEngine::Access::Read) checkIsWritable(path);
  checkFormat(path);
  return std::make_unique<SqliteEngine>(path, access);
}

std::unique_ptr<Engine> opened(const std::string& path, SqliteEngine::Access access) {
  constexpr int kMostAttempts = 3;
  requirePath(path);
  for (int attempt = 1;; ++attempt) {
    finishReplacement(path);
    requireReadable(path);
    std::unique_ptr<Engine> engine = engineOf(path, access);
    if (access != SqliteEngine::Access::Alone) requireKnownRevision(*engine, path);
    // Whoever has read from a file keeps others from replacing it. It can have happened before that.
    const bool last = attempt == kMostAttempts;
    try {
      engine->requireFile();
      if (last || !isBeingReplaced(path)) return engine;
    } catch (const RuntimeError& error) {
      if (last || !error.is(ErrorNumber::FileNotFound)) throw;
    }
  }
}

}  // namespace

void requireReadable(const fs::path& path) {
  std::error_code failure;
  const fs::file_status status = fs::status(path, failure);
  const std::string name = "'" + path.string() + "'";
  if (status.type() == fs::file_type::not_found)
    throw RuntimeError(ErrorNumber::FileNotFound, "找不到文件 " + name + "。");
  if (failure == std::errc::filename_too_long)
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly, "文件 " + name + " 的路径太长，无法打开。");
  if (status.type() == fs::file_type::none)
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly,
                       "无法打开文件 " + name + "：" + systemReason(failure.value()));
  if (status.type() != fs::file_type::regular)
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly, name + " 不是数据库文件，无法打开。");
  if (::access(path.c_str(), R_OK) != 0)
    throw RuntimeError(ErrorNumber::CannotOpenReadOnly, "文件 " + name + " 没有读权限，无法打开。");
}

std::unique_ptr<Engine> openDataFile(const std::string& path) {
  return opened(path, SqliteEngine::Access::Write);
}

std::unique_ptr<Engine> openDataFileForReading(const std::string& path) {
  return opened(path, SqliteEngine::Access::Read);
}

std::unique_ptr<Engine> openDataFileAlone(const std::string& path) {
  return opened(path, SqliteEngine::Access::Alone);
}

JobLockAttempt lockForJob(const std::string& path, const JobNote& note) {
  if (!ServerFile::isServerFile(beginningOf(path))) return lockFileForJob(path, note);
  const ServerFile place = ServerFile::read(path);
  return lockSchemaForJob(std::make_shared<PostgreSqlLink>(place.conninfo), place.schema, note);
}

bool namesServer(const std::string& path) {
  return ServerFile::isServerFile(beginningOf(path));
}

const dialect::EngineWords& engineWords(std::string_view name) {
  return name == postgreSqlWords().name() ? postgreSqlWords() : sqliteWords();
}

}  // namespace zelkor
