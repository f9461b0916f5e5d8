#include "store/dialect/Shape.h"

#include <charconv>
#include <cstdint>
#include <cstring>

#include "store/dialect/Lexer.h"

namespace zelkor::dialect {
namespace {

// Each literal is one byte of the key that no statement can hold outside its quotes.
constexpr char kText = '\x01';
constexpr char kNumber = '\x02';
constexpr char kDate = '\x03';
constexpr char kPrefixPattern = '\x04';

void resolveQuotes(std::string_view source, char quote, std::string& content) {
  for (std::size_t i = 0; i < source.size(); ++i) {
    content.push_back(source[i]);
    if (source[i] == quote) ++i;
  }
}

/// The platform reads up to four hexadecimal digits as a 16-bit number and more as a 32-bit one, both signed.
std::string decimalOf(std::string_view digits) {
  constexpr std::size_t kDigitsOfShort = 4;
  std::uint32_t bits = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), bits, 16);
  if (digits.size() <= kDigitsOfShort) return std::to_string(static_cast<std::int16_t>(bits));
  return std::to_string(static_cast<std::int32_t>(bits));
}

char liftText(const Lexeme& lexeme, Shape& shape) {
  Literal& literal = shape.literals.emplace_back();
  literal.kind = LiteralKind::Text;
  literal.text = lexeme.inner();
  literal.prefixPattern = lexeme.prefixPattern;
  if (lexeme.doubledQuotes) resolveQuotes(literal.text, lexeme.source.front(), literal.unescaped);
  return lexeme.prefixPattern ? kPrefixPattern : kText;
}

char liftNumber(const Lexeme& lexeme, Shape& shape) {
  Literal& literal = shape.literals.emplace_back();
  literal.kind = LiteralKind::Number;
  literal.text = lexeme.source;
  if (literal.text.front() == '&') literal.unescaped = decimalOf(literal.text.substr(2));
  return kNumber;
}

char liftDate(const Lexeme& lexeme, Shape& shape) {
  Literal& literal = shape.literals.emplace_back();
  literal.kind = LiteralKind::Date;
  literal.text = lexeme.inner();
  return kDate;
}

}  // namespace

void shapeOf(std::string_view statement, Shape& shape) {
  shape.literals.clear();
  shape.key.resize(statement.size());  // no lexeme is longer in the key than in the statement
  char* out = shape.key.data();
  Lexer lexer(statement);
  for (;;) {
    const Lexeme& lexeme = lexer.next();
    if (lexeme.kind == LexemeKind::End) break;
    if (lexeme.blankBefore && out != shape.key.data()) *out++ = ' ';
    switch (lexeme.kind) {
      case LexemeKind::Text:
        *out++ = liftText(lexeme, shape);
        break;
      case LexemeKind::Number:
        *out++ = liftNumber(lexeme, shape);
        break;
      case LexemeKind::Date:
        *out++ = liftDate(lexeme, shape);
        break;
      default:
        std::memcpy(out, lexeme.source.data(), lexeme.source.size());
        out += lexeme.source.size();
    }
  }
  shape.key.resize(static_cast<std::size_t>(out - shape.key.data()));
}

}  // namespace zelkor::dialect
