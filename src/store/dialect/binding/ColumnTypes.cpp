#include "store/dialect/binding/ColumnTypes.h"

namespace zelkor::dialect {
namespace {

constexpr int longestText = 255;

}  // namespace

std::string typeWord(const ColumnInfo& column) {
  switch (column.type) {
    case ColumnType::Memo:
      return "LONGTEXT";
    case ColumnType::Short:
      return "SMALLINT";
    case ColumnType::Long:
      return "INTEGER";
    case ColumnType::Counter:
      return "COUNTER";
    case ColumnType::Double:
      return "DOUBLE";
    case ColumnType::Currency:
      return "CURRENCY";
    case ColumnType::Date:
      return "DATETIME";
    case ColumnType::Boolean:
      return "BOOLEAN";
    case ColumnType::Binary:
      return "BLOB";
    default:
      return "TEXT(" + std::to_string(column.size > 0 ? column.size : longestText) + ")";
  }
}

}  // namespace zelkor::dialect
