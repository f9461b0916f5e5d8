#pragma once

#include "base/RuntimeError.h"
#include "store/accountset/DbEngine.h"

namespace zelkor {

inline void rollBackIfOpen(Workspace& workspace) {
  if (workspace.inTransaction()) workspace.Rollback();
}

/// A transaction that is undone unless it is committed.
class OneTransaction {
 public:
  explicit OneTransaction(Workspace& workspace) : workspace_(workspace) { workspace_.BeginTrans(); }
  OneTransaction(const OneTransaction&) = delete;
  OneTransaction& operator=(const OneTransaction&) = delete;
  ~OneTransaction() {
    try {
      rollBackIfOpen(workspace_);
    } catch (const RuntimeError&) {
      // the error that led here is the one to report
    }
  }
  void commit() { workspace_.CommitTrans(); }

 private:
  Workspace& workspace_;
};

}  // namespace zelkor
