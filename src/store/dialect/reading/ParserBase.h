#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/dialect/reading/ParseError.h"
#include "store/dialect/reading/Token.h"

namespace zelkor::dialect {

/// Reading position in the tokens of one statement, with lookahead, and the limits that keep a hostile
/// statement from exhausting the stack.
class ParserBase {
 public:
  explicit ParserBase(std::string_view statement);

  /// How many literals the statement holds.
  std::size_t literals() const { return literals_; }

 protected:
  /// Counts one more level of nesting as long as it lives; too many are a syntax error.
  class Nesting {
   public:
    explicit Nesting(ParserBase& parser);
    ~Nesting() { --parser_.nesting_; }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;

   private:
    ParserBase& parser_;
  };

  const Token& peek(std::size_t ahead = 0) const;
  Token take();
  bool at(Symbol symbol, std::size_t ahead = 0) const { return peek(ahead).symbol == symbol; }
  bool at(Keyword keyword, std::size_t ahead = 0) const { return peek(ahead).keyword == keyword; }
  /// An unreserved word of the grammar, given in lower case.
  bool atWord(std::string_view lower, std::size_t ahead = 0) const;
  bool atName(std::size_t ahead = 0) const;

  template <typename What>
  bool accept(What what) {
    if (!at(what)) return false;
    take();
    return true;
  }
  bool acceptWord(std::string_view lower);
  template <typename What>
  void expect(What what) {
    if (!accept(what)) fail();
  }
  void expectWord(std::string_view lower);
  /// A name, in brackets or unreserved.
  std::string expectName();
  int expectOrdinal();
  /// Takes a closing semicolon; anything else than the end of the statement fails.
  void expectEnd();

  /// Counts an operator: a long chain of operators is a deep tree.
  void countOperator();
  std::size_t operators() const { return operators_; }
  /// Goes on counting from there, for an expression that is beside the one counted last.
  void returnToOperators(std::size_t operators) { operators_ = operators; }
  /// The next token begins the piece that an error names.
  void beginPiece() { pieceBegin_ = position_; }
  std::size_t piece() const { return pieceBegin_; }
  void returnToPiece(std::size_t piece) { pieceBegin_ = piece; }

  /// Raises the error of the statement at the next token.
  [[noreturn]] void fail(SyntaxFault fault = SyntaxFault::Syntax) const;

 private:
  std::size_t endOfPiece() const;

  std::string_view statement_;
  std::vector<Token> tokens_;
  std::size_t position_ = 0;
  std::size_t pieceBegin_ = 0;
  std::size_t nesting_ = 0;
  std::size_t operators_ = 0;
  std::size_t literals_ = 0;
};

}  // namespace zelkor::dialect
