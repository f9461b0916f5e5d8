#include <charconv>

#include "base/Conversion.h"
#include "base/DateTime.h"
#include "store/dialect/binding/functions/ColumnConversion.h"
#include "store/dialect/printing/EngineWords.h"
#include "store/dialect/TranslateQuery.h"

namespace zelkor::dialect {
namespace {

// Above every text that goes on after a prefix.
constexpr std::string_view kLastCodePoint = "\xF4\x8F\xBF\xBF";

std::string dateText(std::string_view text) {
  const auto date = parseDate(text);
  return date ? textConstant(date->toIso()) : "NULL";
}

Value valueOf(const Literal& literal) {
  if (literal.kind == LiteralKind::Text) return literal.content();
  if (literal.kind == LiteralKind::Number)
    if (const auto number = parseNumber(literal.content())) return *number;
  if (const auto date = parseDate(literal.content())) return *date;
  return {};
}

std::string stored(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Null:
      return "NULL";
    case Value::Kind::Text:
      return textConstant(value.as<std::string>());
    case Value::Kind::Date:
      return textConstant(value.as<DateTime>().toIso());
    case Value::Kind::Boolean:
      return value.as<bool>() ? "-1" : "0";
    default:
      return textOfDouble(value.number());
  }
}

std::string constant(const ParameterSlot& slot, const Literal& literal) {
  std::string_view text = literal.content();
  switch (slot.bindAs) {
    case BindAs::Text:
    case BindAs::Pattern:
      return textConstant(text);
    case BindAs::TrimmedText:
      return textConstant(text.substr(0, text.find_last_not_of(' ') + 1));
    case BindAs::Number:
      return std::string(text);
    case BindAs::Date:
      return dateText(text);
    case BindAs::PrefixLow:
      return textConstant(text.substr(0, text.size() - 1));
    case BindAs::PrefixHigh:
      return textConstant(std::string(text.substr(0, text.size() - 1)).append(kLastCodePoint));
    case BindAs::Assigned:
      break;
  }
  const auto value = convertForColumn(valueOf(literal), slot.target);
  return value ? stored(*value) : slot.target == ColumnType::Boolean ? "0" : "NULL";
}

// The end of the quoted piece that begins at `from`.
std::size_t behindQuotes(std::string_view sql, std::size_t from) {
  const std::size_t close = sql.find(sql[from], from + 1);
  return close == std::string_view::npos ? sql.size() : close + 1;
}

}  // namespace

std::string inlineConstants(std::string_view sql, std::span<const ParameterSlot> slots, const Shape& shape) {
  std::string result;
  for (std::size_t i = 0; i < sql.size();) {
    const char c = sql[i];
    if (c == '\'' || c == '"') {
      const std::size_t end = behindQuotes(sql, i);
      result += sql.substr(i, end - i);
      i = end;
      continue;
    }
    std::size_t number = 0;
    const auto [end, failure] = std::from_chars(sql.data() + i + 1, sql.data() + sql.size(), number);
    if ((c == '?' || c == '$') && failure == std::errc() && number >= 1 && number <= slots.size()) {
      result += constant(slots[number - 1], shape.literals[slots[number - 1].literal]);
      i = static_cast<std::size_t>(end - sql.data());
      continue;
    }
    result += c;
    ++i;
  }
  return result;
}

}  // namespace zelkor::dialect
