#include "store/dialect/binding/Types.h"

#include <algorithm>
#include <array>

namespace zelkor::dialect {

using bound::Family;
using bound::Node;
using bound::ValueType;

Family familyOf(ColumnType type) {
  switch (type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return Family::Text;
    case ColumnType::Short:
    case ColumnType::Long:
    case ColumnType::Counter:
    case ColumnType::Double:
    case ColumnType::Currency:
      return Family::Number;
    case ColumnType::Date:
      return Family::Date;
    case ColumnType::Boolean:
      return Family::Boolean;
    case ColumnType::Binary:
      return Family::Binary;
    case ColumnType::Unknown:
      break;
  }
  return Family::Unknown;
}

ValueType valueType(ColumnType type, int size) {
  return {type, size, familyOf(type)};
}

ValueType valueType(const ColumnInfo& column) {
  return valueType(column.type, column.size);
}

ValueType someNumber() {
  return {ColumnType::Unknown, 0, Family::Number};
}

bool isText(const Node& node) {
  return node.type.family == Family::Text;
}

bool isNumber(const Node& node) {
  return node.type.family == Family::Number || node.type.family == Family::Boolean;
}

bool isDate(const Node& node) {
  return node.type.family == Family::Date;
}

namespace {

// The rank of a number's type: the result of arithmetic takes the higher one. 0: not known.
int rank(ColumnType type) {
  switch (type) {
    case ColumnType::Boolean:
    case ColumnType::Short:
      return 1;
    case ColumnType::Long:
    case ColumnType::Counter:
      return 2;
    case ColumnType::Currency:
      return 3;
    case ColumnType::Double:
      return 4;
    default:
      return 0;
  }
}

}  // namespace

ValueType arithmeticType(const ValueType& left, const ValueType& right) {
  const int a = rank(left.type);
  const int b = rank(right.type);
  if (a == 4 || b == 4) return valueType(ColumnType::Double);
  if (a == 0 || b == 0) return someNumber();
  switch (std::max(a, b)) {
    case 3:
      return valueType(ColumnType::Currency);
    default:
      return valueType(ColumnType::Long);
  }
}

bool fits(const ValueType& from, ColumnType to) {
  if (from.type == to && to != ColumnType::Boolean && to != ColumnType::Unknown) return true;
  const int a = rank(from.type);
  switch (to) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return from.family == Family::Text;
    case ColumnType::Short:
      return a == 1;
    case ColumnType::Long:
    case ColumnType::Counter:
    case ColumnType::Currency:
      return a == 1 || a == 2;
    case ColumnType::Double:
      return from.family == Family::Number || from.family == Family::Boolean;
    case ColumnType::Unknown:
    case ColumnType::Binary:
      return true;
    default:
      return false;
  }
}

std::optional<ColumnType> columnTypeOf(std::string_view typeName) {
  struct Name {
    std::string_view name;
    ColumnType type;
  };
  using enum ColumnType;
  static constexpr std::array kNames{
      Name{"TEXT", Text},         Name{"CHAR", Text},
      Name{"VARCHAR", Text},      Name{"STRING", Text},
      Name{"ALPHANUMERIC", Text}, Name{"CHARACTER", Text},
      Name{"MEMO", Memo},         Name{"LONGTEXT", Memo},
      Name{"LONGCHAR", Memo},     Name{"NOTE", Memo},
      Name{"SHORT", Short},       Name{"SMALLINT", Short},
      Name{"INTEGER2", Short},    Name{"BYTE", Short},
      Name{"LONG", Long},         Name{"INT", Long},
      Name{"INTEGER", Long},      Name{"INTEGER4", Long},
      Name{"COUNTER", Counter},   Name{"AUTOINCREMENT", Counter},
      Name{"DOUBLE", Double},     Name{"FLOAT", Double},
      Name{"FLOAT8", Double},     Name{"NUMBER", Double},
      Name{"NUMERIC", Double},    Name{"DECIMAL", Double},
      Name{"SINGLE", Double},     Name{"REAL", Double},
      Name{"FLOAT4", Double},     Name{"CURRENCY", Currency},
      Name{"MONEY", Currency},    Name{"DATE", Date},
      Name{"DATETIME", Date},     Name{"TIME", Date},
      Name{"TIMESTAMP", Date},    Name{"BIT", Boolean},
      Name{"YESNO", Boolean},     Name{"LOGICAL", Boolean},
      Name{"BOOLEAN", Boolean},   Name{"BINARY", Binary},
      Name{"VARBINARY", Binary},  Name{"OLEOBJECT", Binary},
      Name{"LONGBINARY", Binary}, Name{"IMAGE", Binary},
  };
  for (const Name& candidate : kNames)
    if (sameName(candidate.name, typeName)) return candidate.type;
  return std::nullopt;
}

}  // namespace zelkor::dialect
