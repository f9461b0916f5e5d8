#include <algorithm>

#include "base/RuntimeError.h"
#include "store/dialect/binding/FunctionBindings.h"
#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::Node;

namespace {

// What the letters of SqlFunction::arguments say.
Node converted(char kind, Node argument) {
  switch (kind) {
    case 't':
      return asText(std::move(argument));
    case 'n':
      return asNumber(std::move(argument));
    case 'd':
      return asDate(std::move(argument));
    case 'c':
    case 'm':
      return isDate(argument) ? asNumber(std::move(argument)) : std::move(argument);
    case 's':
      return isDate(argument) ? asText(std::move(argument)) : std::move(argument);
    case 'o':
      return caseBlind(std::move(argument));
    default:
      return argument;
  }
}

std::vector<Node> converted(const SqlFunction& function, std::vector<Node> arguments) {
  for (std::size_t i = 0; i < arguments.size(); ++i)
    arguments[i] = converted(function.arguments[i], std::move(arguments[i]));
  return arguments;
}

bound::ValueType resultOf(const SqlFunction& function, const std::vector<Node>& arguments) {
  if (function.result == ColumnType::Unknown) return arguments.front().type;
  return valueType(function.result, function.result == ColumnType::Text ? 255 : 0);
}

// Amounts and doubles are added as they are written; whole numbers have no noise.
const SqlFunction& totalOf(const SqlFunction& function, const Node& argument) {
  if (function.arguments != "n") return function;
  const std::string called = "zk_" + std::string(function.called);
  switch (argument.type.type) {
    case ColumnType::Boolean:
    case ColumnType::Short:
    case ColumnType::Long:
    case ColumnType::Counter:
      return function;
    case ColumnType::Currency:
      return functionCalled(called + "_currency");
    default:
      return functionCalled(called);
  }
}

Node aggregateCall(BindContext& context, const SqlFunction& function, std::vector<Node> arguments,
                   bool distinct) {
  context.inOrder = context.inOrder || function.gathersInOrder();
  std::vector<Node> gathered = converted(function, std::move(arguments));
  const SqlFunction& called = totalOf(function, gathered.front());
  const bound::ValueType type = resultOf(called, gathered);
  return {bound::Aggregate{&called, std::move(gathered), distinct && !function.gathersInOrder()}, type};
}

}  // namespace

Node call(std::string_view called, bound::ValueType type, std::vector<Node> arguments) {
  return {bound::Call{&functionCalled(called), std::move(arguments)}, type};
}

Node bindNumberReading(BindContext& context, const SqlFunction& function, std::vector<Node> arguments) {
  Node& argument = arguments.front();
  const auto* column = std::get_if<bound::Column>(&argument.node);
  if (column && column->orderedAsNumber && !column->table.empty()) {
    context.noteNumberColumn(*column, function.result == ColumnType::Short);
    return {bound::NumberOfText{&function, *column}, valueType(function.result)};
  }
  const bool value = function.result == ColumnType::Double;
  if (isDate(argument)) argument = value ? asText(std::move(argument)) : asNumber(std::move(argument));
  return {bound::Call{&function, std::move(arguments)}, valueType(function.result)};
}

Node bindIsNull(BindContext&, const SqlFunction&, std::vector<Node> arguments) {
  return {bound::IsNull{std::move(arguments[0]), false}, valueType(ColumnType::Boolean), true};
}

Node bindChoice(BindContext&, const SqlFunction&, std::vector<Node> arguments) {
  Node then = std::move(arguments[1]);
  Node otherwise = std::move(arguments[2]);
  unite(then, otherwise);
  const bool known = then.type.family != bound::Family::Unknown;
  bound::ValueType type = known ? then.type : otherwise.type;
  type.size = std::max(then.type.size, otherwise.type.size);
  return {bound::Choice{asCondition(std::move(arguments[0])), std::move(then), std::move(otherwise)}, type};
}

Node bindReplacement(BindContext&, const SqlFunction& function, std::vector<Node> arguments) {
  const bound::ValueType given = arguments[0].type;
  if (arguments.size() == 1) {
    const bool number = isNumber(arguments[0]);
    arguments.push_back(number ? Node{bound::IntegerValue{0}, given} : Node{bound::TextValue{}, given});
  }
  unite(arguments[0], arguments[1]);
  const bound::ValueType type = arguments[0].type;
  return {bound::Call{&function, std::move(arguments)}, type};
}

Node countRows() {
  return {bound::Aggregate{&functionCalled("count"), {}, false}, valueType(ColumnType::Long)};
}

Node functionCall(BindContext& context, const FunctionCall& expression, std::vector<Node> arguments) {
  const std::string& name = expression.name;
  const SqlFunction* function = sqlFunction(name, arguments.size());
  if (!function) throw RuntimeError(ErrorNumber::UndefinedFunction, "表达式中 '" + name + "' 函数未定义。");
  if (function->arguments.size() != arguments.size())
    throw RuntimeError(ErrorNumber::SyntaxInQuery, "用于函数参数的个数不对 在查询表达式 '" + name + "' 中。");
  for (Node& argument : arguments) argument = asValue(std::move(argument));
  if (function->isAggregate())
    return aggregateCall(context, *function, std::move(arguments), expression.distinct);
  if (function->binding) return function->binding(context, *function, std::move(arguments));
  arguments = converted(*function, std::move(arguments));
  const bound::ValueType type = resultOf(*function, arguments);
  return {bound::Call{function, std::move(arguments)}, type};
}

}  // namespace zelkor::dialect
