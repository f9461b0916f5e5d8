#include <algorithm>
#include <array>

#include "base/RuntimeError.h"
#include "store/dialect/binding/FunctionsTable.h"
#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::Node;

namespace {

constexpr std::array<std::string_view, 7> names{"Count", "Sum", "Avg", "Min", "Max", "First", "Last"};

Node aggregate(std::string name, bound::ValueType type, Node argument, bool distinct) {
  bound::Aggregate node{std::move(name), {}, distinct};
  node.arguments.push_back(std::move(argument));
  return {std::move(node), type};
}

// Amounts are added as ten-thousandths, so that no binary fraction creeps into a total.
Node total(const char* plain, const char* ofCurrency, Node argument, bool distinct) {
  Node number = asNumber(std::move(argument));
  if (number.type.type == ColumnType::Currency)
    return aggregate(ofCurrency, valueType(ColumnType::Currency), std::move(number), distinct);
  return aggregate(plain, valueType(ColumnType::Double), std::move(number), distinct);
}

Node extreme(const char* name, Node argument, bool distinct) {
  const bound::ValueType type = argument.type;
  return aggregate(name, type, caseBlind(std::move(argument)), distinct);
}

Node ofRow(const char* name, Node argument) {
  const bound::ValueType type = argument.type;
  return aggregate(name, type, std::move(argument), false);
}

}  // namespace

bool isAggregate(std::string_view name) {
  return std::any_of(names.begin(), names.end(),
                     [&](std::string_view other) { return sameName(other, name); });
}

Node countRows() {
  return {bound::Aggregate{"count", {}, false}, valueType(ColumnType::Long)};
}

Node aggregateCall(const FunctionCall& expression, std::vector<Node> arguments) {
  const std::string& name = expression.name;
  if (arguments.size() != 1)
    throw RuntimeError(ErrorNumber::SyntaxInQuery, "用于函数参数的个数不对 在查询表达式 '" + name + "' 中。");
  Node argument = asValue(std::move(arguments[0]));
  const bool distinct = expression.distinct;
  if (sameName(name, "count"))
    return aggregate("count", valueType(ColumnType::Long), std::move(argument), distinct);
  if (sameName(name, "sum")) return total("sum", "zk_sum_currency", std::move(argument), distinct);
  if (sameName(name, "avg")) return total("avg", "zk_avg_currency", std::move(argument), distinct);
  if (sameName(name, "min")) return extreme("min", std::move(argument), distinct);
  if (sameName(name, "max")) return extreme("max", std::move(argument), distinct);
  if (sameName(name, "first")) return ofRow("zk_first", std::move(argument));
  return ofRow("zk_last", std::move(argument));
}

}  // namespace zelkor::dialect
