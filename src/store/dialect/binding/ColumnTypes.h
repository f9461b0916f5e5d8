#pragma once

#include <string>

#include "store/dialect/binding/Schema.h"

namespace zelkor::dialect {

/// A column's type in the dialect's words, as "TEXT(20)" or "COUNTER".
std::string typeWord(const ColumnInfo& column);

/// The type in the words of messages.
std::string typeName(ColumnType type);

}  // namespace zelkor::dialect
