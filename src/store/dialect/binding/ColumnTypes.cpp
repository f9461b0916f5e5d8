#include "store/dialect/binding/ColumnTypes.h"

namespace zelkor::dialect {
namespace {

constexpr int kLongestText = 255;

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
      return "TEXT(" + std::to_string(column.size > 0 ? column.size : kLongestText) + ")";
  }
}

std::string typeName(ColumnType type) {
  switch (type) {
    case ColumnType::Text:
      return "文本";
    case ColumnType::Memo:
      return "备注";
    case ColumnType::Short:
      return "整型";
    case ColumnType::Long:
      return "长整型";
    case ColumnType::Counter:
      return "自动编号";
    case ColumnType::Double:
      return "双精度数";
    case ColumnType::Currency:
      return "货币";
    case ColumnType::Date:
      return "日期";
    case ColumnType::Boolean:
      return "是/否";
    case ColumnType::Binary:
      return "二进制";
    default:
      return "未知";
  }
}

}  // namespace zelkor::dialect
