#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// The characters of UTF-8 texts.
namespace zelkor {

inline constexpr char32_t kNoCharacter = 0xFFFFFFFF;

/// What some programs put before a text.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Character {
  char32_t code = kNoCharacter;
  std::size_t length = 1;  // in bytes
};

/// The first character of a text that does not begin with an ASCII character.
Character firstLongCharacter(std::string_view text);

/// The first character of a text that is not empty; one byte without a code where it is no valid UTF-8.
inline Character firstCharacter(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text[0]);
  return lead < 0x80 ? Character{lead, 1} : firstLongCharacter(text);
}

/// Where the first character stands that no text may hold: a control character other than tab and line break,
/// one that Unicode keeps from use, or a byte that is none; npos when there is none.
std::size_t findUnwritable(std::string_view text);

/// The text with U+FFFD in the place of each of them.
std::string writable(std::string_view text);

}  // namespace zelkor
