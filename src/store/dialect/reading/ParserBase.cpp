#include "store/dialect/reading/ParserBase.h"

#include <algorithm>
#include <charconv>

#include "store/dialect/reading/Lexer.h"

namespace zelkor::dialect {
namespace {

constexpr std::size_t kMostNesting = 100;
constexpr std::size_t kMostOperators = 3000;

bool beginsClause(Keyword keyword) {
  switch (keyword) {
    case Keyword::From:
    case Keyword::Where:
    case Keyword::Group:
    case Keyword::Having:
    case Keyword::Order:
    case Keyword::Union:
    case Keyword::Into:
    case Keyword::Set:
      return true;
    default:
      return false;
  }
}

}  // namespace

ParserBase::ParserBase(std::string_view statement) : statement_(statement), tokens_(tokenize(statement)) {
  literals_ = static_cast<std::size_t>(std::count_if(
      tokens_.begin(), tokens_.end(), [](const Token& token) { return token.kind == TokenKind::Literal; }));
}

ParserBase::Nesting::Nesting(ParserBase& parser) : parser_(parser) {
  if (parser_.nesting_ >= kMostNesting) parser_.fail();
  ++parser_.nesting_;
}

const Token& ParserBase::peek(std::size_t ahead) const {
  return tokens_[std::min(position_ + ahead, tokens_.size() - 1)];
}

Token ParserBase::take() {
  const Token token = peek();
  if (position_ + 1 < tokens_.size()) ++position_;
  return token;
}

bool ParserBase::atWord(std::string_view lower, std::size_t ahead) const {
  const Token& token = peek(ahead);
  return token.kind == TokenKind::Word && token.text.size() == lower.size() &&
         std::equal(lower.begin(), lower.end(), token.text.begin(),
                    [](char wanted, char given) { return wanted == (given | 0x20); });
}

bool ParserBase::atName(std::size_t ahead) const {
  const Token& token = peek(ahead);
  return token.kind == TokenKind::QuotedName ||
         (token.kind == TokenKind::Word && token.keyword == Keyword::None);
}

bool ParserBase::acceptWord(std::string_view lower) {
  if (!atWord(lower)) return false;
  take();
  return true;
}

void ParserBase::expectWord(std::string_view lower) {
  if (!acceptWord(lower)) fail();
}

std::string ParserBase::expectName() {
  if (!atName()) fail();
  return std::string(take().text);
}

int ParserBase::expectOrdinal() {
  if (peek().kind != TokenKind::Ordinal) fail();
  const std::string_view digits = take().text;
  int value = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), value);
  return value;
}

void ParserBase::expectEnd() {
  const bool closed = accept(Symbol::Semicolon);
  if (peek().kind == TokenKind::End) return;
  if (closed) {
    beginPiece();
    fail(SyntaxFault::BehindEnd);
  }
  fail(SyntaxFault::MissingOperator);
}

void ParserBase::countOperator() {
  if (++operators_ > kMostOperators) fail();
}

// From the beginning of the expression to the end of its clause, as the engine names it.
std::size_t ParserBase::endOfPiece() const {
  int depth = 0;
  std::size_t i = pieceBegin_;
  for (; i + 1 < tokens_.size(); ++i) {
    const Token& token = tokens_[i];
    if (token.symbol == Symbol::LeftParenthesis) ++depth;
    if (token.symbol == Symbol::RightParenthesis) --depth;
    const bool closes =
        depth < 0 || (depth == 0 && (token.symbol == Symbol::Comma || beginsClause(token.keyword)));
    if (i > position_ && closes) break;
  }
  return i == pieceBegin_ ? statement_.size() : tokens_[i - 1].end;
}

void ParserBase::fail(SyntaxFault fault) const {
  const bool nothingLeft = tokens_[pieceBegin_].kind == TokenKind::End && pieceBegin_ > 0;
  const std::size_t begin = tokens_[nothingLeft ? pieceBegin_ - 1 : pieceBegin_].begin;
  const std::size_t end = fault == SyntaxFault::BehindEnd ? statement_.size() : endOfPiece();
  const std::size_t at = peek().begin > begin ? peek().begin - begin : 0;
  raiseSyntaxError(statement_, fault, statement_.substr(begin, end - begin), at);
}

}  // namespace zelkor::dialect
