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
  requireNothingLost();
  if (engine_.inTransaction()) return;
  engine_.begin();
  since_ = CoarseClock::now();
}

void WriteGathering::afterWrite() {
  unsaved_ = engine_.inTransaction();
  afterStatement();
}

void WriteGathering::afterFailure(const RuntimeError& reason) {
  if (unsaved_ && !engine_.inTransaction() && !reason_) reason_ = reason;
}

void WriteGathering::requireNothingLost() const {
  if (!unsaved_ || engine_.inTransaction()) return;
  constexpr const char* kLost = "先前写入而尚未保存的内容已被撤销。";
  if (!reason_) throw RuntimeError(ErrorNumber::DeviceIo, kLost);
  throw RuntimeError(static_cast<ErrorNumber>(reason_->number()),
                     kLost + std::string("（") + reason_->what() + "）");
}

void WriteGathering::forgetLoss() {
  unsaved_ = false;
  reason_.reset();
}

void WriteGathering::afterStatement() {
  if (workspaceTransaction_ || holds_ > 0 || !engine_.inTransaction()) return;
  if (!engine_.gathersWrites() || CoarseClock::now() - since_ >= longestWait) commit();
}

void WriteGathering::writeOut() {
  requireNothingLost();
  if (!workspaceTransaction_ && engine_.inTransaction()) commit();
}

void WriteGathering::flush() {
  try {
    writeOut();
  } catch (const RuntimeError&) {
    if (!workspaceTransaction_) forgetLoss();
    throw;
  }
  engine_.makeDurable();
}

void WriteGathering::commit() {
  try {
    engine_.commit();
    unsaved_ = false;
  } catch (const RuntimeError& reason) {
    if (engine_.inTransaction()) engine_.rollback();
    afterFailure(reason);
    throw;
  }
}

void WriteGathering::beginWorkspaceTransaction() {
  writeOut();
  workspaceTransaction_ = true;
}

void WriteGathering::rollbackWorkspaceTransaction() {
  workspaceTransaction_ = false;
  forgetLoss();
  if (engine_.inTransaction()) engine_.rollback();
}

}  // namespace zelkor
