#pragma once

#include "store/Recordset.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor {

class Connection;

/// An open data file. A handle: all databases that a process opens on one file share one connection.
class Database {
 public:
  Database() = default;  // closed
  explicit Database(std::shared_ptr<Connection> connection) : connection_(std::move(connection)) {}

  bool isOpen() const { return connection_ != nullptr; }
  /// Runs one action statement of the dialect. A statement that meets no row is no failure.
  void Execute(std::string_view sql);
  /// Runs a query of the dialect, or opens the table whose name is given.
  Recordset OpenRecordset(std::string_view sql);
  /// Rows touched by this object's last Execute.
  long RecordsAffected() const { return recordsAffected_; }
  /// Names of the tables, in their own spelling.
  std::vector<std::string> TableDefs() const;
  bool HasTable(std::string_view name) const;
  void Close() { connection_.reset(); }

 private:
  Connection& connection() const;
  std::shared_ptr<Connection> connection_;
  long recordsAffected_ = 0;
};

}  // namespace zelkor
