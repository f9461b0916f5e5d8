#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/Currency.h"

namespace zelkor::jet {

/// A decimal of up to 38 digits as it is in a row: a sign and four words, the highest first.
class Numeric {
 public:
  static constexpr std::size_t size = 17;

  Numeric(std::string_view bytes, int scale);

  /// The same amount; nullopt when it has more than four decimals or is too large.
  std::optional<Currency> currency() const;
  /// The nearest double.
  double toDouble() const;
  /// Whether a double has all of its digits.
  bool isExactAsDouble() const;
  std::string toText() const;

 private:
  bool negative_;
  std::string digits_;  // without the point, no zeros in front
  int scale_;
};

}  // namespace zelkor::jet
