#include "store/dialect/binding/functions/LikePattern.h"

#include <cstddef>
#include <cstdint>
#include <optional>

namespace zelkor {
namespace {

using Character = std::uint32_t;

// Takes one UTF-8 character off the front, folded to lower case; a stray byte counts as a character.
Character takeCharacter(std::string_view& text) {
  const auto first = static_cast<unsigned char>(text.front());
  std::size_t length = first < 0xC0 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
  if (length > text.size()) length = 1;
  Character character = length == 1 ? first : first & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i)
    character = (character << 6) | (static_cast<unsigned char>(text[i]) & 0x3FU);
  text.remove_prefix(length);
  return character >= 'A' && character <= 'Z' ? character - 'A' + 'a' : character;
}

bool isDigit(Character character) {
  return character >= '0' && character <= '9';
}

// `members` comes between the brackets, without the "!".
bool contains(std::string_view members, Character character) {
  while (!members.empty()) {
    const Character low = takeCharacter(members);
    Character high = low;
    if (members.size() >= 2 && members.front() == '-') {
      members.remove_prefix(1);
      high = takeCharacter(members);
    }
    if (character >= low && character <= high) return true;
  }
  return false;
}

bool inBrackets(std::string_view list, Character character) {
  const bool negated = list.size() > 1 && list.front() == '!';
  if (negated) list.remove_prefix(1);
  return contains(list, character) != negated;
}

// Meets one element of the pattern, which is no "*", against the front of the text; takes both off.
bool takeElement(std::string_view& pattern, std::string_view& text) {
  if (pattern.front() == '[') {
    const std::size_t close = pattern.find(']');
    const std::string_view list = pattern.substr(1, close - 1);
    pattern.remove_prefix(close + 1);
    if (list.empty()) return true;
    return !text.empty() && inBrackets(list, takeCharacter(text));
  }
  if (text.empty()) return false;
  const char sign = pattern.front();
  const Character wanted = takeCharacter(pattern);
  const Character character = takeCharacter(text);
  if (sign == '?') return true;
  if (sign == '#') return isDigit(character);
  return character == wanted;
}

bool bracketsClosed(std::string_view pattern) {
  for (;;) {
    const std::size_t open = pattern.find('[');
    if (open == std::string_view::npos) return true;
    const std::size_t close = pattern.find(']', open);
    if (close == std::string_view::npos) return false;
    pattern.remove_prefix(close + 1);
  }
}

}  // namespace

bool isLike(std::string_view text, std::string_view pattern) {
  if (!bracketsClosed(pattern)) return false;
  // Where to go on when what follows the last "*" does not fit: one character further.
  std::optional<std::string_view> patternBehindStar;
  std::string_view textBehindStar;
  for (;;) {
    if (!pattern.empty() && pattern.front() == '*') {
      pattern.remove_prefix(1);
      patternBehindStar = pattern;
      textBehindStar = text;
      continue;
    }
    if (pattern.empty() ? text.empty() : takeElement(pattern, text)) {
      if (pattern.empty() && text.empty()) return true;
      continue;
    }
    if (!patternBehindStar || textBehindStar.empty()) return false;
    takeCharacter(textBehindStar);
    pattern = *patternBehindStar;
    text = textBehindStar;
  }
}

}  // namespace zelkor
