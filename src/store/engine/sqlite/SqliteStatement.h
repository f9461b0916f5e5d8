#pragma once

#include "store/engine/sqlite/SqliteEngine.h"

struct sqlite3_value;

namespace zelkor {

/// A prepared statement of SQLite.
class SqliteStatement final : public EngineStatement {
 public:
  SqliteStatement(sqlite3* connection, std::string_view sql);

  void bindNull(int parameter) override;
  void bindInteger(int parameter, std::int64_t value) override;
  void bindReal(int parameter, double value) override;
  void bindText(int parameter, std::string_view value) override;
  void bindLastingText(int parameter, std::string_view value) override;
  void bindBytes(int parameter, std::string_view value) override;
  bool step() override;
  void reset() override;
  CellKind kind(int column) const override;
  std::int64_t integer(int column) const override;
  double real(int column) const override;
  std::string_view text(int column) const override;
  std::string bytes(int column) const override { return std::string(bytesInPlace(column)); }
  /// The same, valid until the next step or reset.
  std::string_view bytesInPlace(int column) const;

 private:
  static constexpr int kNone = -1;

  sqlite3_value* cell(int column) const;

  SqliteStatementHandle handle_;
  int parameters_ = 0;
  // The cell that was asked for last is mostly asked once more, for its content.
  mutable sqlite3_value* cell_ = nullptr;
  mutable int cellColumn_ = kNone;
};

}  // namespace zelkor
