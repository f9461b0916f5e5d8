#include "base/Characters.h"

#include <array>

namespace zelkor {
namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";

/// 0 where no character begins so.
std::size_t sequenceLength(unsigned char lead) {
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

bool isWritable(char32_t code) {
  if (code < 0x20) return code == '\t' || code == '\n' || code == '\r';
  const bool noncharacter = (code & 0xFFFE) == 0xFFFE || (code >= 0xFDD0 && code <= 0xFDEF);
  return code != kNoCharacter && !noncharacter;
}

}  // namespace

Character firstLongCharacter(std::string_view text) {
  constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
  const auto lead = static_cast<unsigned char>(text[0]);
  const std::size_t length = sequenceLength(lead);
  if (length == 0 || length > text.size()) return {};
  char32_t code = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte & 0xC0) != 0x80) return {};
    code = code << 6 | (byte & 0x3F);
  }
  const bool surrogate = code >= 0xD800 && code < 0xE000;
  if (code < kSmallest[length] || surrogate || code > 0x10FFFF) return {};
  return {code, length};
}

std::size_t findUnwritable(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const Character character = firstCharacter(text.substr(at));
    if (!isWritable(character.code)) return at;
    at += character.length;
  }
  return std::string_view::npos;
}

std::string writable(std::string_view text) {
  std::string result;
  for (std::size_t bad = findUnwritable(text); bad != std::string_view::npos; bad = findUnwritable(text)) {
    result += text.substr(0, bad);
    result += kReplacement;
    text.remove_prefix(bad + firstCharacter(text.substr(bad)).length);
  }
  result += text;
  return result;
}

}  // namespace zelkor
