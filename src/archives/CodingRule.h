#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace zelkor {

/// The rule of a coded archive as a pattern: one group of stars per level, as many stars as that level's part
/// of the code is long, with blanks between ("122" gives "* ** **"). Characters of `rule` that are no digits
/// are skipped. `lastLength` becomes the last digit; it keeps its value when there is none.
std::string codingRulePattern(std::string_view rule, std::int32_t& lastLength);

struct CodeLevel {
  int level = 0;
  /// Characters in the part of the level above alone, not in the parts of all levels above.
  std::size_t parentLength = 0;

  bool operator==(const CodeLevel&) const = default;
};

/// Level of a code by the pattern; nullopt when no level's codes have its length.
std::optional<CodeLevel> ChkIsCodingRule(std::string_view code, std::string_view pattern);

/// Whether the tree holds the department whose code is the first `parentLength` characters of `code`; true
/// when there are none.
bool ChkParentDept(std::string_view code, std::size_t parentLength,
                   const std::function<bool(const std::string&)>& treeHolds);

}  // namespace zelkor
