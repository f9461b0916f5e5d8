#include "base/DecimalSum.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <optional>
#include <string>

#include "base/Decimal.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr int kAmountExponent = -4;
constexpr double kAmountScale = 10000;
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

constexpr int kMostPower = 27;  // of 5 that 64 bits hold
constexpr std::array<std::uint64_t, kMostPower + 1> kPowersOfFive = [] {
  std::array<std::uint64_t, kMostPower + 1> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i) powers[i] = powers[i - 1] * 5;
  return powers;
}();

/// fraction × 2^-shift × 10^power to the nearest whole number, half to even. The product is exact.
std::uint64_t nearestWhole(std::uint64_t fraction, int shift, int power) {
  __extension__ using Wide = unsigned __int128;
  const Wide product = Wide{fraction} * kPowersOfFive[static_cast<std::size_t>(power)];
  const int places = shift - power;
  const auto whole = static_cast<std::uint64_t>(product >> places);
  const Wide rest = product - (Wide{whole} << places);
  const Wide half = Wide{1} << (places - 1);
  return whole + (rest > half || (rest == half && (whole & 1) != 0) ? 1 : 0);
}

/// The 15 digits by one multiplication, for numbers from some 1e-12 to 1e15.
std::optional<Decimal> quickDecimalOf(double value) {
  constexpr int kFractionBits = 52;
  constexpr int kBias = 1023;
  constexpr std::uint64_t kMost = 1'000'000'000'000'000;
  constexpr std::uint64_t kHidden = std::uint64_t{1} << kFractionBits;
  const auto bits = std::bit_cast<std::uint64_t>(value);
  const int binary = static_cast<int>(bits >> kFractionBits & 0x7FF) - kBias;
  int power = 14 - (binary * 1233 >> 12);  // 1233/4096: the decimal logarithm of 2
  if (power < 0 || power > kMostPower - 1) return std::nullopt;
  const std::uint64_t fraction = (bits & (kHidden - 1)) | kHidden;
  const int shift = kFractionBits - binary;
  std::uint64_t digits = nearestWhole(fraction, shift, power);
  if (digits <= kMost / 10) digits = nearestWhole(fraction, shift, ++power);
  if (digits > kMost && power == 0) return std::nullopt;
  if (digits > kMost) digits = nearestWhole(fraction, shift, --power);
  return Decimal{std::signbit(value), digits, -power};
}

Decimal nearestDecimalOf(double value) {
  const auto quick = quickDecimalOf(value);
  return quick ? *quick : decimalOf(value);
}

}  // namespace

bool DecimalSum::addAmount(double value) {
  const auto amount = tenThousandthsOf(value);
  if (amount) amounts_ += *amount;
  return amount.has_value();
}

void DecimalSum::addOther(double value) {
  if (!std::isfinite(value)) {
    infinite_ += value;
    return;
  }
  const Decimal decimal = nearestDecimalOf(value);
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
