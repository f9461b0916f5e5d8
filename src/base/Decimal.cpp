#include "base/Decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

__extension__ using Wide = unsigned __int128;

constexpr int kLargestExponent = 99999;  // beyond any double, and safe to add to

constexpr std::array<std::uint64_t, 20> powersOfTen() {
  std::array<std::uint64_t, 20> powers{};
  std::uint64_t power = 1;
  for (auto& entry : powers) {
    entry = power;
    power *= 10;
  }
  return powers;
}
constexpr auto kPowers = powersOfTen();

// Powers that a double holds exactly: dividing or multiplying by one of them rounds only once.
constexpr std::array<double, 23> kExactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                 1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
// 10^-3 to 10^15: the upper bounds of the numbers that have -3 to 15 digits before the point.
constexpr std::array<double, 19> kTens = {1e-3, 1e-2, 1e-1, 1e0,  1e1,  1e2,  1e3,  1e4,  1e5, 1e6,
                                          1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15};
constexpr std::uint64_t kExactInteger = std::uint64_t{1} << 53;

bool isDigit(char c) {
  return c >= '0' && c <= '9';
}

// Amounts have at most four decimals. Where dividing the candidate gives back the very double, the candidate
// is its decimal text: fewer than 16 digits always find the way back.
bool asShortDecimal(double magnitude, Decimal& result) {
  for (const int places : {0, 4}) {
    const double scaled = magnitude * kExactPowers[static_cast<std::size_t>(places)];
    if (scaled >= 1e15) return false;
    const double whole = std::nearbyint(scaled);
    if (whole / kExactPowers[static_cast<std::size_t>(places)] != magnitude) continue;
    result.coefficient = static_cast<std::uint64_t>(whole);
    result.exponent = -places;
    return true;
  }
  return false;
}

// Between 0.001 and 1e15 the digits come exactly from a product of 128 bits: magnitude is m / 2^shift with m
// of 53 bits, and m times a power of ten up to 10^17 stays below 2^110. A tie goes to the even digit, as in
// the library's exact printing.
bool asScaledInteger(double magnitude, Decimal& result) {
  if (!(magnitude >= 1e-3 && magnitude < 1e15)) return false;
  int binaryExponent = 0;
  const auto mantissa = static_cast<std::uint64_t>(std::ldexp(std::frexp(magnitude, &binaryExponent), 53));
  const int shift = 53 - binaryExponent;
  if (shift <= 0) return false;
  // 1233 / 4096 is a little below the logarithm of 2, so this counts at most one whole digit too few.
  int wholeDigits = ((binaryExponent - 1) * 1233 >> 12) + 1;
  const int bound = wholeDigits + 3;
  if (magnitude >= kTens[static_cast<std::size_t>(bound)]) ++wholeDigits;
  const int places = 15 - wholeDigits;
  const Wide product = static_cast<Wide>(mantissa) * kPowers[static_cast<std::size_t>(places)];
  const Wide whole = product >> shift;
  const Wide rest = product - (whole << shift);
  const Wide half = static_cast<Wide>(1) << (shift - 1);
  const bool up = rest > half || (rest == half && whole % 2 == 1);
  result.coefficient = static_cast<std::uint64_t>(whole) + (up ? 1 : 0);
  result.exponent = -places;
  return true;
}

}  // namespace

Decimal decimalOf(double value) {
  Decimal result;
  result.negative = std::signbit(value);
  const double magnitude = std::fabs(value);
  if (asShortDecimal(magnitude, result) || asScaledInteger(magnitude, result)) return result;

  std::array<char, 40> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                 std::chars_format::scientific, 14)
                       .ptr;
  const Numeral numeral = readNumeral({buffer.data(), static_cast<std::size_t>(end - buffer.data())}, false);
  result.coefficient = numeral.value.coefficient;
  result.exponent = numeral.value.exponent;
  return result;
}

