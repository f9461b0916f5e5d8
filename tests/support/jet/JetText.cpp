#include "support/jet/JetText.h"

#include <iconv.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>

namespace zelkor::test::jet {
namespace {

constexpr std::size_t kLongestCompressed = 1024;  // characters

/// Between zero bytes the characters stand with both halves, elsewhere with the lower one only.
std::string compressed(const std::string& utf16) {
  std::string result = "\xFF\xFE";
  bool halves = true;
  for (std::size_t i = 0; i < utf16.size(); i += 2) {
    if (utf16[i] == '\0') return utf16;  // would read as a change
    const bool isNarrow = utf16[i + 1] == '\0';
    if (isNarrow != halves) {
      result.push_back('\0');
      halves = isNarrow;
    }
    result.append(utf16, i, isNarrow ? 1 : 2);
  }
  return result.size() < utf16.size() ? result : utf16;
}

}  // namespace

TextEncoder::TextEncoder(const Format& format, const std::string& charset)
    : isJet3_(format.isJet3()), converter_(iconv_open(isJet3_ ? charset.c_str() : "UTF-16LE", "UTF-8")) {
  if (reinterpret_cast<std::intptr_t>(converter_) == -1)
    throw std::invalid_argument("no character set " + charset);
}

TextEncoder::~TextEncoder() {
  iconv_close(converter_);
}

std::string TextEncoder::name(std::string_view text) {
  std::string result;
  std::string source(text);
  char* in = source.data();
  std::size_t left = source.size();
  std::array<char, 4096> part{};
  while (left > 0) {
    char* out = part.data();
    std::size_t room = part.size();
    const std::size_t before = left;
    iconv(converter_, &in, &left, &out, &room);
    if (left == before) throw std::invalid_argument("no text of that character set: " + source);
    result.append(part.data(), part.size() - room);
  }
  return result;
}

std::string TextEncoder::value(std::string_view text) {
  std::string result = name(text);
  if (isJet3_ || result.size() > 2 * kLongestCompressed) return result;
  return compressed(result);
}

}  // namespace zelkor::test::jet
