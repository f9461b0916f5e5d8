#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "store/dialect/binding/Schema.h"

namespace zelkor {

/// The literal that a column's default expression amounts to, in words that both engines understand; empty
/// where it is Null or what the type's columns have anyway, nullopt when it is no literal.
std::optional<std::string> defaultLiteral(std::string_view expression, dialect::ColumnType type);

}  // namespace zelkor
