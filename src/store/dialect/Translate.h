#pragma once

#include <string>
#include <string_view>

#include "store/dialect/printing/EngineWords.h"
#include "store/dialect/reading/Shape.h"
#include "store/dialect/Translation.h"

namespace zelkor::dialect {

/// Translates the statement (with the literals of `shape` lifted out). Raises the dialect's errors: 3075 and
/// 3134 with the offending piece, 3078 for a table and 3061 for a column that does not exist, 3010 for a
/// SELECT INTO whose table exists, 3376 for a DROP TABLE of none.
Translation translate(std::string_view statement, const Shape& shape, const SchemaView& schema,
                      const EngineWords& engine);

/// The statement printed with its literals in place, for people: what `translate` gives, constants inlined.
std::string printable(const Translation& translation, const Shape& shape);

}  // namespace zelkor::dialect
