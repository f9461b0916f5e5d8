#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zelkor::dialect {

/// Words that cannot serve as a name without brackets. Other words of the grammar (PRIMARY, COLUMN, OPTION,
/// ...) mean something only in their places and are names elsewhere.
enum class Keyword : std::uint8_t {
  None,
  All,
  Alter,
  And,
  Any,
  As,
  Asc,
  Between,
  By,
  Create,
  Delete,
  Desc,
  Distinct,
  DistinctRow,
  Drop,
  Eqv,
  Exists,
  False,
  From,
  Group,
  Having,
  Imp,
  In,
  Inner,
  Insert,
  Into,
  Is,
  Join,
  Left,
  Like,
  Mod,
  Not,
  Null,
  On,
  Or,
  Order,
  Right,
  Select,
  Set,
  Some,
  Top,
  True,
  Union,
  Update,
  Values,
  Where,
  With,
  Xor
};

/// The reserved word spelt like this in any case, or None.
Keyword keywordOf(std::string_view word);

enum class Symbol : std::uint8_t {
  None,
  LeftParenthesis,
  RightParenthesis,
  Comma,
  Semicolon,
  Point,
  Star,
  Plus,
  Minus,
  Slash,
  Backslash,
  Caret,
  Ampersand,
  Equal,
  NotEqual,
  Less,
  LessEqual,
  Greater,
  GreaterEqual
};

enum class TokenKind : std::uint8_t { End, Word, QuotedName, Literal, Ordinal, Symbol };

/// A word, name, constant or sign of a statement. The views point into the statement.
struct Token {
  TokenKind kind = TokenKind::End;
  Keyword keyword = Keyword::None;
  Symbol symbol = Symbol::None;
  std::size_t literal = 0;  // place among the literals
  std::string_view text;    // of a quoted name: without its brackets
  std::size_t begin = 0;    // offsets in the statement
  std::size_t end = 0;
};

}  // namespace zelkor::dialect
