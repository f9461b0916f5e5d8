#include "audit/ReadBooks.h"

#include "base/RuntimeError.h"
#include "store/accountset/DataFile.h"

namespace zelkor {

ReadBooks::ReadBooks(std::shared_ptr<Connection> connection)
    : connection_(std::move(connection)), tables_(connection_->engine().storedTables()), data_(connection_) {}

ReadBooks::ReadBooks(const std::string& path)
    : ReadBooks(std::make_shared<Connection>(openDataFileForReading(path))) {
  // Statements are not to end the transaction that begins here.
  connection_->gathering().beginWorkspaceTransaction();
  engine().run(tables_->beginReading());
  ownTransaction_ = true;
}

ReadBooks::~ReadBooks() {
  if (!ownTransaction_) return;
  try {
    connection_->rollbackWorkspaceTransaction();
  } catch (const RuntimeError&) {
    // A connection that broke has been told of by then; there is nothing to keep.
  }
}

}  // namespace zelkor
