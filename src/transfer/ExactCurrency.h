#pragma once

#include <cmath>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/Currency.h"

namespace zelkor {

/// The amount that a double stands for, to the last ten-thousandth that it can tell apart; nullopt when it
/// stands for none.
inline std::optional<Currency> exactCurrency(double value) {
  constexpr double unitsPerOne = 10000.0;
  constexpr double bound = 9.2e18;
  const double units = std::nearbyint(value * unitsPerOne);
  if (!(std::abs(units) < bound)) return std::nullopt;
  const Currency amount = Currency::fromScaled(static_cast<std::int64_t>(units));
  return amount.toDouble() == value ? std::optional(amount) : std::nullopt;
}

/// The amount that a decimal numeral without exponent stands for; nullopt when it has more than four decimals
/// or leaves the range.
std::optional<Currency> exactCurrency(std::string_view numeral);

}  // namespace zelkor
