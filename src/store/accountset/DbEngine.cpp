#include "store/accountset/DbEngine.h"

#include <exception>
#include <filesystem>
#include <iostream>
#include <utility>

#include "base/RuntimeError.h"
#include "store/accountset/BooksRevision.h"
#include "store/accountset/DataFile.h"
#include "store/engine/Connection.h"

namespace zelkor {
namespace {

// One file reached by two paths is one file.
std::string identityOf(const std::string& path) {
  std::error_code failure;
  const std::filesystem::path canonical = std::filesystem::weakly_canonical(path, failure);
  return failure ? path : canonical.string();
}

}  // namespace

// What fails for one connection is done for the others all the same; the first failure is reported.
template <typename Action>
void Workspace::forEachConnection(Action action) {
  std::exception_ptr failure;
  for (auto entry = connections_.begin(); entry != connections_.end();) {
    const std::shared_ptr<Connection> connection = entry->second.lock();
    try {
      if (connection) action(*connection);
    } catch (const RuntimeError&) {
      if (!failure) failure = std::current_exception();
    }
    entry = connection ? std::next(entry) : connections_.erase(entry);
  }
  if (failure) std::rethrow_exception(failure);
}

void Workspace::BeginTrans() {
  if (inTransaction_) return;
  forEachConnection([](Connection& connection) { connection.writeOut(); });
  forEachConnection([](Connection& connection) { connection.gathering().beginWorkspaceTransaction(); });
  inTransaction_ = true;
}

// Every connection leaves the transaction before the first of them can fail.
void Workspace::CommitTrans() {
  leaveTransaction();
  forEachConnection([](Connection& connection) { connection.gathering().endWorkspaceTransaction(); });
  forEachConnection([](Connection& connection) { connection.writeOut(); });
}

void Workspace::Rollback() {
  leaveTransaction();
  forEachConnection([](Connection& connection) { connection.rollbackWorkspaceTransaction(); });
}

void Workspace::leaveTransaction() {
  if (!inTransaction_) throw RuntimeError(ErrorNumber::NoTransaction);
  inTransaction_ = false;
}

DbEngine::DbEngine(std::ostream& notices) : notices_(notices) {}
DbEngine::DbEngine() : DbEngine(std::cerr) {}
DbEngine::~DbEngine() = default;

Database DbEngine::OpenDatabase(const std::string& path) {
  if (ended_) throw EndProgram{*ended_};
  std::weak_ptr<Connection>& known = workspace_.connections_[identityOf(path)];
  std::shared_ptr<Connection> connection = known.lock();
  if (!connection) known = connection = connect(path);
  return Database(std::move(connection));
}

std::shared_ptr<Connection> DbEngine::connect(const std::string& path) {
  std::unique_ptr<Engine> engine = openDataFile(path);
  std::string advice = renewalAdvice(*engine, path);
  if (!advice.empty() && !std::exchange(noticed_, true)) notices_ << renewalNotice(advice);
  auto connection = std::make_shared<Connection>(std::move(engine), std::move(advice));
  if (workspace_.inTransaction_) connection->gathering().beginWorkspaceTransaction();
  return connection;
}

void DbEngine::setEnded(std::optional<int> status) {
  ended_ = status;
  workspace_.forEachConnection([status](Connection& connection) { connection.setEnded(status); });
}

void DbEngine::flush() {
  workspace_.forEachConnection([](Connection& connection) { connection.flush(); });
}

}  // namespace zelkor
