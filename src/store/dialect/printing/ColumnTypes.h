#pragma once

#include <string>
#include <string_view>

#include "store/dialect/binding/Schema.h"
#include "store/dialect/Translation.h"

namespace zelkor::dialect {

/// A column's type in the dialect's words, as "TEXT(20)" or "COUNTER".
std::string typeWord(const ColumnInfo& column);

/// The type by which PostgreSQL keeps such values.
std::string_view postgreSqlType(ColumnType type);

/// What an engine's CREATE TABLE says of a column behind its name: type, collation, counter, never Null. A
/// default goes behind it.
std::string columnType(const ColumnInfo& column, EngineKind engine);

}  // namespace zelkor::dialect
