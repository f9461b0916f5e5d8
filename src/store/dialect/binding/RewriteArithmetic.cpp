#include "store/dialect/binding/functions/SqlFunction.h"
#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::BinaryKind;
using bound::Node;

namespace {

Node operation(BinaryKind kind, Node left, Node right, bound::ValueType type) {
  return {bound::Binary{kind, std::move(left), std::move(right)}, type};
}

// Amounts have four decimals, and binary fractions would creep into what is reckoned with them.
Node numeric(BinaryKind kind, Node left, Node right) {
  const bool nothing = std::holds_alternative<bound::NullValue>(left.node) &&
                       std::holds_alternative<bound::NullValue>(right.node);
  if (nothing) return left;
  const bound::ValueType type = arithmeticType(left.type, right.type);
  Node result = operation(kind, std::move(left), std::move(right), type);
  if (type.type != ColumnType::Currency) return result;
  return call("zk_currency", type, {std::move(result)});
}

bool neverNull(const Node& node) {
  if (const auto* concatenation = std::get_if<bound::Binary>(&node.node))
    return neverNull(*concatenation->left) && neverNull(*concatenation->right);
  if (const auto* replaced = std::get_if<bound::Call>(&node.node))
    return replaced->function->called == "coalesce" && neverNull(replaced->arguments.back());
  return std::holds_alternative<bound::Parameter>(node.node) ||
         std::holds_alternative<bound::TextValue>(node.node);
}

// Null on one side counts as the empty text.
Node orEmpty(Node node) {
  Node text = asText(std::move(node));
  if (neverNull(text)) return text;
  const bound::ValueType type = text.type;
  Node empty{bound::TextValue{}, type};
  return call("coalesce", type, {std::move(text), std::move(empty)});
}

Node joined(Node left, Node right) {
  return operation(BinaryKind::Concatenate, std::move(left), std::move(right),
                   valueType(ColumnType::Text, 255));
}

// A day added to or taken from a date is a date; the distance of two dates is a number of days.
Node withDate(BinaryOp op, Node left, Node right) {
  if (op == BinaryOp::Subtract && isDate(left) && isDate(right))
    return numeric(BinaryKind::Subtract, asNumber(std::move(left)), asNumber(std::move(right)));
  const BinaryKind kind = op == BinaryOp::Add ? BinaryKind::Add : BinaryKind::Subtract;
  Node serial = numeric(kind, asNumber(std::move(left)), asNumber(std::move(right)));
  return call("zk_date_of_serial", valueType(ColumnType::Date), {std::move(serial)});
}

bool isTextOrNull(const Node& node) {
  return isText(node) || std::holds_alternative<bound::NullValue>(node.node);
}

Node plus(Node left, Node right) {
  if ((isText(left) && isTextOrNull(right)) || (isTextOrNull(left) && isText(right)))
    return joined(std::move(left), std::move(right));
  return numeric(BinaryKind::Add, asNumber(std::move(left)), asNumber(std::move(right)));
}

Node viaFunction(const char* name, ColumnType type, Node left, Node right) {
  return call(name, valueType(type), {asNumber(std::move(left)), asNumber(std::move(right))});
}

}  // namespace

Node arithmetic(BinaryOp op, Node leftOperand, Node rightOperand) {
  Node left = asValue(std::move(leftOperand));
  Node right = asValue(std::move(rightOperand));
  const bool additive = op == BinaryOp::Add || op == BinaryOp::Subtract;
  if (additive && (isDate(left) || isDate(right))) return withDate(op, std::move(left), std::move(right));
  switch (op) {
    case BinaryOp::Add:
      return plus(std::move(left), std::move(right));
    case BinaryOp::Subtract:
      return numeric(BinaryKind::Subtract, asNumber(std::move(left)), asNumber(std::move(right)));
    case BinaryOp::Multiply:
      return numeric(BinaryKind::Multiply, asNumber(std::move(left)), asNumber(std::move(right)));
    case BinaryOp::Divide:
      return viaFunction("zk_divide", ColumnType::Double, std::move(left), std::move(right));
    case BinaryOp::IntegerDivide:
      return viaFunction("zk_integer_divide", ColumnType::Long, std::move(left), std::move(right));
    case BinaryOp::Modulo:
      return viaFunction("zk_modulo", ColumnType::Long, std::move(left), std::move(right));
    case BinaryOp::Power:
      return viaFunction("zk_power", ColumnType::Double, std::move(left), std::move(right));
    default:  // Concatenate
      return joined(orEmpty(std::move(left)), orEmpty(std::move(right)));
  }
}

Node negative(Node operand) {
  if (std::holds_alternative<bound::NullValue>(operand.node)) return operand;
  Node number = asNumber(std::move(operand));
  const bound::ValueType type =
      number.type.type == ColumnType::Boolean ? valueType(ColumnType::Short) : number.type;
  return {bound::Unary{bound::UnaryKind::Negate, std::move(number)}, type};
}

}  // namespace zelkor::dialect
