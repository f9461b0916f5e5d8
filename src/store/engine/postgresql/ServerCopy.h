#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Currency.h"
#include "store/dialect/binding/Schema.h"
#include "store/engine/postgresql/PostgreSqlLink.h"

namespace zelkor {

/// Loads rows into a table that the same transaction has created: cell by cell in the order of its columns.
/// They go out in blocks.
class ServerCopy {
 public:
  ServerCopy(PostgreSqlLink& server, const dialect::TableInfo& table);
  ServerCopy(const ServerCopy&) = delete;
  ServerCopy& operator=(const ServerCopy&) = delete;
  ~ServerCopy();

  void null() { cell() += "\\N"; }
  void integer(std::int64_t value);
  void real(double value);
  void amount(Currency value);
  /// A server keeps no character 0; it must not be in the text.
  void text(std::string_view value);
  void bytes(std::string_view value);
  void endRow();
  /// Gives the number of rows that were stored.
  std::int64_t finish();

 private:
  std::string& cell();

  PostgreSqlLink& server_;
  std::string block_;
  bool rowBegun_ = false;
  bool open_ = true;
};

}  // namespace zelkor
