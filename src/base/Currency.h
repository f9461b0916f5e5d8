#pragma once

#include <compare>
#include <cstdint>
#include <string>

namespace zelkor {

struct Decimal;

/// Fixed-point amount with four decimals, held as a count of ten-thousandths.
/// Range: ±922,337,203,685,477.5807; leaving it raises error 6.
class Currency {
 public:
  constexpr Currency() = default;
  static constexpr Currency fromScaled(std::int64_t tenThousandths) { return Currency(tenThousandths); }
  /// Rounds to the nearest ten-thousandth, a tie to the even digit (of the double's own decimal text of
  /// 15 significant digits, as the platform converts). Raises error 6 when out of range.
  static Currency fromDouble(double value);
  /// The same from a decimal numeral, all of whose digits count.
  static Currency fromDecimal(const Decimal& value);

  constexpr std::int64_t scaled() const { return scaled_; }
  double toDouble() const { return static_cast<double>(scaled_) / 10000.0; }
  /// Decimal text without trailing zeros: 12.5, -0.0001, 7.
  std::string toText() const;

  Currency operator+(Currency other) const;
  Currency operator-(Currency other) const;
  Currency operator-() const;
  Currency& operator+=(Currency other) { return *this = *this + other; }
  constexpr auto operator<=>(const Currency&) const = default;

 private:
  explicit constexpr Currency(std::int64_t scaled) : scaled_(scaled) {}
  std::int64_t scaled_ = 0;
};

}  // namespace zelkor
