#pragma once

#include <memory>
#include <string>

#include "store/engine/Connection.h"
#include "store/engine/Database.h"
#include "store/engine/StoredTables.h"

namespace zelkor {

/// A data file of an account set in one state, which stays the same as long as the object lives.
class ReadBooks {
 public:
  explicit ReadBooks(const std::string& path);
  /// Within the transaction that whoever opened the connection has begun.
  explicit ReadBooks(std::shared_ptr<Connection> connection);
  ReadBooks(const ReadBooks&) = delete;
  ReadBooks& operator=(const ReadBooks&) = delete;
  ~ReadBooks();

  Database& data() { return data_; }
  Engine& engine() { return connection_->engine(); }
  StoredTables& tables() { return *tables_; }

 private:
  std::shared_ptr<Connection> connection_;
  std::unique_ptr<StoredTables> tables_;
  Database data_;
  bool ownTransaction_ = false;
};

}  // namespace zelkor
