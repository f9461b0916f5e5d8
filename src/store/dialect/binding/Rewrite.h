#pragma once

#include <string>
#include <vector>

#include "store/dialect/binding/BindScope.h"
#include "store/dialect/binding/BindTree.h"
#include "store/dialect/reading/Ast.h"

// The peculiarities of the dialect, one function each: they take bound operands and give a tree that means
// the same on every engine.
namespace zelkor::dialect {

/// A call of what translations call by that name.
bound::Node call(std::string_view called, bound::ValueType type, std::vector<bound::Node> arguments);

/// A comparison used as a value is -1 or 0.
bound::Node asValue(bound::Node node);
/// A bare boolean column or number used as a condition holds when it is not 0.
bound::Node asCondition(bound::Node node);
bound::Node logical(BinaryOp op, bound::Node left, bound::Node right);
bound::Node negatedCondition(bound::Node operand);

/// The value as a number: text is read (13 when it is none), a date is its serial number.
bound::Node asNumber(bound::Node node);
/// The value as the dialect writes it into a text.
bound::Node asText(bound::Node node);
/// The value as a date.
bound::Node asDate(bound::Node node);

/// Two values for one column of a result: as texts where one is text or a date and the other is not, an
/// amount beside a double as a double.
void unite(bound::Node& first, bound::Node& second);

bound::Node arithmetic(BinaryOp op, bound::Node left, bound::Node right);
bound::Node negative(bound::Node operand);

/// Comparisons of texts are case-blind, and blanks at the end of a literal count only for order.
bound::Node comparison(BindContext& context, BinaryOp op, bound::Node left, bound::Node right);
bound::Node between(BindContext& context, bound::Node value, bound::Node low, bound::Node high, bool negated);
bound::Node inList(BindContext& context, bound::Node value, std::vector<bound::Node> items, bool negated);
/// A text that is no plain column, so that engines compare and order it case-blind.
bound::Node caseBlind(bound::Node node);

bound::Node like(BindContext& context, bound::Node value, bound::Node pattern, bool negated);

/// What is stored into a column: constants are converted when they are bound, other values where their type
/// does not fit already.
bound::Node assigned(BindContext& context, bound::Node value, const ColumnInfo& target);

/// A call of the dialect's function `name`; 3085 when there is none, 3075 for a wrong number of arguments.
bound::Node functionCall(BindContext& context, const FunctionCall& expression,
                         std::vector<bound::Node> arguments);
bound::Node countRows();

}  // namespace zelkor::dialect
