#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zelkor {

/// A decimal number: ±coefficient × 10^exponent. The platform rounds and prints numbers by their decimal text
/// of 15 significant digits, not by their binary value, so that 2.675 is a true tie.
struct Decimal {
  bool negative = false;
  std::uint64_t coefficient = 0;
  int exponent = 0;

  bool isZero() const { return coefficient == 0; }
};

/// The count of ten-thousandths that the decimal text of a double says; nothing where it has more decimals,
/// or more than 15 digits. Amounts have at most four decimals.
inline std::optional<std::int64_t> tenThousandthsOf(double value) {
  constexpr double kUnits = 10000;
  constexpr double kMostDigits = 1e15;    // fewer than 16 digits always find the way back
  constexpr double kRounding = 0x1.8p52;  // added, it leaves no room for decimals: half to even
  const double scaled = value * kUnits;
  if (!(std::fabs(scaled) < kMostDigits)) return std::nullopt;
  const double whole = (scaled + kRounding) - kRounding;
  return whole / kUnits == value ? std::optional(static_cast<std::int64_t>(whole)) : std::nullopt;
}

/// The 15 significant digits of a finite double, trailing zeros not removed.
Decimal decimalOf(double value);

enum class Tie { AwayFromZero, ToEven };

/// The same number without digits beyond `places` decimals; a tie goes as asked.
Decimal roundedTo(Decimal value, int places, Tie tie);

/// A decimal numeral as it is in a text: what was read and where reading stopped.
struct Numeral {
  Decimal value;
  std::size_t length = 0;  // characters read; 0 where there is no digit
  bool exact = true;       // false when the text has more digits than a coefficient holds
};

/// Reads digits, one point, and an exponent (E or D, its digits required) from the start of `text`. No sign,
/// no blanks. Commas between the digits of the whole part are passed over when `thousands` is set.
Numeral readNumeral(std::string_view text, bool thousands);

/// The double nearest to the numeral at the start of `text`; raises error 6 beyond the range of a double.
double toDouble(const Numeral& numeral, std::string_view text);

}  // namespace zelkor
