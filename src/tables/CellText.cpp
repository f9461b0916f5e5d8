#include "tables/CellText.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/Conversion.h"
#include "base/DateTime.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr std::size_t kColumns = 16384;
constexpr std::size_t kExactDigits = 15;
constexpr double kDays1904 = 1462;     // between the two days from which workbooks count
constexpr double kFirstRightDay = 61;  // before it workbooks count a 29th of February 1900
constexpr double kDaysToYear10000 = 2958466;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

/// The code without what is only shown: texts in quotes, colours and places in brackets, escaped characters.
std::string bareCode(std::string_view code) {
  std::string bare;
  char until = 0;
  for (std::size_t i = 0; i < code.size(); ++i) {
    const char c = code[i];
    if (until != 0) {
      if (c == until) until = 0;
    } else if (c == '"' || c == '[') {
      until = c == '"' ? '"' : ']';
    } else if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else if (c == ';') {
      break;  // what follows is for negative numbers
    } else {
      bare += c;
    }
  }
  return bare;
}

std::string dateText(double serial, bool from1904) {
  if (from1904) serial += kDays1904;
  if (serial < kFirstRightDay) serial += 1;
  const DateTime date = DateTime::fromSerial(serial);
  constexpr std::size_t kDay = 10;
  return date.isMidnight() ? date.toIso().substr(0, kDay) : date.toIso();
}

std::string padded(std::string number, std::size_t digits) {
  if (number.size() < digits) number.insert(0, digits - number.size(), '0');
  return number;
}

/// A whole number without an exponent, which is exact as it stands.
bool isShortWhole(std::string_view text) {
  const std::string_view digits = text.substr(text.starts_with('-') ? 1 : 0);
  return !digits.empty() && digits.size() <= kExactDigits && std::ranges::all_of(digits, isDigit);
}

std::string plainText(double value) {
  constexpr double kLargestExact = 1e15;
  if (value != std::trunc(value) || std::fabs(value) >= kLargestExact) return textOfDouble(value);
  return std::to_string(static_cast<std::int64_t>(value));
}

}  // namespace

NumberStyle styleOfFormat(std::string_view code) {
  const std::string bare = bareCode(code);
  if (!bare.empty() && std::ranges::all_of(bare, [](char c) { return c == '0'; }))
    return {NumberStyle::Kind::Padded, bare.size()};
  // A time alone is no date; "E" of an exponent is no day either.
  if (bare.find_first_of("yYdD") != std::string::npos && bare.find("General") == std::string::npos)
    return {NumberStyle::Kind::Date};
  return {};
}

NumberStyle styleOfFormat(int number) {
  const auto within = [number](int first, int last) { return number >= first && number <= last; };
  const bool isDate =
      within(14, 17) || number == 22 || within(27, 31) || number == 36 || within(50, 54) || within(57, 58);
  return {isDate ? NumberStyle::Kind::Date : NumberStyle::Kind::Plain};
}

std::string numberText(std::string_view stored, NumberStyle style, bool from1904) {
  const bool isWhole = isShortWhole(stored);
  if (style.kind == NumberStyle::Kind::Plain && isWhole) return std::string(stored);
  if (style.kind == NumberStyle::Kind::Padded && isWhole && !stored.starts_with('-'))
    return padded(std::string(stored), style.digits);
  double value = 0;
  const auto [end, failure] = std::from_chars(stored.data(), stored.data() + stored.size(), value);
  if (failure != std::errc() || end != stored.data() + stored.size() || !std::isfinite(value))
    return std::string(stored);
  if (style.kind == NumberStyle::Kind::Date && value >= 0 && value < kDaysToYear10000 - kDays1904)
    return dateText(value, from1904);
  return plainText(value);
}

std::string unescaped(std::string text) {
  constexpr std::size_t kLength = 7;  // of _x000A_
  for (std::size_t at = text.find("_x"); at != std::string::npos; at = text.find("_x", at + 1)) {
    const char* digits = text.data() + at + 2;
    if (at + kLength > text.size() || text[at + kLength - 1] != '_') continue;
    unsigned code = 0;
    const auto [end, failure] = std::from_chars(digits, digits + 4, code, 16);
    if (failure != std::errc() || end != digits + 4 || code == 0 || code >= 0x80) continue;
    text.replace(at, kLength, 1, static_cast<char>(code));
  }
  return text;
}

std::optional<std::size_t> columnOfCell(std::string_view cell) {
  std::size_t column = 0;
  for (const char c : cell) {
    if (c < 'A' || c > 'Z') break;
    column = column * 26 + static_cast<std::size_t>(c - 'A') + 1;
    if (column > kColumns) return std::nullopt;
  }
  return column == 0 ? std::nullopt : std::optional(column - 1);
}

}  // namespace zelkor
