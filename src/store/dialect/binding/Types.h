#pragma once

#include <optional>
#include <string_view>

#include "store/dialect/binding/BindTree.h"
#include "store/dialect/binding/Schema.h"

namespace zelkor::dialect {

bound::Family familyOf(ColumnType type);
bound::ValueType valueType(ColumnType type, int size = 0);
bound::ValueType valueType(const ColumnInfo& column);
/// A number of which only the value shows whether it is whole.
bound::ValueType someNumber();

bool isText(const bound::Node& node);
bool isNumber(const bound::Node& node);  // booleans count as numbers
bool isDate(const bound::Node& node);

/// Type of a sum, difference or product of two numbers.
bound::ValueType arithmeticType(const bound::ValueType& left, const bound::ValueType& right);

/// Whether every value of type `from` may be stored into a column of type `to` as it is.
bool fits(const bound::ValueType& from, ColumnType to);

/// The column type of a definition's type name (TEXT, LONG, COUNTER, ...); nullopt when there is none.
std::optional<ColumnType> columnTypeOf(std::string_view typeName);

}  // namespace zelkor::dialect
