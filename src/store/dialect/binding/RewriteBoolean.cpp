#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::BinaryKind;
using bound::Node;
using bound::UnaryKind;

namespace {

Node condition(bound::Binary node) {
  return {std::move(node), valueType(ColumnType::Boolean), true};
}

Node both(BinaryKind kind, Node left, Node right) {
  return condition({kind, std::move(left), std::move(right)});
}

}  // namespace

Node asValue(Node node) {
  if (!node.condition) return node;
  return {bound::Unary{UnaryKind::ConditionAsValue, std::move(node)}, valueType(ColumnType::Short)};
}

Node asCondition(Node node) {
  if (node.condition) return node;
  if (auto* unary = std::get_if<bound::Unary>(&node.node);
      unary && unary->kind == UnaryKind::ConditionAsValue)
    return std::move(*unary->operand);
  return {bound::Unary{UnaryKind::ValueAsCondition, asNumber(std::move(node))},
          valueType(ColumnType::Boolean), true};
}

Node negatedCondition(Node operand) {
  return {bound::Unary{UnaryKind::Not, asCondition(std::move(operand))}, valueType(ColumnType::Boolean),
          true};
}

Node logical(BinaryOp op, Node left, Node right) {
  Node a = asCondition(std::move(left));
  Node b = asCondition(std::move(right));
  switch (op) {
    case BinaryOp::And:
      return both(BinaryKind::And, std::move(a), std::move(b));
    case BinaryOp::Or:
      return both(BinaryKind::Or, std::move(a), std::move(b));
    case BinaryOp::Xor:
      return both(BinaryKind::NotEqual, std::move(a), std::move(b));
    case BinaryOp::Eqv:
      return both(BinaryKind::Equal, std::move(a), std::move(b));
    default:  // Imp
      return both(BinaryKind::Or, negatedCondition(std::move(a)), std::move(b));
  }
}

}  // namespace zelkor::dialect
