#include "store/engine/Binding.h"

#include <charconv>
#include <string>

#include "base/Conversion.h"
#include "base/Decimal.h"
#include "base/RuntimeError.h"
#include "store/dialect/binding/functions/ColumnConversion.h"
#include "store/engine/ColumnValue.h"

namespace zelkor {
namespace {

using dialect::BindAs;
using dialect::ColumnType;
using dialect::Literal;
using dialect::LiteralKind;
using dialect::ParameterSlot;

// The last code point: above every text that goes on after a prefix.
constexpr std::string_view kHighest = "\xF4\x8F\xBF\xBF";

std::string_view withoutTrailingBlanks(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

std::string_view prefixOf(std::string_view pattern) {
  pattern.remove_suffix(1);
  return pattern;
}

DateTime dateOf(const Literal& literal) {
  if (const auto date = parseDate(literal.content())) return *date;
  throw RuntimeError(ErrorNumber::SyntaxInQuery,
                     "日期的语法错误 在查询表达式 '#" + std::string(literal.content()) + "#' 中。");
}

bool readWhole(std::string_view text, std::int64_t& value) {
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), value);
  return failure == std::errc() && end == text.data() + text.size();
}

double realOf(const Literal& literal) {
  const std::string_view text = literal.content();
  if (std::int64_t whole = 0; readWhole(text, whole)) return static_cast<double>(whole);
  if (const Numeral number = readNumeral(text, false); number.length == text.size() && number.length > 0)
    return toDouble(number, text);
  if (const auto number = parseNumber(text)) return *number;
  throw RuntimeError(ErrorNumber::SyntaxInQuery,
                     "数字的语法错误 在查询表达式 '" + std::string(literal.content()) + "' 中。");
}

void bindNumber(EngineStatement& statement, int parameter, const Literal& literal) {
  if (std::int64_t value = 0; readWhole(literal.content(), value))
    return statement.bindInteger(parameter, value);
  statement.bindReal(parameter, realOf(literal));
}

Value valueOf(const Literal& literal) {
  switch (literal.kind) {
    case LiteralKind::Text:
      return literal.content();
    case LiteralKind::Number:
      return realOf(literal);
    case LiteralKind::Date:
      return dateOf(literal);
  }
  return {};
}

bool isTextColumn(ColumnType type) {
  return type == ColumnType::Text || type == ColumnType::Memo;
}

bool isWithin(ColumnType target, std::int64_t value) {
  if (target == ColumnType::Short) return value == static_cast<std::int16_t>(value);
  return target == ColumnType::Long && value == static_cast<std::int32_t>(value);
}

// A number goes into a text column as the platform writes it, without leading zeros: not here.
bool bindNumberDirectly(EngineStatement& statement, int parameter, const Literal& literal,
                        ColumnType target) {
  if (target == ColumnType::Double) {
    statement.bindReal(parameter, realOf(literal));
    return true;
  }
  std::int64_t value = 0;
  if (!readWhole(literal.content(), value) || !isWithin(target, value)) return false;
  statement.bindInteger(parameter, value);
  return true;
}

// The usual pairs without a detour over Value: this runs for every literal of every insert.
bool bindDirectly(EngineStatement& statement, int parameter, const Literal& literal, ColumnType target) {
  switch (literal.kind) {
    case LiteralKind::Text:
      if (!isTextColumn(target)) return false;
      statement.bindLastingText(parameter, literal.content());
      return true;
    case LiteralKind::Number:
      return bindNumberDirectly(statement, parameter, literal, target);
    case LiteralKind::Date:
      return false;
  }
  return false;
}

void bindAssigned(EngineStatement& statement, int parameter, const Literal& literal, ColumnType target) {
  if (bindDirectly(statement, parameter, literal, target)) return;
  const std::optional<Value> value = dialect::convertForColumn(valueOf(literal), target);
  if (value) return bindValue(statement, parameter, *value);
  if (target == ColumnType::Boolean) return statement.bindInteger(parameter, 0);
  statement.bindNull(parameter);
}

void bindSlot(EngineStatement& statement, int parameter, const ParameterSlot& slot, const Literal& literal) {
  switch (slot.bindAs) {
    case BindAs::Text:
    case BindAs::Pattern:
      return statement.bindLastingText(parameter, literal.content());
    case BindAs::TrimmedText:
      return statement.bindLastingText(parameter, withoutTrailingBlanks(literal.content()));
    case BindAs::Number:
      return bindNumber(statement, parameter, literal);
    case BindAs::Date:
      return statement.bindText(parameter, dateOf(literal).toIso());
    case BindAs::PrefixLow:
      return statement.bindLastingText(parameter, prefixOf(literal.content()));
    case BindAs::PrefixHigh:
      return statement.bindText(parameter, std::string(prefixOf(literal.content())).append(kHighest));
    case BindAs::Assigned:
      return bindAssigned(statement, parameter, literal, slot.target);
  }
}

}  // namespace

void bindSlots(EngineStatement& statement, std::span<const ParameterSlot> slots,
               std::span<const Literal> literals) {
  int parameter = 0;
  for (const ParameterSlot& slot : slots) bindSlot(statement, ++parameter, slot, literals[slot.literal]);
}

}  // namespace zelkor
