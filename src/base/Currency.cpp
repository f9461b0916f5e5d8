#include "base/Currency.h"

#include <cmath>
#include <limits>

#include "base/Decimal.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr int kDecimals = 4;
constexpr std::uint64_t kLargest = std::numeric_limits<std::int64_t>::max();

}  // namespace

Currency Currency::fromDecimal(const Decimal& value) {
  const Decimal rounded = roundedTo(value, kDecimals, Tie::ToEven);
  std::uint64_t scaled = rounded.coefficient;
  for (int power = rounded.exponent + kDecimals; power > 0 && scaled != 0; --power) {
    if (scaled > kLargest / 10) throw RuntimeError(ErrorNumber::Overflow);
    scaled *= 10;
  }
  if (scaled > kLargest) throw RuntimeError(ErrorNumber::Overflow);
  const auto magnitude = static_cast<std::int64_t>(scaled);
  return fromScaled(value.negative ? -magnitude : magnitude);
}

Currency Currency::fromDouble(double value) {
  if (const auto amount = tenThousandthsOf(value)) return fromScaled(*amount);
  if (!std::isfinite(value)) throw RuntimeError(ErrorNumber::Overflow);
  return fromDecimal(decimalOf(value));
}

std::string Currency::toText() const {
  const bool negative = scaled_ < 0;
  const auto bits = static_cast<std::uint64_t>(scaled_);
  const std::uint64_t magnitude = negative ? 0 - bits : bits;
  std::string text = negative ? "-" : "";
  text += std::to_string(magnitude / 10000);
  std::uint64_t fraction = magnitude % 10000;
  if (fraction == 0) return text;
  text.push_back('.');
  for (std::uint64_t unit = 1000; fraction != 0; unit /= 10) {
    text.push_back(static_cast<char>('0' + fraction / unit));
    fraction %= unit;
  }
  return text;
}

Currency Currency::operator+(Currency other) const {
  std::int64_t sum = 0;
  if (__builtin_add_overflow(scaled_, other.scaled_, &sum)) throw RuntimeError(ErrorNumber::Overflow);
  return fromScaled(sum);
}

Currency Currency::operator-(Currency other) const {
  std::int64_t difference = 0;
  if (__builtin_sub_overflow(scaled_, other.scaled_, &difference)) throw RuntimeError(ErrorNumber::Overflow);
  return fromScaled(difference);
}

Currency Currency::operator-() const {
  return Currency{} - *this;
}

}  // namespace zelkor
