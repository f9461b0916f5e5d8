#include "archives/CodingRule.h"

#include "base/Text.h"

namespace zelkor {

std::string codingRulePattern(std::string_view rule, std::int32_t& lastLength) {
  std::string pattern;
  for (const char character : rule) {
    if (character < '0' || character > '9') continue;
    if (!pattern.empty()) pattern += ' ';
    lastLength = character - '0';
    pattern.append(static_cast<std::size_t>(lastLength), '*');
  }
  return pattern;
}

std::optional<CodeLevel> ChkIsCodingRule(std::string_view code, std::string_view pattern) {
  const std::size_t codeLength = Len(code);
  std::size_t lengthSoFar = 0;
  std::size_t lengthAbove = 0;
  for (int level = 1;; ++level) {
    const std::size_t blank = pattern.find(' ');
    const std::size_t groupLength = pattern.substr(0, blank).size();
    lengthSoFar += groupLength;
    if (lengthSoFar == codeLength) return CodeLevel{level, lengthAbove};
    if (blank == std::string_view::npos) return std::nullopt;
    lengthAbove = groupLength;
    pattern.remove_prefix(blank + 1);
  }
}

bool ChkParentDept(std::string_view code, std::size_t parentLength,
                   const std::function<bool(const std::string&)>& treeHolds) {
  const std::string parent = Left(code, parentLength);
  return parent.empty() || treeHolds(parent);
}

}  // namespace zelkor
