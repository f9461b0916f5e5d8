#include "base/NumberText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/Conversion.h"
#include "base/Text.h"

namespace zelkor {
namespace {

constexpr int kSignificantDigits = 15;

bool isBlank(char c) {
  return c == ' ' || c == '\t' || c == '\n' || c == '\r';
}

int digitValue(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  const char lower = static_cast<char>(c | 0x20);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : 99;
}

// &H1F and &O17. Up to 16 bits the value is a 16-bit integer, up to 32 bits a 32-bit one, so that &HFFFF is
// -1.
Numeral readRadix(std::string_view text) {
  Numeral numeral;
  if (text.size() < 3 || text[0] != '&') return numeral;
  const char letter = static_cast<char>(text[1] | 0x20);
  const int radix = letter == 'h' ? 16 : letter == 'o' ? 8 : 0;
  std::uint64_t bits = 0;
  std::size_t at = 2;
  while (at < text.size() && digitValue(text[at]) < radix && bits <= 0xFFFFFFFF) {
    bits = bits * static_cast<unsigned>(radix) + static_cast<unsigned>(digitValue(text[at]));
    ++at;
  }
  if (at == 2 || bits > 0xFFFFFFFF) return numeral;
  const bool isLong = bits > 0xFFFF || (at < text.size() && text[at] == '&');
  const std::int64_t value = isLong ? static_cast<std::int32_t>(bits) : static_cast<std::int16_t>(bits);
  numeral.value = {value < 0, static_cast<std::uint64_t>(std::abs(value)), 0};
  numeral.length = at;
  return numeral;
}

// What surrounds the digits of a number that is written by hand.
struct Surroundings {
  bool negative = false;
  bool signSeen = false;
  bool currencySeen = false;
  bool parenthesis = false;

  bool takeSign(char c) {
    if ((c != '-' && c != '+') || signSeen) return false;
    signSeen = true;
    negative = c == '-';
    return true;
  }
};

std::size_t currencySignLength(std::string_view text) {
  for (const std::string_view sign : {"￥", "¥"}) {
    if (text.starts_with(sign)) return sign.size();
  }
  return 0;
}

std::string_view skipBefore(std::string_view text, Surroundings& around) {
  while (!text.empty()) {
    const char c = text.front();
    if (isBlank(c) || around.takeSign(c)) {
      text.remove_prefix(1);
    } else if (c == '(' && !around.parenthesis && !around.signSeen) {
      around.parenthesis = true;
      around.signSeen = true;
      around.negative = true;
      text.remove_prefix(1);
    } else if (const std::size_t length = currencySignLength(text); length != 0 && !around.currencySeen) {
      around.currencySeen = true;
      text.remove_prefix(length);
    } else {
      break;
    }
  }
  return text;
}

bool onlyTrailers(std::string_view text, Surroundings& around) {
  bool closed = !around.parenthesis;
  for (const char c : text) {
    if (isBlank(c) || around.takeSign(c)) continue;
    if (c != ')' || closed) return false;
    closed = true;
  }
  return closed;
}

std::string exponentText(std::string_view digits, int exponent) {
  std::string text(digits.substr(0, 1));
  if (digits.size() > 1) {
    text.push_back('.');
    text += digits.substr(1);
  }
  text += exponent < 0 ? "E-" : "E+";
  const int magnitude = std::abs(exponent);
  if (magnitude < 10) text.push_back('0');
  return text + std::to_string(magnitude);
}

Decimal withoutTrailingZeros(Decimal value) {
  if (value.isZero()) return {};
  while (value.coefficient % 10 == 0) {
    value.coefficient /= 10;
    ++value.exponent;
  }
  return value;
}

std::string digitsOf(std::uint64_t coefficient) {
  std::array<char, 24> buffer{};
  return {buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), coefficient).ptr};
}

}  // namespace

std::string plainText(const Decimal& value) {
  const Decimal trimmed = withoutTrailingZeros(value);
  std::string digits = digitsOf(trimmed.coefficient);
  if (trimmed.exponent >= 0) {
    digits.append(static_cast<std::size_t>(trimmed.exponent), '0');
  } else {
    const auto decimals = static_cast<std::size_t>(-trimmed.exponent);
    if (digits.size() <= decimals) digits.insert(0, decimals + 1 - digits.size(), '0');
    digits.insert(digits.size() - decimals, 1, '.');
  }
  if (trimmed.negative) digits.insert(0, 1, '-');
  return digits;
}

std::string textOfDouble(double value) {
  if (std::isnan(value)) return "-1.#IND";
  if (std::isinf(value)) return value < 0 ? "-1.#INF" : "1.#INF";
  const Decimal decimal = withoutTrailingZeros(decimalOf(value));
  const std::string digits = digitsOf(decimal.coefficient);
  const int wholeDigits = static_cast<int>(digits.size()) + decimal.exponent;
  if (wholeDigits <= kSignificantDigits && -decimal.exponent <= kSignificantDigits) return plainText(decimal);
  return (decimal.negative ? "-" : "") + exponentText(digits, wholeDigits - 1);
}

double Val(std::string_view text) {
  std::string compact;
  if (std::any_of(text.begin(), text.end(), isBlank)) {
    std::copy_if(text.begin(), text.end(), std::back_inserter(compact), [](char c) { return !isBlank(c); });
    text = compact;
  }
  const bool negative = text.starts_with('-');
  if (negative || text.starts_with('+')) text.remove_prefix(1);
  Numeral numeral = text.starts_with('&') ? readRadix(text) : readNumeral(text, false);
  if (numeral.length == 0) return 0;
  const double value = toDouble(numeral, text);
  return negative != numeral.value.negative && value != 0 ? -value : value;
}

std::optional<ParsedNumber> parseNumeral(std::string_view text) {
  Surroundings around;
  const std::string_view digits = skipBefore(text, around);
  ParsedNumber parsed;
  parsed.digits = digits;
  parsed.numeral = digits.starts_with('&') ? readRadix(digits) : readNumeral(digits, true);
  if (parsed.numeral.length == 0) return std::nullopt;
  if (!onlyTrailers(digits.substr(parsed.numeral.length), around)) return std::nullopt;
  parsed.numeral.value.negative = parsed.numeral.value.negative != around.negative;
  return parsed;
}

std::optional<double> parseNumber(std::string_view text) {
  const auto parsed = parseNumeral(text);
  if (!parsed) return std::nullopt;
  const double value = toDouble(parsed->numeral, parsed->digits);
  return parsed->numeral.value.negative && value != 0 ? -value : value;
}

}  // namespace zelkor
