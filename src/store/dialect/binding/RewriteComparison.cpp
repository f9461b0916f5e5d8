#include <algorithm>
#include <iterator>

#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::BinaryKind;
using bound::Family;
using bound::Node;

namespace {

BinaryKind kindOf(BinaryOp op) {
  switch (op) {
    case BinaryOp::Equal:
      return BinaryKind::Equal;
    case BinaryOp::NotEqual:
      return BinaryKind::NotEqual;
    case BinaryOp::Less:
      return BinaryKind::Less;
    case BinaryOp::LessEqual:
      return BinaryKind::LessEqual;
    case BinaryOp::Greater:
      return BinaryKind::Greater;
    default:
      return BinaryKind::GreaterEqual;
  }
}

Node truth(auto node) {
  return {std::move(node), valueType(ColumnType::Boolean), true};
}

bool isPlainColumn(const Node& node) {
  const auto* column = std::get_if<bound::Column>(&node.node);
  return column && !column->table.empty();
}

const bound::Parameter* literal(const Node& node) {
  return std::get_if<bound::Parameter>(&node.node);
}

// A literal beside a value of another family is converted when it is bound, so that the other side keeps its
// index.
bool bindAsOther(BindContext& context, Node& constant, const Node& other) {
  const bound::Parameter* parameter = literal(constant);
  if (!parameter) return false;
  ParameterSlot& slot = context.slots[parameter->slot];
  switch (other.type.family) {
    case Family::Date:
      slot.bindAs = BindAs::Assigned;
      slot.target = ColumnType::Date;
      break;
    case Family::Text:
      slot.bindAs = BindAs::Text;
      break;
    case Family::Boolean:
      if (!isText(constant)) return false;
      constant = call("zk_boolean", other.type, {std::move(constant)});
      return true;
    case Family::Number:
      slot.bindAs = BindAs::Assigned;
      slot.target = ColumnType::Double;
      break;
    default:
      return false;
  }
  constant.type = other.type;
  return true;
}

// A parameter takes its type from its surroundings; other operands have one of their own, which some engines
// compare with regard to case.
Node operand(Node node) {
  return literal(node) ? node : caseBlind(std::move(node));
}

Node compared(BinaryOp op, Node left, Node right) {
  left = isPlainColumn(right) ? operand(std::move(left)) : caseBlind(std::move(left));
  right = operand(std::move(right));
  return truth(bound::Binary{kindOf(op), std::move(left), std::move(right)});
}

bool comparable(const Node& left, const Node& right) {
  if (left.type.family == Family::Unknown || right.type.family == Family::Unknown) return true;
  return left.type.family == right.type.family || (isNumber(left) && isNumber(right));
}

// Brings two operands to one family.
void adapt(BindContext& context, Node& left, Node& right) {
  if (comparable(left, right)) return;
  if (bindAsOther(context, right, left) || bindAsOther(context, left, right)) return;
  if (isDate(left) && isText(right)) {
    right = asDate(std::move(right));
  } else if (isDate(right) && isText(left)) {
    left = asDate(std::move(left));
  } else {
    left = asNumber(std::move(left));
    right = asNumber(std::move(right));
  }
}

/// Everything that an IN compares, the value first.
std::vector<Node*> all(Node& value, std::vector<Node>& items) {
  std::vector<Node*> nodes{&value};
  for (Node& item : items) nodes.push_back(&item);
  return nodes;
}

Node inFamily(Node node, Family family) {
  if (family == Family::Date && isText(node)) return asDate(std::move(node));
  return asNumber(std::move(node));
}

// The first that is no literal decides what the literals are. Where others are of another family, all are
// taken to one: a value that were compared as a text with some and as a number with others would miss
// members.
void bringToOneFamily(BindContext& context, Node& value, std::vector<Node>& items) {
  std::vector<Node*> nodes = all(value, items);
  const auto known = std::ranges::find_if(
      nodes, [](const Node* node) { return !literal(*node) && node->type.family != Family::Unknown; });
  const Node& other = known == nodes.end() ? value : **known;
  const bool alike = std::ranges::all_of(
      nodes, [&](const Node* node) { return literal(*node) || comparable(*node, other); });
  if (alike) {
    for (Node* node : nodes) {
      if (!comparable(*node, other) && !bindAsOther(context, *node, other))
        *node = asNumber(std::move(*node));
    }
    return;
  }
  const bool dates = std::ranges::any_of(nodes, [](const Node* node) { return isDate(*node); }) &&
                     std::ranges::none_of(nodes, [](const Node* node) { return isNumber(*node); });
  for (Node* node : nodes) *node = inFamily(std::move(*node), dates ? Family::Date : Family::Number);
}

void trimLiteral(BindContext& context, const Node& node) {
  const bound::Parameter* parameter = literal(node);
  if (!parameter || !isText(node)) return;
  BindAs& bindAs = context.slots[parameter->slot].bindAs;
  if (bindAs == BindAs::Text) bindAs = BindAs::TrimmedText;
}

bool endsInBlank(const BindContext& context, const Node& node) {
  const bound::Parameter* parameter = literal(node);
  return parameter && isText(node) && context.literalOf(parameter->slot).blankAtEnd;
}

// A literal that ends in a blank equals a column's text without blanks at the end, and also the column's text
// that ends like the literal.
std::vector<Node> bothForms(BindContext& context, Node constant) {
  const std::size_t slot = std::get<bound::Parameter>(constant.node).slot;
  context.slots[slot].bindAs = BindAs::TrimmedText;
  const std::size_t asWritten = context.addSlot(context.slots[slot].literal, BindAs::Text);
  const bound::ValueType type = constant.type;
  return {std::move(constant), Node{bound::Parameter{asWritten}, type}};
}

Node equality(BindContext& context, BinaryOp op, Node left, Node right) {
  const bool negated = op == BinaryOp::NotEqual;
  if (endsInBlank(context, left)) std::swap(left, right);
  trimLiteral(context, left);
  if (endsInBlank(context, right))
    return truth(bound::InList{caseBlind(std::move(left)), bothForms(context, std::move(right)), negated});
  trimLiteral(context, right);
  return compared(op, std::move(left), std::move(right));
}

}  // namespace

