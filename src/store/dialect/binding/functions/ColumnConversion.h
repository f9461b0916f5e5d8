#pragma once

#include <optional>

#include "base/Value.h"
#include "store/dialect/binding/Schema.h"

namespace zelkor::dialect {

/// `value` as a column of that type stores it: numbers into whole columns round half to even, text is read as
/// the engine reads it, Null into a boolean column is False. nullopt when it cannot be converted or
/// overflows.
std::optional<Value> convertForColumn(const Value& value, ColumnType type);

}  // namespace zelkor::dialect
