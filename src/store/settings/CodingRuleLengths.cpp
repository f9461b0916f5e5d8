#include "store/settings/CodingRuleLengths.h"

#include <numeric>

#include "base/Conversion.h"

namespace zelkor {

CodingRuleLengths CodingRuleLengths::fromDigits(std::string_view digits) {
  CodingRuleLengths rule;
  for (std::size_t i = 0; i < levels && i < digits.size(); ++i) {
    rule.lengths[i] = static_cast<int>(Val(digits.substr(i, 1)));
  }
  return rule;
}

int CodingRuleLengths::sum() const {
  return std::accumulate(lengths.begin(), lengths.end(), 0);
}

int CodingRuleLengths::maximumOf(std::size_t level) const {
  return most - (sum() - lengths.at(level));
}

std::string CodingRuleLengths::digits() const {
  std::string text;
  for (const int length : lengths) text += std::to_string(length);
  return text;
}

}  // namespace zelkor
