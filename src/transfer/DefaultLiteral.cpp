#include "transfer/DefaultLiteral.h"

#include "base/Decimal.h"

namespace zelkor {
namespace {

using dialect::ColumnType;

std::string_view withoutParentheses(std::string_view text) {
  while (text.size() > 1 && text.front() == '(' && text.back() == ')') text = text.substr(1, text.size() - 2);
  return text;
}

/// The end of a text in single quotes; 0 when none begins here.
std::size_t endOfQuoted(std::string_view text) {
  if (!text.starts_with('\'')) return 0;
  for (std::size_t i = 1; i < text.size(); ++i) {
    if (text[i] != '\'') continue;
    if (i + 1 == text.size() || text[i + 1] != '\'') return i + 1;
    ++i;
  }
  return 0;
}

// A server says the type after a literal: 'x'::citext, '-1'::integer.
std::string_view withoutType(std::string_view text) {
  const std::size_t quoted = endOfQuoted(text);
  const std::size_t colons = text.find("::", quoted);
  return withoutParentheses(text.substr(0, colons));
}

bool isNumber(std::string_view text) {
  if (text.starts_with('-')) text.remove_prefix(1);
  const Numeral numeral = readNumeral(text, false);
  return numeral.length > 0 && numeral.length == text.size();
}

bool isText(ColumnType type) {
  return type == ColumnType::Text || type == ColumnType::Memo || type == ColumnType::Date;
}

}  // namespace

std::optional<std::string> defaultLiteral(std::string_view expression, ColumnType type) {
  std::string_view literal = withoutType(withoutParentheses(expression));
  if (dialect::sameName(literal, "null")) return std::string();
  const bool quoted = endOfQuoted(literal) == literal.size() && !literal.empty();
  if (quoted && !isText(type)) literal = literal.substr(1, literal.size() - 2);
  if (!isText(type) && isNumber(literal))
    return type == ColumnType::Boolean && literal == "0" ? std::string() : std::string(literal);
  if (isText(type) && (quoted || isNumber(literal)))
    return quoted ? std::string(literal) : "'" + std::string(literal) + "'";
  return std::nullopt;
}

}  // namespace zelkor
