#include <algorithm>
#include <optional>

#include "base/RuntimeError.h"
#include "store/dialect/binding/FunctionsTable.h"
#include "store/dialect/binding/Rewrite.h"
#include "store/dialect/binding/Types.h"

namespace zelkor::dialect {

using bound::Node;

namespace {

[[noreturn]] void raiseArgumentCount(const std::string& name) {
  throw RuntimeError(ErrorNumber::SyntaxInQuery, "用于函数参数的个数不对 在查询表达式 '" + name + "' 中。");
}

void requireArguments(const std::string& name, std::size_t count, std::size_t least, std::size_t most) {
  if (count < least || count > most) raiseArgumentCount(name);
}

std::optional<bound::NumberReading> numberReading(std::string_view name) {
  if (sameName(name, "val")) return bound::NumberReading::Val;
  if (sameName(name, "cint")) return bound::NumberReading::CInt;
  if (sameName(name, "clng")) return bound::NumberReading::CLng;
  return std::nullopt;
}

bound::ValueType typeOfReading(bound::NumberReading reading) {
  switch (reading) {
    case bound::NumberReading::CInt:
      return valueType(ColumnType::Short);
    case bound::NumberReading::CLng:
      return valueType(ColumnType::Long);
    case bound::NumberReading::Val:
      break;
  }
  return valueType(ColumnType::Double);
}

const char* readingFunction(bound::NumberReading reading) {
  switch (reading) {
    case bound::NumberReading::CInt:
      return "zk_cint";
    case bound::NumberReading::CLng:
      return "zk_clng";
    case bound::NumberReading::Val:
      break;
  }
  return "zk_val";
}

Node readNumber(BindContext& context, bound::NumberReading reading, Node argument) {
  const auto* column = std::get_if<bound::Column>(&argument.node);
  if (column && column->orderedAsNumber && !column->table.empty()) {
    context.noteNumberColumn(*column, reading);
    return {bound::NumberOfText{reading, *column}, typeOfReading(reading)};
  }
  if (isDate(argument))
    argument =
        reading == bound::NumberReading::Val ? asText(std::move(argument)) : asNumber(std::move(argument));
  return call(readingFunction(reading), typeOfReading(reading), {std::move(argument)});
}

Node choice(std::vector<Node> arguments) {
  Node then = asValue(std::move(arguments[1]));
  Node otherwise = asValue(std::move(arguments[2]));
  unite(then, otherwise);
  const bool known = then.type.family != bound::Family::Unknown;
  bound::ValueType type = known ? then.type : otherwise.type;
  type.size = std::max(then.type.size, otherwise.type.size);
  return {bound::Choice{asCondition(std::move(arguments[0])), std::move(then), std::move(otherwise)}, type};
}

// Null becomes the replacement, or the empty text or 0 by the type of the value.
Node orReplacement(std::vector<Node> arguments) {
  if (arguments.size() == 1) {
    const bound::ValueType type = arguments[0].type;
    const bool number = isNumber(arguments[0]);
    arguments.push_back(number ? Node{bound::IntegerValue{0}, type} : Node{bound::TextValue{}, type});
  }
  unite(arguments[0], arguments[1]);
  const bound::ValueType type = arguments[0].type;
  return call("coalesce", type, std::move(arguments));
}

Node formatted(std::vector<Node> arguments) {
  const bool date = isDate(arguments[0]);
  return call(date ? "zk_format_date" : "zk_format", valueType(ColumnType::Text, 255), std::move(arguments));
}

Node converted(char kind, Node argument) {
  switch (kind) {
    case 't':
      return asText(std::move(argument));
    case 'n':
      return asNumber(std::move(argument));
    case 'd':
      return asDate(std::move(argument));
    case 'c':  // a number function that reads text by itself
      return isDate(argument) ? asNumber(std::move(argument)) : std::move(argument);
    case 's':  // a text function that writes numbers by itself
      return isDate(argument) ? asText(std::move(argument)) : std::move(argument);
    default:
      return argument;
  }
}

Node plainCall(const FunctionRow& row, const FunctionCall& expression, std::vector<Node> arguments) {
  requireArguments(expression.name, arguments.size(), row.required, row.arguments.size());
  bound::ValueType type = valueType(row.type, row.type == ColumnType::Text ? 255 : 0);
  if (row.typeOfArgument && !arguments.empty()) type = asNumber(arguments[0]).type;
  for (std::size_t i = 0; i < arguments.size(); ++i)
    arguments[i] = converted(row.arguments[i], std::move(arguments[i]));
  return call(std::string(row.target), type, std::move(arguments));
}

}  // namespace

Node functionCall(BindContext& context, const FunctionCall& expression, std::vector<Node> arguments) {
  const std::string& name = expression.name;
  if (isAggregate(name)) return aggregateCall(expression, std::move(arguments));
  for (Node& argument : arguments) argument = asValue(std::move(argument));
  if (const auto reading = numberReading(name)) {
    requireArguments(name, arguments.size(), 1, 1);
    return readNumber(context, *reading, std::move(arguments[0]));
  }
  if (sameName(name, "iif")) {
    requireArguments(name, arguments.size(), 3, 3);
    return choice(std::move(arguments));
  }
  if (sameName(name, "isnull")) {
    requireArguments(name, arguments.size(), 1, 1);
    return {bound::IsNull{std::move(arguments[0]), false}, valueType(ColumnType::Boolean), true};
  }
  if (sameName(name, "nz")) {
    requireArguments(name, arguments.size(), 1, 2);
    return orReplacement(std::move(arguments));
  }
  if (sameName(name, "format") && arguments.size() == 2) return formatted(std::move(arguments));
  if (const FunctionRow* row = functionRow(name, arguments.size()))
    return plainCall(*row, expression, std::move(arguments));
  throw RuntimeError(ErrorNumber::UndefinedFunction, "表达式中 '" + name + "' 函数未定义。");
}

}  // namespace zelkor::dialect
