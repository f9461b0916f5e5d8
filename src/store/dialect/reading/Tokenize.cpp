#include "store/dialect/reading/Lexer.h"

namespace zelkor::dialect {
namespace {

Symbol symbolOf(std::string_view source) {
  if (source.size() == 2) {
    if (source == "<>") return Symbol::NotEqual;
    return source == "<=" || source == "=<" ? Symbol::LessEqual : Symbol::GreaterEqual;
  }
  switch (source.front()) {
    case '(':
      return Symbol::LeftParenthesis;
    case ')':
      return Symbol::RightParenthesis;
    case ',':
      return Symbol::Comma;
    case ';':
      return Symbol::Semicolon;
    case '.':
    case '!':
      return Symbol::Point;  // "t!c" names a column as "t.c" does
    case '*':
      return Symbol::Star;
    case '+':
      return Symbol::Plus;
    case '-':
      return Symbol::Minus;
    case '/':
      return Symbol::Slash;
    case '\\':
      return Symbol::Backslash;
    case '^':
      return Symbol::Caret;
    case '&':
      return Symbol::Ampersand;
    case '=':
      return Symbol::Equal;
    case '<':
      return Symbol::Less;
    case '>':
      return Symbol::Greater;
    default:
      return Symbol::None;
  }
}

Token tokenOf(const Lexeme& lexeme, std::size_t literals) {
  Token token;
  token.text = lexeme.source;
  switch (lexeme.kind) {
    case LexemeKind::Word:
      token.kind = TokenKind::Word;
      token.keyword = keywordOf(lexeme.source);
      break;
    case LexemeKind::QuotedName:
      token.kind = TokenKind::QuotedName;
      token.text = lexeme.inner();
      break;
    case LexemeKind::Text:
    case LexemeKind::Number:
    case LexemeKind::Date:
      token.kind = TokenKind::Literal;
      token.literal = literals;
      break;
    case LexemeKind::Ordinal:
      token.kind = TokenKind::Ordinal;
      break;
    case LexemeKind::Symbol:
      token.kind = TokenKind::Symbol;
      token.symbol = symbolOf(lexeme.source);
      break;
    case LexemeKind::End:
      break;
  }
  return token;
}

}  // namespace

std::vector<Token> tokenize(std::string_view statement) {
  std::vector<Token> tokens;
  tokens.reserve(statement.size() / 4 + 1);
  Lexer lexer(statement);
  std::size_t literals = 0;
  for (;;) {
    const Lexeme& lexeme = lexer.next();
    Token token = tokenOf(lexeme, literals);
    token.begin = static_cast<std::size_t>(lexeme.source.data() - statement.data());
    token.end = token.begin + lexeme.source.size();
    if (token.kind == TokenKind::Literal) ++literals;
    tokens.push_back(token);
    if (token.kind == TokenKind::End) return tokens;
  }
}

}  // namespace zelkor::dialect
