#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor::dialect {

enum class LiteralKind : unsigned char { Text, Number, Date };

/// A constant lifted out of a statement. `text` points into the statement (between the quotes, hashes, or the
/// number's own characters); a text literal with doubled quotes keeps its resolved content in `resolved`, a
/// hexadecimal number its decimal digits. The sign of a number is an operator and not part of it.
struct Literal {
  LiteralKind kind{};
  /// A text directly after LIKE that is a plain prefix followed by one "*": part of the shape.
  bool prefixPattern = false;
  /// A text that ends in a blank: part of the shape.
  bool blankAtEnd = false;
  std::string_view text;
  std::shared_ptr<const std::string> resolved;  // mostly none: literals are copied with every query

  std::string_view content() const { return resolved ? std::string_view(*resolved) : text; }
};

/// A statement without its constants. Two statements with equal keys have one translation and one prepared
/// statement; they differ only in `literals`.
///
/// The key keeps what translation depends on: the kind of each literal, whether a text literal after LIKE is
/// a plain prefix followed by one "*" (such a pattern can use an index), whether a text ends in a blank (such
/// a text is compared in two forms), the number after TOP, ordinals, and the numbers of CREATE and ALTER. It
/// keeps the spelling of names, since result columns bear it.
struct Shape {
  std::string key;
  std::vector<Literal> literals;
};

/// Scans a statement once. Raises 3075 (or 3134 within INSERT) for an unclosed quote or hash and for a
/// character that starts no token.
void shapeOf(std::string_view statement, Shape& shape);  // reuses the buffers of `shape`

/// A statement by which others of its shape are recognised: jobs run the same few statements again and again.
/// The text around the literals is compared as a whole, and only the literals are read.
class ShapeSample {
 public:
  explicit ShapeSample(std::string_view statement);
  ShapeSample(const ShapeSample&) = delete;
  ShapeSample& operator=(const ShapeSample&) = delete;
  ~ShapeSample();

  std::string_view statement() const { return statement_; }
  /// Where the text before the first literal ends; the length of a statement without any.
  std::size_t firstLiteral() const;
  /// Whether the other statement differs in nothing but its literals, which are then put into `literals`. Of
  /// a statement that differs in its blanks it may say no.
  bool matches(std::string_view other, std::vector<Literal>& literals) const;

 private:
  struct Place;

  std::string statement_;
  std::vector<Place> places_;  // of the literals
  std::string_view tail_;      // what follows the last of them
};

}  // namespace zelkor::dialect
