#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::BinaryKind;
using bound::Node;

namespace {

Node condition(bound::Binary node) {
  return {std::move(node), valueType(ColumnType::Boolean), true};
}

// The literal after LIKE when it is a plain prefix followed by one "*". The shape's key tells such literals
// from others, so the decision holds for every statement of the shape.
const bound::Parameter* prefixPattern(const BindContext& context, const Node& pattern) {
  const auto* parameter = std::get_if<bound::Parameter>(&pattern.node);
  if (!parameter || !isText(pattern)) return nullptr;
  return context.literalOf(parameter->slot).prefixPattern ? parameter : nullptr;
}

// Begins with the prefix: at or above it, and below everything that no longer begins with it.
Node range(BindContext& context, Node value, std::size_t slot) {
  context.slots[slot].bindAs = BindAs::PrefixLow;
  const std::size_t high = context.addSlot(context.slots[slot].literal, BindAs::PrefixHigh);
  const bound::ValueType text = valueType(ColumnType::Text, 255);
  Node from = condition({BinaryKind::GreaterEqual, value, Node{bound::Parameter{slot}, text}});
  Node to = condition({BinaryKind::Less, std::move(value), Node{bound::Parameter{high}, text}});
  return condition({BinaryKind::And, std::move(from), std::move(to)});
}

Node matched(BindContext& context, Node value, Node pattern) {
  if (const auto* parameter = std::get_if<bound::Parameter>(&pattern.node))
    if (isText(pattern)) context.slots[parameter->slot].bindAs = BindAs::Pattern;
  Node test =
      call("zk_like", valueType(ColumnType::Boolean), {asText(std::move(pattern)), asText(std::move(value))});
  test.condition = true;
  return test;
}

}  // namespace

Node like(BindContext& context, Node valueOperand, Node patternOperand, bool negated) {
  Node value = asValue(std::move(valueOperand));
  Node pattern = asValue(std::move(patternOperand));
  const bound::Parameter* prefix = isText(value) ? prefixPattern(context, pattern) : nullptr;
  Node test = prefix ? range(context, caseBlind(std::move(value)), prefix->slot)
                     : matched(context, std::move(value), std::move(pattern));
  return negated ? negatedCondition(std::move(test)) : test;
}

}  // namespace zelkor::dialect
