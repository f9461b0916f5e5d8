#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace zelkor {

/// Lengths of the four levels of a category's code, as they are set: together at most 10 characters.
struct CodingRuleLengths {
  static constexpr std::size_t levels = 4;
  static constexpr int most = 10;

  std::array<int, levels> lengths{};

  /// From the digits of sTypeNumType; a missing digit is 0.
  static CodingRuleLengths fromDigits(std::string_view digits);

  int sum() const;
  /// What is left for `level` (from 0) beside the other three.
  int maximumOf(std::size_t level) const;
  /// The lengths joined: "2112".
  std::string digits() const;
};

}  // namespace zelkor
