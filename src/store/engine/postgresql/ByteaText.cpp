#include "store/engine/postgresql/ByteaText.h"

namespace zelkor {
namespace {

constexpr std::string_view kMark = "\\x";
constexpr std::string_view kDigits = "0123456789abcdef";

unsigned valueOf(char digit) {
  const std::size_t value = kDigits.find(digit);
  return value == std::string_view::npos ? 0 : static_cast<unsigned>(value);
}

}  // namespace

std::string byteaText(std::string_view bytes) {
  std::string text(kMark);
  text.reserve(kMark.size() + 2 * bytes.size());
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kDigits[byte >> 4U];
    text += kDigits[byte & 0xfU];
  }
  return text;
}

std::string bytesOfBytea(std::string_view text) {
  if (!text.starts_with(kMark)) return std::string(text);
  text.remove_prefix(kMark.size());
  std::string bytes(text.size() / 2, '\0');
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<char>(valueOf(text[2 * i]) << 4U | valueOf(text[2 * i + 1]));
  return bytes;
}

}  // namespace zelkor