Decimal roundedTo(Decimal value, int places, Tie tie) {
  const int drop = -value.exponent - places;
  if (drop <= 0) return value;
  value.exponent = -places;
  if (drop >= static_cast<int>(kPowers.size())) {
    value.coefficient = 0;
    return value;
  }
  const std::uint64_t unit = kPowers[static_cast<std::size_t>(drop)];
  const std::uint64_t rest = value.coefficient % unit;
  value.coefficient /= unit;
  const bool isTie = rest == unit / 2;
  const bool up = rest > unit / 2 || (isTie && (tie == Tie::AwayFromZero || value.coefficient % 2 == 1));
  if (up) ++value.coefficient;
  return value;
}

namespace {

// Length of an exponent at the start of `text`, its value in `exponent`; 0 where it has no digits.
std::size_t readExponent(std::string_view text, int& exponent) {
  if (text.empty() || (text[0] | 0x20) > 'e' || (text[0] | 0x20) < 'd') return 0;
  std::size_t at = 1;
  const bool negative = at < text.size() && text[at] == '-';
  if (at < text.size() && (text[at] == '-' || text[at] == '+')) ++at;
  const std::size_t first = at;
  int digits = 0;
  while (at < text.size() && isDigit(text[at])) {
    if (digits < kLargestExponent / 10) digits = digits * 10 + (text[at] - '0');
    ++at;
  }
  if (at == first) return 0;
  exponent = negative ? -digits : digits;
  return at;
}

// Most numerals are a few digits with a point among them and nothing behind: length 0 for any other.
Numeral readShort(std::string_view text) {
  constexpr std::size_t kMostDigits = 18;  // of them a coefficient holds any
  if (text.size() > kMostDigits) return {};
  std::uint64_t coefficient = 0;
  std::size_t at = 0;
  const auto readDigits = [&] {
    const std::size_t first = at;
    for (; at < text.size() && isDigit(text[at]); ++at)
      coefficient = coefficient * 10 + static_cast<std::uint64_t>(text[at] - '0');
    return at - first;
  };
  const std::size_t whole = readDigits();
  if (at < text.size() && text[at] == '.') ++at;
  const std::size_t decimals = readDigits();
  if (at < text.size() || whole + decimals == 0) return {};
  return {{false, coefficient, -static_cast<int>(decimals)}, text.size(), true};
}

}  // namespace

Numeral readNumeral(std::string_view text, bool thousands) {
  if (const Numeral few = readShort(text); few.length > 0) return few;
  Numeral numeral;
  Decimal& value = numeral.value;
  bool point = false;
  bool anyDigit = false;
  std::size_t at = 0;
  for (; at < text.size(); ++at) {
    const char c = text[at];
    if (isDigit(c)) {
      anyDigit = true;
      if (value.coefficient < kPowers[18]) {
        value.coefficient = value.coefficient * 10 + static_cast<std::uint64_t>(c - '0');
        if (point) --value.exponent;
      } else {
        numeral.exact = numeral.exact && c == '0';
        if (!point) ++value.exponent;
      }
    } else if (c == '.' && !point) {
      point = true;
    } else if (c != ',' || !thousands || point || !anyDigit) {
      break;
    }
  }
  if (!anyDigit) return Numeral{};
  int exponent = 0;
  at += readExponent(text.substr(at), exponent);
  value.exponent += exponent;
  numeral.length = at;
  return numeral;
}

double toDouble(const Numeral& numeral, std::string_view text) {
  const Decimal& value = numeral.value;
  const int magnitude = std::abs(value.exponent);
  if (numeral.exact && value.coefficient <= kExactInteger &&
      magnitude < static_cast<int>(kExactPowers.size())) {
    const auto whole = static_cast<double>(value.coefficient);
    const double power = kExactPowers[static_cast<std::size_t>(magnitude)];
    return value.exponent < 0 ? whole / power : whole * power;
  }
  std::string plain;
  for (const char c : text.substr(0, numeral.length)) {
    if (c != ',') plain.push_back((c | 0x20) == 'd' ? 'e' : c);
  }
  double result = 0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), result);
  if (error != std::errc::result_out_of_range) return result;
  if (value.isZero() || value.exponent < 0) return 0;  // too small to differ from nothing
  throw RuntimeError(ErrorNumber::Overflow);
}

}  // namespace zelkor
