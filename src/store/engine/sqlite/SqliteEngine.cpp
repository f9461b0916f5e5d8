#include "store/engine/sqlite/SqliteEngine.h"

#include <sqlite3.h>

#include "base/RuntimeError.h"
#include "store/engine/sqlite/OpenSqliteFile.h"
#include "store/engine/sqlite/SqliteErrors.h"
#include "store/engine/sqlite/SqliteFunctions.h"
#include "store/engine/sqlite/SqliteJobLock.h"
#include "store/engine/sqlite/SqliteStatement.h"

namespace zelkor {
namespace {

// Long enough for any other process's gathered statements, short enough that a person is told.
constexpr int kBusyTimeoutMilliseconds = 10'000;
// Nobody at a screen is quicker than this.
constexpr std::chrono::milliseconds kTimeBetweenLooks{100};

}  // namespace

void SqliteCloser::operator()(sqlite3* handle) const {
  sqlite3_close_v2(handle);
}

void SqliteFinalizer::operator()(sqlite3_stmt* handle) const {
  sqlite3_finalize(handle);
}

SqliteEngine::SqliteEngine(const std::string& path, Access access)
    : handle_(openSqliteFile(path, access)), path_(path), alone_(access == Access::Alone) {
  sqlite3_extended_result_codes(handle_.get(), 1);
  sqlite3_busy_timeout(handle_.get(), kBusyTimeoutMilliseconds);
  registerSqliteFunctions(handle_.get());
  if (access == Access::Read) {
    run("PRAGMA query_only = 1; PRAGMA cache_size=-65536");
    return;
  }
  if (alone_) {
    // Without a log there is nothing that could be taken for that of a file which takes this one's place.
    sqlite3_busy_timeout(handle_.get(), 0);
    run("PRAGMA locking_mode = EXCLUSIVE; PRAGMA journal_mode = DELETE; BEGIN EXCLUSIVE; COMMIT");
    return;
  }
  // A commit in write-ahead mode survives the end of the process without being forced to disk. It is forced
  // there by makeDurable and when the log is copied back, so that a long job does not wait at every commit.
  run("PRAGMA journal_mode=WAL; PRAGMA synchronous=NORMAL; PRAGMA cache_size=-65536; "
      "PRAGMA wal_autocheckpoint=32000");
  begin_ = prepare("BEGIN IMMEDIATE");
  commit_ = prepare("COMMIT");
}

// Where the file is still in its place it gets its log back: without one nobody sees who has it open.
SqliteEngine::~SqliteEngine() {
  if (alone_ && !hasMoved())
    sqlite3_exec(handle_.get(), "PRAGMA journal_mode = WAL", nullptr, nullptr, nullptr);
}

std::unique_ptr<EngineStatement> SqliteEngine::prepare(std::string_view sql) {
  return std::make_unique<SqliteStatement>(handle_.get(), sql);
}

void SqliteEngine::run(const std::string& sql) {
  const int code = sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) raiseSqliteError(handle_.get(), code);
}

bool SqliteEngine::hasMoved() const {
  int moved = 0;
  return sqlite3_file_control(handle_.get(), nullptr, SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK &&
         moved != 0;
}

/// The system lets an open file be removed or replaced, and takes what is written to it all the same: it
/// would be lost without a word.
void SqliteEngine::lookForFile() {
  nextLook_ = CoarseClock::now() + kTimeBetweenLooks;
  if (hasMoved()) throw RuntimeError(ErrorNumber::FileNotFound, "找不到文件 '" + path_ + "'。");
}

void SqliteEngine::requireFile() {
  if (CoarseClock::now() >= nextLook_) lookForFile();
}

void SqliteEngine::begin() {
  lookForFile();
  begin_->reset();
  begin_->step();
  begin_->reset();
}

void SqliteEngine::commit() {
  lookForFile();
  commit_->reset();
  commit_->step();
  commit_->reset();
  unforced_ = true;
}

// The engine offers this with its next commit only, and only with one that writes something. The log's own
// handle is asked instead. Without a log every commit has been forced.
void SqliteEngine::makeDurable() {
  if (inTransaction() || !unforced_) return;
  sqlite3_file* log = nullptr;
  sqlite3_file_control(handle_.get(), "main", SQLITE_FCNTL_JOURNAL_POINTER, static_cast<void*>(&log));
  if (log != nullptr && log->pMethods != nullptr) {
    const int code = log->pMethods->xSync(log, SQLITE_SYNC_NORMAL);
    if (code != SQLITE_OK)
      throw RuntimeError(ErrorNumber::DeviceIo, std::string("设备 I/O 错误：") + sqlite3_errstr(code));
  }
  unforced_ = false;
}

void SqliteEngine::rollback() {
  run("ROLLBACK");
}

bool SqliteEngine::inTransaction() const {
  return sqlite3_get_autocommit(handle_.get()) == 0;
}

JobLockAttempt SqliteEngine::lockForJob(const JobNote& note) {
  return lockFileForJob(path_, note);
}

std::optional<JobNote> SqliteEngine::jobHolder() {
  return holderOfFileLock(path_);
}

long SqliteEngine::changes() const {
  return static_cast<long>(sqlite3_changes64(handle_.get()));
}

std::int64_t SqliteEngine::lastRowKey() const {
  return sqlite3_last_insert_rowid(handle_.get());
}

}  // namespace zelkor
