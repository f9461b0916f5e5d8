#include "transfer/ExactCurrency.h"

#include <algorithm>
#include <charconv>
#include <string>

namespace zelkor {

std::optional<Currency> exactCurrency(std::string_view numeral) {
  constexpr std::size_t places = 4;
  const std::size_t point = std::min(numeral.find('.'), numeral.size());
  if (point == 0) return std::nullopt;
  std::string digits(numeral.substr(0, point));
  std::string_view fraction = numeral.substr(std::min(point + 1, numeral.size()));
  while (fraction.size() > places && fraction.back() == '0') fraction.remove_suffix(1);
  if (fraction.size() > places) return std::nullopt;
  digits.append(fraction).append(places - fraction.size(), '0');
  std::int64_t units = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), units);
  if (failure != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return Currency::fromScaled(units);
}

}  // namespace zelkor
