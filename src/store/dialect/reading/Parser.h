#pragma once

#include <string_view>

#include "store/dialect/reading/Ast.h"
#include "store/dialect/reading/Shape.h"

namespace zelkor::dialect {

/// The syntax tree of one statement whose shape is `shape`; constants appear by their place in its literals.
/// Raises 3134 for an INSERT statement and 3075 for any other that the grammar does not know, with the
/// offending piece. A closing semicolon is taken; anything after it is an error.
Statement parse(std::string_view statement, const Shape& shape);

/// An expression standing alone, such as a criterion of FindFirst. Raises 3075.
Expr parseExpression(std::string_view text, const Shape& shape);

}  // namespace zelkor::dialect
