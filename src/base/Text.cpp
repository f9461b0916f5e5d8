#include "base/Text.h"

#include <algorithm>
#include <array>
#include <cstdint>

#include "base/Characters.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

// Bytes that the first `count` characters take.
std::size_t bytesOf(std::string_view text, std::size_t count) {
  std::size_t bytes = 0;
  while (count-- > 0 && bytes < text.size()) bytes += firstCharacter(text.substr(bytes)).length;
  return bytes;
}

// Ranges of Unicode's East Asian width W and F that occur in practice.
constexpr std::array<std::array<char32_t, 2>, 13> kWide = {{{0x1100, 0x115F},
                                                            {0x2E80, 0x303E},
                                                            {0x3041, 0x33FF},
                                                            {0x3400, 0x4DBF},
                                                            {0x4E00, 0x9FFF},
                                                            {0xA000, 0xA4CF},
                                                            {0xA960, 0xA97F},
                                                            {0xAC00, 0xD7A3},
                                                            {0xF900, 0xFAFF},
                                                            {0xFE30, 0xFE6F},
                                                            {0xFF00, 0xFF60},
                                                            {0xFFE0, 0xFFE6},
                                                            {0x1F300, 0x3FFFD}}};

std::size_t widthOf(char32_t code) {
  if (code == kNoCharacter) return 1;
  const bool combining = (code >= 0x0300 && code <= 0x036F) || (code >= 0x200B && code <= 0x200F);
  if (combining) return 0;
  return std::any_of(kWide.begin(), kWide.end(),
                     [code](const auto& range) { return code >= range[0] && code <= range[1]; })
             ? 2
             : 1;
}

// Latin-1 letters are two bytes, 0xC3 and a second that differs by 32 between the cases; × and ÷ are none.
std::string withCase(std::string_view text, bool upper) {
  std::string result(text);
  const unsigned char firstAscii = upper ? 'a' : 'A';
  const unsigned char firstLatin = upper ? 0xA0 : 0x80;
  const int shift = upper ? -32 : 32;
  for (std::size_t i = 0; i < result.size(); ++i) {
    const auto byte = static_cast<unsigned char>(result[i]);
    const bool afterLatinLead = i > 0 && static_cast<unsigned char>(result[i - 1]) == 0xC3;
    const bool ascii = byte >= firstAscii && byte < firstAscii + 26;
    const bool latin =
        afterLatinLead && byte >= firstLatin && byte < firstLatin + 31 && byte != firstLatin + 0x17;
    if (ascii || latin) result[i] = static_cast<char>(byte + shift);
  }
  return result;
}

}  // namespace

std::size_t Len(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) at += firstCharacter(text.substr(at)).length;
  return count;
}

std::string Left(std::string_view text, std::size_t count) {
  return std::string(text.substr(0, bytesOf(text, count)));
}

std::string Right(std::string_view text, std::size_t count) {
  const std::size_t length = Len(text);
  return std::string(text.substr(count < length ? bytesOf(text, length - count) : 0));
}

std::string Mid(std::string_view text, std::size_t start, std::size_t count) {
  if (start == 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  return Left(text.substr(bytesOf(text, start - 1)), count);
}

std::string LTrim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string_view::npos ? std::string() : std::string(text.substr(first));
}

std::string RTrim(std::string_view text) {
  return std::string(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string Trim(std::string_view text) {
  return LTrim(text.substr(0, text.find_last_not_of(' ') + 1));
}

std::string UCase(std::string_view text) {
  return withCase(text, true);
}
std::string LCase(std::string_view text) {
  return withCase(text, false);
}

std::string asciiLower(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) c = asciiLower(c);
  return lower;
}

bool equalsIgnoringCase(std::string_view left, std::string_view right) {
  if (left.size() != right.size()) return false;
  if (left == right) return true;  // as names are mostly written
  return std::equal(left.begin(), left.end(), right.begin(),
                    [](char a, char b) { return asciiLower(a) == asciiLower(b); });
}

bool isValidUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const Character character = firstCharacter(text.substr(at));
    if (character.code == kNoCharacter) return false;
    at += character.length;
  }
  return true;
}

std::vector<std::string> Split(std::string_view text, char separator) {
  std::vector<std::string> pieces;
  if (text.empty()) return pieces;
  for (;;) {
    const std::size_t end = text.find(separator);
    pieces.emplace_back(text.substr(0, end));
    if (end == std::string_view::npos) return pieces;
    text.remove_prefix(end + 1);
  }
}

std::size_t displayWidth(std::string_view text) {
  std::size_t width = 0;
  while (!text.empty()) {
    const Character character = firstCharacter(text);
    width += widthOf(character.code);
    text.remove_prefix(character.length);
  }
  return width;
}

}  // namespace zelkor
