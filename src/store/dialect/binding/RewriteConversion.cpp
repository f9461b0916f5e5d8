#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::Family;
using bound::Node;

Node asNumber(Node node) {
  Node value = asValue(std::move(node));
  switch (value.type.family) {
    case Family::Text:
      return call("zk_number", valueType(ColumnType::Double), {std::move(value)});
    case Family::Date:
      return call("zk_serial", valueType(ColumnType::Double), {std::move(value)});
    default:
      return value;
  }
}

Node asText(Node node) {
  Node value = asValue(std::move(node));
  if (isText(value)) return value;
  const bool date = isDate(value);
  return call(date ? "zk_datetext" : "zk_text", valueType(ColumnType::Text, 255), {std::move(value)});
}

void unite(Node& first, Node& second) {
  const auto numeric = [](const Node& node) { return isNumber(node) || node.type.family == Family::Boolean; };
  const bool known = first.type.family != Family::Unknown && second.type.family != Family::Unknown;
  const auto either = [&](ColumnType type) { return first.type.type == type || second.type.type == type; };
  if (either(ColumnType::Currency) && either(ColumnType::Double))
    first.type = second.type = valueType(ColumnType::Double);
  if (!known || first.type.family == second.type.family || (numeric(first) && numeric(second))) return;
  first = asText(std::move(first));
  second = asText(std::move(second));
}

Node asDate(Node node) {
  Node value = asValue(std::move(node));
  if (isDate(value)) return value;
  return call("zk_date", valueType(ColumnType::Date), {std::move(value)});
}

}  // namespace zelkor::dialect
