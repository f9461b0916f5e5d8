#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor::dialect {

enum class ColumnType : std::uint8_t {
  Unknown,
  Text,
  Memo,
  Short,
  Long,
  Counter,
  Double,
  Currency,
  Date,
  Boolean,
  Binary
};

struct ColumnInfo {
  std::string name;  // in the table's own spelling
  ColumnType type = ColumnType::Unknown;
  int size = 0;  // characters of a Text column
  /// The table keeps indexes by which this text column can be ordered and compared as a whole number.
  bool orderedAsNumber = false;
};

struct TableInfo {
  std::string name;  // in the table's own spelling
  std::vector<ColumnInfo> columns;

  /// Column of that name in any case, or nullptr.
  const ColumnInfo* find(std::string_view column) const;
};

/// What the translator has to know of the tables of one database.
class SchemaView {
 public:
  virtual ~SchemaView() = default;
  /// Table of that name in any case, or nullptr.
  virtual const TableInfo* table(std::string_view name) const = 0;
};

/// Identifiers compare without regard to case (ASCII letters only).
bool sameName(std::string_view a, std::string_view b);

}  // namespace zelkor::dialect
