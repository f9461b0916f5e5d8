#include "store/dialect/reading/Shape.h"

#include <charconv>
#include <cstdint>
#include <cstring>

#include "store/dialect/reading/Lexer.h"

namespace zelkor::dialect {
namespace {

// Each literal is one byte of the key that no statement can hold outside its quotes.
constexpr char kText = '\x01';
constexpr char kNumber = '\x02';
constexpr char kDate = '\x03';
constexpr char kPrefixPattern = '\x04';
constexpr char kBlankAtEnd = '\x05';

std::string withSingleQuotes(std::string_view source, char quote) {
  std::string content;
  for (std::size_t i = 0; i < source.size(); ++i) {
    content.push_back(source[i]);
    if (source[i] == quote) ++i;
  }
  return content;
}

/// The platform reads up to four hexadecimal digits as a 16-bit number and more as a 32-bit one, both signed.
std::string decimalOf(std::string_view digits) {
  constexpr std::size_t kDigitsOfShort = 4;
  std::uint32_t bits = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), bits, 16);
  if (digits.size() <= kDigitsOfShort) return std::to_string(static_cast<std::int16_t>(bits));
  return std::to_string(static_cast<std::int32_t>(bits));
}

char liftText(const Lexeme& lexeme, std::vector<Literal>& literals) {
  Literal& literal = literals.emplace_back();
  literal.kind = LiteralKind::Text;
  literal.text = lexeme.inner();
  literal.prefixPattern = lexeme.prefixPattern;
  literal.blankAtEnd = literal.text.ends_with(' ');
  if (lexeme.doubledQuotes)
    literal.resolved =
        std::make_shared<const std::string>(withSingleQuotes(literal.text, lexeme.source.front()));
  if (literal.blankAtEnd) return kBlankAtEnd;
  return lexeme.prefixPattern ? kPrefixPattern : kText;
}

char liftNumber(const Lexeme& lexeme, std::vector<Literal>& literals) {
  Literal& literal = literals.emplace_back();
  literal.kind = LiteralKind::Number;
  literal.text = lexeme.source;
  if (literal.text.front() == '&')
    literal.resolved = std::make_shared<const std::string>(decimalOf(literal.text.substr(2)));
  return kNumber;
}

char liftDate(const Lexeme& lexeme, std::vector<Literal>& literals) {
  Literal& literal = literals.emplace_back();
  literal.kind = LiteralKind::Date;
  literal.text = lexeme.inner();
  return kDate;
}

/// Adds the literal and gives its byte of the key; 0 for what is none.
char lift(const Lexeme& lexeme, std::vector<Literal>& literals) {
  switch (lexeme.kind) {
    case LexemeKind::Text:
      return liftText(lexeme, literals);
    case LexemeKind::Number:
      return liftNumber(lexeme, literals);
    case LexemeKind::Date:
      return liftDate(lexeme, literals);
    default:
      return '\0';
  }
}

/// Writes the key after the lexer. What is in the statement as it shall be in the key is copied in
/// runs.
class KeyWriter {
 public:
  KeyWriter(std::string_view statement, std::string& key)
      : key_(key), runBegin_(statement.data()), runEnd_(statement.data()) {
    key_.resize(statement.size());  // the key is never longer
    out_ = key_.data();
  }

  void keep(const Lexeme& lexeme) {
    const char* begin = lexeme.source.data();
    if (begin != runEnd_ && (runBegin_ == runEnd_ || begin - runEnd_ > 1 || *runEnd_ != ' ')) {
      blank();
      runBegin_ = begin;
    }
    runEnd_ = begin + lexeme.source.size();
  }

  void lift(const Lexeme& lexeme, char mark) {
    if (lexeme.blankBefore) {
      blank();
    } else {
      endRun();
    }
    *out_++ = mark;
    runBegin_ = runEnd_ = lexeme.source.data() + lexeme.source.size();
  }

  void finish() {
    endRun();
    key_.resize(static_cast<std::size_t>(out_ - key_.data()));
  }

 private:
  void endRun() {
    const auto length = static_cast<std::size_t>(runEnd_ - runBegin_);
    std::memcpy(out_, runBegin_, length);
    out_ += length;
  }

  void blank() {
    endRun();
    if (out_ != key_.data()) *out_++ = ' ';
  }

  std::string& key_;
  char* out_ = nullptr;
  const char* runBegin_;
  const char* runEnd_;
};

}  // namespace

void shapeOf(std::string_view statement, Shape& shape) {
  shape.literals.clear();
  KeyWriter key(statement, shape.key);
  Lexer lexer(statement);
  for (;;) {
    const Lexeme& lexeme = lexer.next();
    if (lexeme.kind == LexemeKind::End) return key.finish();
    if (const char mark = lift(lexeme, shape.literals)) {
      key.lift(lexeme, mark);
    } else {
      key.keep(lexeme);
    }
  }
}

struct ShapeSample::Place {
  std::string_view before;  // the text between the literal before and this one, without the blanks at its end
  Lexer lexer;              // after that text
  bool blankBefore;
  char mark;
};

ShapeSample::ShapeSample(std::string_view statement) : statement_(statement), tail_(statement_) {
  std::vector<Literal> literals;
  Lexer lexer(statement_);
  for (;;) {
    const Lexer before = lexer;
    const Lexeme& lexeme = lexer.next();
    if (lexeme.kind == LexemeKind::End) return;
    const char mark = lift(lexeme, literals);
    if (mark == '\0') continue;
    const std::size_t length = tail_.size() - before.rest().size();
    places_.push_back({tail_.substr(0, length), before, lexeme.blankBefore, mark});
    tail_ = lexer.rest();
  }
}

ShapeSample::~ShapeSample() = default;

std::size_t ShapeSample::firstLiteral() const {
  return places_.empty() ? statement_.size() : places_.front().before.size();
}

bool ShapeSample::matches(std::string_view other, std::vector<Literal>& literals) const {
  literals.clear();
  Lexer lexer(other);
  for (const Place& place : places_) {
    if (!lexer.passOver(place.before, place.lexer)) return false;
    const Lexeme& lexeme = lexer.next();
    if (lexeme.blankBefore != place.blankBefore || lift(lexeme, literals) != place.mark) return false;
  }
  return lexer.rest() == tail_;
}

}  // namespace zelkor::dialect
