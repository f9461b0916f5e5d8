#pragma once

#include <chrono>
#include <optional>

#include "base/CoarseClock.h"
#include "base/RuntimeError.h"
#include "store/engine/Engine.h"

namespace zelkor {

/// Decides when what a connection has written is committed, and when it is forced to disk.
///
/// Stand-alone statements are gathered into one engine transaction for at most 50 ms, as delayed writes;
/// inside a workspace transaction everything waits for its commit. No lock is taken before the first write.
/// An engine whose writers do not shut each other out keeps each stand-alone statement by itself. Commits are
/// not forced to disk one by one; a flush forces them together.
///
/// An engine can give up a whole transaction for one failure (a full disk, a broken connection). Whoever
/// wrote before has been told that it was done, so every further write fails, and the next flush, which
/// reports it.
class WriteGathering {
 public:
  explicit WriteGathering(Engine& engine) : engine_(engine) {}

  /// Before a statement writes: takes the write lock unless it is held.
  void beforeWrite();
  /// Before several engine statements that are one: as beforeWrite, on every engine inside a transaction.
  void beforeTableChange();
  /// After a statement has written.
  void afterWrite();
  /// After a write has failed: what is lost with it is lost for this reason.
  void afterFailure(const RuntimeError& reason);
  /// After any statement: commits the gathered ones when they are old enough.
  void afterStatement();
  /// Commits the gathered stand-alone statements: others see them, and a kill does not take them. A workspace
  /// transaction goes on.
  void writeOut();
  /// The same, and has the engine force to disk what was written since the last time: whoever is told that
  /// something is saved is told after this.
  void flush();

  /// Until as many releases as holds, statements stay gathered however long it takes: a kill leaves all of
  /// them or none. A failure still undoes its own statement only.
  void hold() { ++holds_; }
  void release() { --holds_; }

  void beginWorkspaceTransaction();
  /// What it has written is then gathered like any other write, to be written out next.
  void endWorkspaceTransaction() { workspaceTransaction_ = false; }
  void rollbackWorkspaceTransaction();

 private:
  static constexpr std::chrono::milliseconds longestWait{50};

  void begin();
  void commit();
  /// Fails if the engine no longer has what statements have written.
  void requireNothingLost() const;
  void forgetLoss();

  Engine& engine_;
  CoarseClock::time_point since_;
  bool unsaved_ = false;  // the transaction that was begun last has written and has not been committed
  std::optional<RuntimeError> reason_;
  bool workspaceTransaction_ = false;
  int holds_ = 0;
};

}  // namespace zelkor
