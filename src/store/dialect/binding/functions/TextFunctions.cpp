#include <algorithm>
#include <array>
#include <limits>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/dialect/binding/functions/LikePattern.h"
#include "store/dialect/binding/functions/SqlFunction.h"

namespace zelkor::dialect {
namespace {

using enum ColumnType;

const std::string& text(const Value& value) {
  return value.as<std::string>();
}

// A number of characters, a tie rounded to the even one; error 5 for what no text can have.
std::size_t count(const Value& value) {
  const double number = roundHalfEven(value.as<double>());
  if (!(number >= 0 && number <= std::numeric_limits<std::int32_t>::max()))
    throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  return static_cast<std::size_t>(number);
}

// The number of a character, from 1.
std::size_t place(const Value& value) {
  const std::size_t place = count(value);
  if (place == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  return place;
}

std::string folded(const Value& value) {
  std::string letters = text(value);
  for (char& c : letters)
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  return letters;
}

Value placeOf(const Value& searched, const Value& part, std::size_t start) {
  const std::string letters = folded(searched);
  if (start > std::max<std::size_t>(Len(letters), 1)) return 0;
  const std::size_t found = letters.find(folded(part), Left(letters, start - 1).size());
  if (found == std::string::npos) return 0;
  return static_cast<std::int32_t>(Len(std::string_view(letters).substr(0, found))) + 1;
}

Value order(Arguments a) {
  const int order = folded(a[0]).compare(folded(a[1]));
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

constexpr std::string_view kOrderOnServer =
    "CASE WHEN lower(a) < lower(b) THEN -1 WHEN lower(a) > lower(b) THEN 1 ELSE 0 END";

constexpr std::array kRows{
    SqlFunction{"Len", "t", Long, "length", nullptr, "", "how many characters a text has"},
    SqlFunction{"Left", "tn", Text, "zk_left",
                [](Arguments a) -> Value { return Left(text(a[0]), count(a[1])); },
                "left(a, zk_length(b, 0))", "the first so many characters"},
    SqlFunction{"Right", "tn", Text, "zk_right",
                [](Arguments a) -> Value { return Right(text(a[0]), count(a[1])); },
                "right(a, zk_length(b, 0))", "the last so many characters"},
    SqlFunction{"Mid", "tn", Text, "zk_mid",
                [](Arguments a) -> Value { return Mid(text(a[0]), place(a[1])); },
                "substr(a, zk_length(b, 1))", "from a character on, the first being 1"},
    SqlFunction{"Mid", "tnn", Text, "zk_mid",
                [](Arguments a) -> Value { return Mid(text(a[0]), place(a[1]), count(a[2])); },
                "substr(a, zk_length(b, 1), zk_length(c, 0))", "so many characters from one on"},
    SqlFunction{"Trim", "t", Text, "trim", nullptr, "", "without blanks at either end"},
    SqlFunction{"LTrim", "t", Text, "ltrim", nullptr, "", "without blanks at the beginning"},
    SqlFunction{"RTrim", "t", Text, "rtrim", nullptr, "", "without blanks at the end"},
    SqlFunction{"UCase", "t", Text, "upper", nullptr, "", "in upper case"},
    SqlFunction{"LCase", "t", Text, "lower", nullptr, "", "in lower case"},
    SqlFunction{"InStr", "tt", Long, "zk_instr", [](Arguments a) { return placeOf(a[0], a[1], 1); },
                "strpos(lower(a), lower(b))",
                "where the second text begins in the first, in any case; 0 where it does not"},
    SqlFunction{"InStr", "ntt", Long, "zk_instr",
                [](Arguments a) { return placeOf(a[1], a[2], place(a[0])); },
                "CASE WHEN zk_length(a, 1) > greatest(length(b), 1) "
                "OR strpos(lower(substr(b, zk_length(a, 1))), lower(c)) = 0 THEN 0 "
                "ELSE strpos(lower(substr(b, zk_length(a, 1))), lower(c)) + zk_length(a, 1) - 1 END",
                "the same from a character on"},
    // Over citext the server's function of that name replaces in any case.
    SqlFunction{"Replace", "ttt", Text, "replace", nullptr, "replace(a, b, c)",
                "with the second text replaced by the third"},
    SqlFunction{"StrComp", "tt", Short, "zk_strcomp", order, kOrderOnServer,
                "-1, 0 or 1, as the first text comes before, with or after the second, in any case"},
    SqlFunction{"StrComp", "ttn", Short, "zk_strcomp", order, kOrderOnServer,
                "the same, whatever way of comparing is asked for"},
    SqlFunction{
        "Format", "vt", Text, "zk_format", [](Arguments a) -> Value { return Format(a[0], text(a[1])); },
        "CASE WHEN b IS NOT NULL THEN zk_shown(a::text, b) END", "a number or a date under a picture"},
    // 1 and 0: a condition of the engine, no value.
    SqlFunction{"", "tt", Boolean, "zk_like",
                [](Arguments a) -> Value { return isLike(text(a[1]), text(a[0])) ? 1 : 0; }},
};

}  // namespace

std::span<const SqlFunction> textFunctions() {
  return kRows;
}

}  // namespace zelkor::dialect
