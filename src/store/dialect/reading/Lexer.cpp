#include "store/dialect/reading/Lexer.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

namespace zelkor::dialect {
namespace {

enum Class : std::uint8_t {
  Illegal,
  Blank,
  Letter,
  Digit,
  Quote,
  Hash,
  Bracket,
  Backquote,
  Point,
  Ampersand,
  Sign
};

constexpr std::array<Class, 256> classTable() {
  std::array<Class, 256> table{};
  for (const char c : std::string_view(" \t\r\n\f\v")) table[static_cast<unsigned char>(c)] = Blank;
  for (const char c : std::string_view("()+-*/\\^=<>,;!")) table[static_cast<unsigned char>(c)] = Sign;
  for (int c = 'a'; c <= 'z'; ++c) table[c] = table[c - 'a' + 'A'] = Letter;
  for (int c = '0'; c <= '9'; ++c) table[c] = Digit;
  for (int c = 0x80; c <= 0xFF; ++c) table[c] = Letter;
  table['_'] = table['$'] = Letter;
  table['\''] = table['"'] = Quote;
  table['#'] = Hash;
  table['['] = Bracket;
  table['`'] = Backquote;
  table['.'] = Point;
  table['&'] = Ampersand;
  return table;
}
constexpr std::array<Class, 256> kClasses = classTable();

Class classOf(char c) {
  return kClasses[static_cast<unsigned char>(c)];
}
bool isDigit(char c) {
  return c >= '0' && c <= '9';
}
bool isHexDigit(char c) {
  return isDigit(c) || ((c | 0x20) >= 'a' && (c | 0x20) <= 'f');
}

/// Compares with a word in lower case that holds only letters.
bool isWord(std::string_view text, std::string_view lower) {
  return text.size() == lower.size() &&
         std::equal(text.begin(), text.end(), lower.begin(), [](char a, char b) { return (a | 0x20) == b; });
}

/// Full-width and typographic punctuation looks like the dialect's signs but is none; it is no letter either.
bool isWidePunctuation(const char* p, const char* end) {
  if (end - p < 3) return false;
  const auto lead = static_cast<unsigned char>(p[0]);
  const unsigned code = ((lead & 0x0FU) << 12U) | ((static_cast<unsigned char>(p[1]) & 0x3FU) << 6U) |
                        (static_cast<unsigned char>(p[2]) & 0x3FU);
  if (lead == 0xE2) return code <= 0x206F;
  if (lead == 0xE3) return code <= 0x303F && (code < 0x3005 || code > 0x3007);
  return lead == 0xEF &&
         ((code >= 0xFF01 && code <= 0xFF0F) || (code >= 0xFF1A && code <= 0xFF20) ||
          (code >= 0xFF3B && code <= 0xFF40 && code != 0xFF3F) || (code >= 0xFF5B && code <= 0xFF65));
}

/// The lead bytes of wide characters need a closer look; other letters and digits are in a table.
constexpr std::array<bool, 256> plainWordTable() {
  std::array<bool, 256> table{};
  for (int c = 0; c < 256; ++c) {
    table[c] = (kClasses[c] == Letter || kClasses[c] == Digit) && c != 0xE2 && c != 0xE3 && c != 0xEF;
  }
  return table;
}
constexpr std::array<bool, 256> kPlainWord = plainWordTable();

bool continuesWord(const char* p, const char* end) {
  if (kPlainWord[static_cast<unsigned char>(*p)]) return true;
  return classOf(*p) == Letter && !isWidePunctuation(p, end);
}

/// The end of the word that begins at `p`. Words are mostly plain letters, which the inner loop runs over.
const char* endOfWord(const char* p, const char* end) {
  for (;; ++p) {
    while (p != end && kPlainWord[static_cast<unsigned char>(*p)]) ++p;
    if (p == end || !continuesWord(p, end)) return p;
  }
}

bool isPrefixPattern(std::string_view pattern) {
  if (pattern.size() < 2 || pattern.back() != '*') return false;
  pattern.remove_suffix(1);
  return std::none_of(pattern.begin(), pattern.end(),
                      [](char c) { return c == '*' || c == '?' || c == '#' || c == '['; });
}

/// A keyword after which an expression or a list of them begins.
bool opensExpression(const Lexeme& lexeme) {
  if (lexeme.kind != LexemeKind::Word) return false;
  switch (keywordOf(lexeme.source)) {
    case Keyword::Select:
    case Keyword::Set:
    case Keyword::Values:
    case Keyword::From:
    case Keyword::On:
    case Keyword::Where:
    case Keyword::Having:
    case Keyword::By:
      return true;
    default:
      return false;
  }
}

/// A keyword that can follow a whole item of an ORDER BY or GROUP BY list.
bool followsListItem(Keyword keyword) {
  switch (keyword) {
    case Keyword::Asc:
    case Keyword::Desc:
    case Keyword::Having:
    case Keyword::Union:
    case Keyword::Order:
    case Keyword::With:
      return true;
    default:
      return false;
  }
}

}  // namespace

const Lexeme& Lexer::next() {
  skipBlanks();
  memory_.lexeme.doubledQuotes = memory_.lexeme.prefixPattern = false;
  const Expected expected = std::exchange(memory_.expected, Expected::Nothing);
  if (cursor_ == end_) {
    finish(LexemeKind::End, end_, end_);
    return memory_.lexeme;
  }
  switch (classOf(*cursor_)) {
    case Letter:
      scanWord();
      break;
    case Digit:
      scanNumber(expected);
      break;
    case Quote:
      scanText(expected);
      break;
    case Hash:
      scanDate();
      break;
    case Bracket:
      scanQuotedName(']');
      break;
    case Backquote:
      scanQuotedName('`');
      break;
    case Point:
      scanPoint();
      break;
    case Ampersand:
      if (!scanHexadecimal()) finish(LexemeKind::Symbol, cursor_, cursor_ + 1);
      break;
    case Sign:
      scanSymbol();
      break;
    default:
      fail(SyntaxFault::Syntax);
  }
  return memory_.lexeme;
}

// What a lexer has learnt depends on nothing but the text that it has read, as long as its last word ends
// there.
bool Lexer::passOver(std::string_view text, const Lexer& other) {
  if (text.empty()) return true;
  if (cursor_ == end_ || *cursor_ != text.front()) return false;
  if (text.size() > 1 && !rest().starts_with(text)) return false;
  cursor_ += text.size();
  memory_ = other.memory_;
  const std::size_t length = memory_.lexeme.source.size();
  memory_.lexeme.source = std::string_view(cursor_ - length, length);
  return memory_.lexeme.kind != LexemeKind::Word || cursor_ == end_ || !continuesWord(cursor_, end_);
}

void Lexer::skipBlanks() {
  const char* start = cursor_;
  while (cursor_ != end_ && classOf(*cursor_) == Blank) ++cursor_;
  memory_.lexeme.blankBefore = cursor_ != start;
}

void Lexer::finish(LexemeKind kind, const char* begin, const char* end) {
  memory_.lexeme.kind = kind;
  memory_.lexeme.source = std::string_view(begin, static_cast<std::size_t>(end - begin));
  cursor_ = end;
}

// The piece begins with the expression in which the fault stands, to be found by one more walk. A quote that
// is never closed mostly goes back to one too many before: the fault is where an operand follows a text.
void Lexer::fail(SyntaxFault fault) const {
  Lexer walk(statement_.substr(0, static_cast<std::size_t>(cursor_ - statement_.data())));
  const char* begin = statement_.data();
  const char* at = cursor_;
  while (at == cursor_) {
    const bool behindText = walk.memory_.lexeme.kind == LexemeKind::Text;
    if (walk.next().kind == LexemeKind::End) break;
    if (behindText && walk.endsOperand() && walk.memory_.lexeme.kind != LexemeKind::Symbol) {
      at = walk.memory_.lexeme.source.data();
    } else if (opensExpression(walk.memory_.lexeme)) {
      begin = walk.cursor_;
    }
  }
  while (begin != at && classOf(*begin) == Blank) ++begin;
  raiseSyntaxError(statement_, fault, std::string_view(begin, static_cast<std::size_t>(end_ - begin)),
                   static_cast<std::size_t>(at - begin));
}

void Lexer::scanWord() {
  const char* p = endOfWord(cursor_, end_);
  if (p == cursor_) fail(SyntaxFault::Syntax);
  finish(LexemeKind::Word, cursor_, p);
  if (std::exchange(memory_.first, false)) noteFirstWord(memory_.lexeme.source);
  noteWord(memory_.lexeme.source);
}

void Lexer::noteFirstWord(std::string_view word) {
  memory_.definesData = isWord(word, "create") || isWord(word, "alter");
}

void Lexer::noteWord(std::string_view word) {
  switch (word.size()) {
    case 2:
      if (!isWord(word, "by")) return;
      memory_.expected = Expected::Ordinal;
      memory_.listDepth = memory_.depth;
      return;
    case 3:
      if (isWord(word, "top")) memory_.expected = Expected::TopCount;
      return;
    case 4:
      if (isWord(word, "like")) memory_.expected = Expected::Pattern;
      return;
    case 6:
      if (memory_.listDepth >= 0 && isWord(word, "select")) memory_.listDepth = -1;
      return;
    default:
      return;
  }
}

void Lexer::scanQuotedName(char closing) {
  const auto* close = static_cast<const char*>(
      std::memchr(cursor_ + 1, closing, static_cast<std::size_t>(end_ - cursor_ - 1)));
  if (close == nullptr || close == cursor_ + 1) fail(SyntaxFault::Syntax);
  finish(LexemeKind::QuotedName, cursor_, close + 1);
}

void Lexer::scanText(Expected expected) {
  const char quote = *cursor_;
  const char* p = cursor_ + 1;
  for (;;) {
    p = static_cast<const char*>(std::memchr(p, quote, static_cast<std::size_t>(end_ - p)));
    if (p == nullptr) fail(endsOperand() ? SyntaxFault::MissingOperator : SyntaxFault::Text);
    ++p;
    if (p == end_ || *p != quote) break;
    memory_.lexeme.doubledQuotes = true;
    ++p;
  }
  finish(LexemeKind::Text, cursor_, p);
  memory_.lexeme.prefixPattern = expected == Expected::Pattern && isPrefixPattern(memory_.lexeme.inner());
}

void Lexer::scanNumber(Expected expected) {
  const char* p = cursor_;
  while (p != end_ && isDigit(*p)) ++p;
  const bool whole = p == end_ || *p != '.';
  if (!whole) {
    ++p;
    while (p != end_ && isDigit(*p)) ++p;
  }
  if (p != end_ && (*p | 0x20) == 'e') {
    const char* exponent = p + 1;
    if (exponent != end_ && (*exponent == '+' || *exponent == '-')) ++exponent;
    if (exponent != end_ && isDigit(*exponent)) {
      p = exponent;
      while (p != end_ && isDigit(*p)) ++p;
    }
  }
  const char* begin = cursor_;
  finish(LexemeKind::Number, begin, p);
  if ((expected != Expected::Nothing || memory_.definesData) &&
      belongsToShape(expected, memory_.lexeme.source)) {
    memory_.lexeme.kind = LexemeKind::Ordinal;
  }
}

// A number that starts an expression in the list, such as "1 + x", is a literal like any other.
bool Lexer::belongsToShape(Expected expected, std::string_view digits) const {
  constexpr std::size_t kMostDigits = 9;
  if (digits.size() > kMostDigits || !std::all_of(digits.begin(), digits.end(), isDigit)) return false;
  if (memory_.definesData || expected == Expected::TopCount) return true;
  if (expected != Expected::Ordinal) return false;
  const char* p = cursor_;
  while (p != end_ && classOf(*p) == Blank) ++p;
  if (p == end_ || *p == ',' || *p == ')' || *p == ';') return true;
  return followsListItem(keywordOf({p, static_cast<std::size_t>(endOfWord(p, end_) - p)}));
}

bool Lexer::endsOperand() const {
  switch (memory_.lexeme.kind) {
    case LexemeKind::Word:
      return keywordOf(memory_.lexeme.source) == Keyword::None;
    case LexemeKind::QuotedName:
    case LexemeKind::Text:
    case LexemeKind::Number:
    case LexemeKind::Date:
    case LexemeKind::Ordinal:
      return true;
    case LexemeKind::Symbol:
      return memory_.lexeme.source == ")";
    case LexemeKind::End:
      break;
  }
  return false;
}

bool Lexer::scanHexadecimal() {
  if (end_ - cursor_ < 3 || (cursor_[1] | 0x20) != 'h' || !isHexDigit(cursor_[2]) || endsOperand())
    return false;
  constexpr int kMostDigits = 8;
  const char* p = cursor_ + 2;
  while (p != end_ && isHexDigit(*p)) ++p;
  if (p - cursor_ > 2 + kMostDigits || (p != end_ && continuesWord(p, end_))) return false;
  finish(LexemeKind::Number, cursor_, p);
  return true;
}

void Lexer::scanDate() {
  const auto* close =
      static_cast<const char*>(std::memchr(cursor_ + 1, '#', static_cast<std::size_t>(end_ - cursor_ - 1)));
  if (close == nullptr || std::none_of(cursor_, close, isDigit)) fail(SyntaxFault::Date);
  finish(LexemeKind::Date, cursor_, close + 1);
}

// Behind a name the point leads to a column; elsewhere it may begin a fraction.
void Lexer::scanPoint() {
  const bool touchesName = !memory_.lexeme.blankBefore && (memory_.lexeme.kind == LexemeKind::Word ||
                                                           memory_.lexeme.kind == LexemeKind::QuotedName);
  if (!touchesName && cursor_ + 1 != end_ && isDigit(cursor_[1])) {
    scanNumber(Expected::Nothing);
  } else {
    finish(LexemeKind::Symbol, cursor_, cursor_ + 1);
  }
}

void Lexer::scanSymbol() {
  const char c = *cursor_;
  const char second = cursor_ + 1 == end_ ? '\0' : cursor_[1];
  switch (c) {
    case '(':
      ++memory_.depth;
      break;
    case ')':
      --memory_.depth;
      if (memory_.depth < memory_.listDepth) memory_.listDepth = -1;
      break;
    case ',':
      if (memory_.depth == memory_.listDepth) memory_.expected = Expected::Ordinal;
      break;
    default:
      break;
  }
  const bool pair = (c == '<' && (second == '=' || second == '>')) || (c == '>' && second == '=') ||
                    (c == '=' && (second == '<' || second == '>'));
  finish(LexemeKind::Symbol, cursor_, cursor_ + (pair ? 2 : 1));
}

}  // namespace zelkor::dialect
