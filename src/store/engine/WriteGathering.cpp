#include "store/engine/WriteGathering.h"

#include "base/RuntimeError.h"

namespace zelkor {

void WriteGathering::beforeWrite() {
  if (engine_.gathersWrites() || workspaceTransaction_ || holds_ > 0) return begin();
  afterStatement();
}

void WriteGathering::beforeTableChange() {
  begin();
}

void WriteGathering::begin() {
  afterStatement();  // an earlier statement may have failed before it could look at the time
  if (engine_.inTransaction()) return;
  engine_.begin();
  since_ = Clock::now();
}

void WriteGathering::afterStatement() {
  if (workspaceTransaction_ || holds_ > 0 || !engine_.inTransaction()) return;
  if (!engine_.gathersWrites() || Clock::now() - since_ >= longestWait) commit();
}

void WriteGathering::writeOut() {
  if (!workspaceTransaction_ && engine_.inTransaction()) commit();
}

void WriteGathering::flush() {
  writeOut();
  engine_.makeDurable();
}

void WriteGathering::commit() {
  try {
    engine_.commit();
  } catch (const RuntimeError&) {
    if (engine_.inTransaction()) engine_.rollback();
    throw;
  }
}

void WriteGathering::beginWorkspaceTransaction() {
  writeOut();
  workspaceTransaction_ = true;
}

void WriteGathering::rollbackWorkspaceTransaction() {
  workspaceTransaction_ = false;
  if (engine_.inTransaction()) engine_.rollback();
}

}  // namespace zelkor
