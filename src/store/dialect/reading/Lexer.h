#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "store/dialect/reading/ParseError.h"
#include "store/dialect/reading/Token.h"

namespace zelkor::dialect {

enum class LexemeKind : std::uint8_t { End, Word, QuotedName, Text, Number, Date, Ordinal, Symbol };

/// A piece of a statement as the scanner finds it.
struct Lexeme {
  LexemeKind kind = LexemeKind::End;
  bool blankBefore = false;
  bool doubledQuotes = false;  // a text that holds its own quote, written twice
  bool prefixPattern = false;  // see Literal
  std::string_view source;     // with quotes, hashes or brackets

  /// What comes between the quotes, hashes or brackets.
  std::string_view inner() const { return source.substr(1, source.size() - 2); }
};

/// Walks over a statement once, without allocating. It alone decides which constants are literals and which
/// numbers belong to the shape, so that the shape and the tree always count alike.
class Lexer {
 public:
  explicit Lexer(std::string_view statement)
      : statement_(statement), cursor_(statement.data()), end_(statement.data() + statement.size()) {}

  /// The next piece; of kind End for ever after the last. Raises the error of a syntax fault.
  const Lexeme& next();
  /// The text that has not been read.
  std::string_view rest() const { return {cursor_, static_cast<std::size_t>(end_ - cursor_)}; }

  /// Passes over `text`, the last piece of which `other` has just read; false when the statement goes on
  /// otherwise.
  bool passOver(std::string_view text, const Lexer& other);

 private:
  enum class Expected : std::uint8_t { Nothing, Pattern, TopCount, Ordinal };

  void skipBlanks();
  void scanWord();
  void scanQuotedName(char closing);
  void scanText(Expected expected);
  void scanNumber(Expected expected);
  bool scanHexadecimal();
  void scanDate();
  void scanPoint();
  void scanSymbol();
  void noteWord(std::string_view word);
  void noteFirstWord(std::string_view word);
  bool endsOperand() const;
  bool belongsToShape(Expected expected, std::string_view digits) const;
  void finish(LexemeKind kind, const char* begin, const char* end);
  [[noreturn]] void fail(SyntaxFault fault) const;

  /// What is known of the text that has been read.
  struct Memory {
    Lexeme lexeme;
    Expected expected = Expected::Nothing;
    bool first = true;
    bool definesData = false;  // CREATE or ALTER: its numbers are sizes
    int depth = 0;
    int listDepth = -1;  // depth of the parentheses around the ORDER BY or GROUP BY list that is being read
  };

  std::string_view statement_;
  const char* cursor_;
  const char* end_;
  Memory memory_;
};

/// The whole statement as tokens, with one of kind End after the last.
std::vector<Token> tokenize(std::string_view statement);

}  // namespace zelkor::dialect
