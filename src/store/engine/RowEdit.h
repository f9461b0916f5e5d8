#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "base/Value.h"
#include "store/dialect/Translation.h"
#include "store/engine/Engine.h"

namespace zelkor {

class Connection;

/// The fields set between AddNew or Edit and Update, and their writing to the one base table they belong to.
class RowEdit {
 public:
  /// What is edited: nothing yet for a new row.
  struct Target {
    std::span<const dialect::QuerySource> sources;
    std::span<const std::optional<std::int64_t>> keys;  // of the current row; empty for a new row
  };

  static RowEdit adding() { return RowEdit(true); }
  static RowEdit editing() { return RowEdit(false); }

  bool isNewRow() const { return newRow_; }
  /// Converts to the column's type; 3421 when the value does not convert, 3164 for a column of no base table.
  void set(std::size_t column, const dialect::OutputColumn& info, const Value& value);
  /// The value set for this column, if any.
  const Value* find(std::size_t column) const;
  /// Writes the row; gives the key of a new row.
  std::optional<std::int64_t> write(Connection& connection, const Target& target) const;
  /// The statement that would write it, if it is a new row, ready to be sent ahead of its answer.
  std::unique_ptr<EngineStatement> ahead(Connection& connection, const Target& target) const;

 private:
  struct Field {
    std::size_t source = 0;
    std::string name;
    dialect::ColumnType type = dialect::ColumnType::Unknown;
    Value value;
  };

  explicit RowEdit(bool newRow) : newRow_(newRow) {}
  std::string insertion(Connection& connection, const Target& target) const;
  void bindFields(EngineStatement& statement) const;
  std::int64_t insert(Connection& connection, const Target& target) const;
  void update(Connection& connection, const std::string& table, std::int64_t key) const;
  std::size_t editedSource() const;

  bool newRow_;
  std::map<std::size_t, Field> fields_;  // by output column
};

/// Deletes the row of that key.
void deleteRow(Connection& connection, const std::string& table, std::int64_t key);

}  // namespace zelkor
