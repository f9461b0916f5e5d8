#pragma once

#include <string>

#include "store/dialect/reading/Ast.h"
#include "store/dialect/reading/Shape.h"

namespace zelkor::dialect {

/// The statement in the dialect again, every operand that is itself an operation in parentheses: equal texts
/// mean equal trees.
std::string print(const Statement& statement, const Shape& shape);
std::string print(const Expr& expr, const Shape& shape);

}  // namespace zelkor::dialect
