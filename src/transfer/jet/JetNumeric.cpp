#include "transfer/jet/JetNumeric.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

#include "transfer/jet/JetLayout.h"

namespace zelkor::jet {
namespace {

using Words = std::array<std::uint32_t, 4>;

constexpr int kCurrencyScale = 4;
constexpr std::size_t kDoubleDigits = 15;

/// Divides by ten and gives the rest.
char lastDigit(Words& words) {
  std::uint64_t rest = 0;
  for (std::uint32_t& word : words) {
    const std::uint64_t part = rest << 32 | word;
    word = static_cast<std::uint32_t>(part / 10);
    rest = part % 10;
  }
  return static_cast<char>('0' + rest);
}

std::string digitsOf(Words words) {
  std::string digits;
  while (words != Words{}) digits.push_back(lastDigit(words));
  std::reverse(digits.begin(), digits.end());
  return digits;
}

}  // namespace

Numeric::Numeric(std::string_view bytes, int scale) : negative_(bytes[0] != 0), scale_(scale) {
  Words words{};
  for (std::size_t i = 0; i < words.size(); ++i) words[i] = numberAt<std::uint32_t>(bytes, 1 + 4 * i);
  digits_ = digitsOf(words);
}

std::optional<Currency> Numeric::currency() const {
  std::string digits = digits_;
  for (int i = scale_; i < kCurrencyScale; ++i) digits.push_back('0');
  for (int i = kCurrencyScale; i < scale_ && !digits.empty(); ++i) {
    if (digits.back() != '0') return std::nullopt;
    digits.pop_back();
  }
  digits.insert(0, negative_ ? "-0" : "0");
  std::int64_t scaled = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), scaled);
  if (result.ec != std::errc()) return std::nullopt;
  return Currency::fromScaled(scaled);
}

double Numeric::toDouble() const {
  const std::string text = (negative_ ? "-0" : "0") + digits_ + "e-" + std::to_string(scale_);
  double value = 0;
  std::from_chars(text.data(), text.data() + text.size(), value);
  return value;
}

bool Numeric::isExactAsDouble() const {
  const std::size_t last = digits_.find_last_not_of('0');
  return last == std::string::npos || last < kDoubleDigits;
}

std::string Numeric::toText() const {
  std::string text = digits_;
  const auto scale = static_cast<std::size_t>(scale_);
  if (text.size() <= scale) text.insert(0, scale + 1 - text.size(), '0');
  if (scale > 0) text.insert(text.size() - scale, ".");
  return negative_ ? "-" + text : text;
}

}  // namespace zelkor::jet
