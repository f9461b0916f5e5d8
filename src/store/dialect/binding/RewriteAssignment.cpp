#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::Node;

namespace {

const char* assigningFunction(ColumnType type) {
  switch (type) {
    case ColumnType::Short:
      return "zk_assign_short";
    case ColumnType::Long:
    case ColumnType::Counter:
      return "zk_assign_long";
    case ColumnType::Double:
      return "zk_assign_double";
    case ColumnType::Currency:
      return "zk_assign_currency";
    case ColumnType::Date:
      return "zk_assign_date";
    case ColumnType::Boolean:
      return "zk_assign_boolean";
    default:
      return nullptr;
  }
}

// What the target converts from: a date travels as a number into a number column and as a date's own text
// into a text column.
Node prepared(Node value, ColumnType target) {
  const bound::Family family = familyOf(target);
  if (family == bound::Family::Text) return asText(std::move(value));
  const bool numeric = family == bound::Family::Number || family == bound::Family::Boolean;
  return numeric && isDate(value) ? asNumber(std::move(value)) : value;
}

}  // namespace

Node assigned(BindContext& context, Node operand, const ColumnInfo& target) {
  Node value = asValue(std::move(operand));
  const bound::ValueType type = valueType(target);
  if (std::holds_alternative<bound::NullValue>(value.node)) {
    if (target.type == ColumnType::Boolean) return {bound::IntegerValue{0}, type};
    return {bound::NullValue{}, type};
  }
  if (const auto* parameter = std::get_if<bound::Parameter>(&value.node)) {
    ParameterSlot& slot = context.slots[parameter->slot];
    slot.bindAs = BindAs::Assigned;
    slot.target = target.type;
    value.type = type;
    return value;
  }
  // What is reckoned may leave the range of whole numbers.
  const bool whole = target.type == ColumnType::Long || target.type == ColumnType::Short;
  const auto* unary = std::get_if<bound::Unary>(&value.node);
  const bool negated = unary != nullptr && unary->kind == bound::UnaryKind::Negate;
  const bool reckoned = whole && (negated || std::holds_alternative<bound::Binary>(value.node));
  const bool constant = std::holds_alternative<bound::IntegerValue>(value.node);
  if (constant && (type.family == bound::Family::Number || target.type == ColumnType::Boolean)) return value;
  if (!reckoned && fits(value.type, target.type)) return value;
  Node source = prepared(std::move(value), target.type);
  const char* function = assigningFunction(target.type);
  return function ? call(function, type, {std::move(source)}) : source;
}

}  // namespace zelkor::dialect