Node caseBlind(Node node) {
  if (!isText(node) || isPlainColumn(node)) return node;
  const auto* unary = std::get_if<bound::Unary>(&node.node);
  if (unary && unary->kind == bound::UnaryKind::CaseBlind) return node;
  const bound::ValueType type = node.type;
  return {bound::Unary{bound::UnaryKind::CaseBlind, std::move(node)}, type};
}

Node comparison(BindContext& context, BinaryOp op, Node leftOperand, Node rightOperand) {
  Node left = asValue(std::move(leftOperand));
  Node right = asValue(std::move(rightOperand));
  adapt(context, left, right);
  if (op == BinaryOp::Equal || op == BinaryOp::NotEqual)
    return equality(context, op, std::move(left), std::move(right));
  return compared(op, std::move(left), std::move(right));
}

Node between(BindContext& context, Node valueOperand, Node lowOperand, Node highOperand, bool negated) {
  Node value = asValue(std::move(valueOperand));
  std::vector<Node> bounds;
  bounds.push_back(asValue(std::move(lowOperand)));
  bounds.push_back(asValue(std::move(highOperand)));
  bringToOneFamily(context, value, bounds);
  return truth(bound::Between{caseBlind(std::move(value)), operand(std::move(bounds[0])),
                              operand(std::move(bounds[1])), negated});
}

Node inList(BindContext& context, Node valueOperand, std::vector<Node> items, bool negated) {
  Node value = asValue(std::move(valueOperand));
  for (Node& item : items) item = asValue(std::move(item));
  bringToOneFamily(context, value, items);
  std::vector<Node> members;
  for (Node& member : items) {
    if (endsInBlank(context, member)) {
      std::ranges::move(bothForms(context, std::move(member)), std::back_inserter(members));
    } else {
      trimLiteral(context, member);
      members.push_back(operand(std::move(member)));
    }
  }
  trimLiteral(context, value);
  return truth(bound::InList{caseBlind(std::move(value)), std::move(members), negated});
}

}  // namespace zelkor::dialect
