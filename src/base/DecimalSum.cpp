#include "base/DecimalSum.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "base/Decimal.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr int kAmountExponent = -4;
constexpr double kAmountScale = 10000;
constexpr double kMostDigits = 1e15;
constexpr std::int64_t kExactInteger = std::int64_t{1} << 53;
// Digits of a quotient beyond those of the sum: more than a count and a double have together.
constexpr int kMoreDigits = 40;

using Digits = std::vector<int>;  // the lowest first

// Brings every digit to 0..9; false for a negative number, whose digits are of no use then.
bool carry(Digits& digits) {
  int over = 0;
  for (int& digit : digits) {
    const int sum = digit + over;
    over = sum >= 0 ? sum / 10 : -((9 - sum) / 10);
    digit = sum - over * 10;
  }
  return over >= 0;
}

// Whether nothing was left over.
bool divide(Digits& digits, std::int64_t divisor) {
  __extension__ __int128 rest = 0;
  for (auto digit = digits.rbegin(); digit != digits.rend(); ++digit) {
    rest = rest * 10 + *digit;
    *digit = static_cast<int>(rest / divisor);
    rest %= divisor;
  }
  return rest == 0;
}

double numberOf(const Digits& digits, int exponent, bool exact) {
  const auto first = std::find_if(digits.rbegin(), digits.rend(), [](int digit) { return digit != 0; });
  std::string text;
  for (auto digit = first; digit != digits.rend(); ++digit) text.push_back(static_cast<char>('0' + *digit));
  if (text.empty()) return 0;
  const bool great = static_cast<int>(text.size()) + exponent > 0;
  if (!exact) text.push_back('1');
  text += "e" + std::to_string(exact ? exponent : exponent - 1);
  double result = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), result);
  if (error != std::errc::result_out_of_range) return result;
  if (great) throw RuntimeError(ErrorNumber::Overflow);
  return 0;
}

}  // namespace

// A ten-thousandth that divides back to the very double is its decimal text.
bool DecimalSum::addAmount(double value) {
  const double scaled = value * kAmountScale;
  if (!(std::fabs(scaled) < kMostDigits)) return false;
  const double whole = std::nearbyint(scaled);
  if (whole / kAmountScale != value) return false;
  amounts_ += static_cast<std::int64_t>(whole);
  return true;
}

void DecimalSum::addOther(double value) {
  if (!std::isfinite(value)) {
    infinite_ += value;
    return;
  }
  const Decimal decimal = decimalOf(value);
  auto part = std::find_if(others_.begin(), others_.end(),
                           [&](const Part& other) { return other.exponent == decimal.exponent; });
  if (part == others_.end()) part = others_.insert(part, Part{decimal.exponent, 0});
  const auto coefficient = static_cast<std::int64_t>(decimal.coefficient);
  part->coefficient += decimal.negative ? -coefficient : coefficient;
}

double DecimalSum::dividedBy(std::int64_t count) const {
  if (infinite_ != 0) return infinite_;
  if (others_.empty() && count == 1 && amounts_ < kExactInteger && amounts_ > -kExactInteger)
    return static_cast<double>(static_cast<std::int64_t>(amounts_)) / kAmountScale;
  std::vector<Part> parts = others_;
  parts.push_back({kAmountExponent, amounts_});
  const auto [least, greatest] = std::minmax_element(
      parts.begin(), parts.end(), [](const Part& a, const Part& b) { return a.exponent < b.exponent; });
  const int exponent = least->exponent - (count == 1 ? 0 : kMoreDigits);
  Digits digits(static_cast<std::size_t>(greatest->exponent - exponent + kMoreDigits), 0);
  for (const Part& part : parts) {
    auto place = digits.begin() + (part.exponent - exponent);
    for (Wide left = part.coefficient; left != 0; left /= 10) *place++ += static_cast<int>(left % 10);
  }
  Digits positive = digits;
  const bool negative = !carry(positive);
  if (negative) {
    for (int& digit : digits) digit = -digit;
    carry(digits);
    positive = digits;
  }
  const bool exact = divide(positive, count);
  const double result = numberOf(positive, exponent, exact);
  return negative ? -result : result;
}

}  // namespace zelkor
