#include "archives/CodingRule.h"

#include <algorithm>

namespace zelkor {

namespace {

bool startsCharacter(char byte) {
  return (static_cast<unsigned char>(byte) & 0xC0) != 0x80;
}

std::size_t characterCount(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), startsCharacter));
}

/// Byte offset at which the character with this index begins; the end of the text when it has fewer.
std::size_t offsetOfCharacter(std::string_view text, std::size_t index) {
  for (std::size_t offset = 0; offset < text.size(); ++offset) {
    if (startsCharacter(text[offset]) && index-- == 0) return offset;
  }
  return text.size();
}

}  // namespace

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
  const std::size_t codeLength = characterCount(code);
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
  const std::string parent = codePart(code, 0, parentLength);
  return parent.empty() || treeHolds(parent);
}

std::string codePart(std::string_view code, std::size_t start, std::size_t count) {
  const std::size_t begin = offsetOfCharacter(code, start);
  const std::string_view rest = code.substr(begin);
  return std::string(rest.substr(0, offsetOfCharacter(rest, count)));
}

}  // namespace zelkor
