#pragma once

#include <string_view>
#include <vector>

#include "store/dialect/binding/BindTree.h"
#include "store/dialect/reading/Ast.h"

namespace zelkor::dialect {

/// A function of the dialect that is a call of one function of the engine.
struct FunctionRow {
  std::string_view name;
  std::string_view target;
  /// One letter per argument: t as text, n as number, d as date, c as number or
  /// text, s as text or number, v as it is.
  std::string_view arguments;
  std::size_t required = 0;
  ColumnType type{};
  bool typeOfArgument = false;  // the result has the type of the first argument
};

/// The row of that name in any case that takes so many arguments (or any, when none takes so many); nullptr
/// when there is none of that name.
const FunctionRow* functionRow(std::string_view name, std::size_t arguments);

bound::Node aggregateCall(const FunctionCall& expression, std::vector<bound::Node> arguments);

}  // namespace zelkor::dialect
