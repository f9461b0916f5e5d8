#include "paper/TextWidths.h"

#include <utility>

namespace zelkor {
namespace {

constexpr std::size_t kCommonCharacters = 0x10000;

}  // namespace

char32_t drawnCharacter(char32_t code) {
  if (code == '\t') return ' ';
  return code == kNoCharacter ? 0xFFFD : code;
}

TextWidths::TextWidths(Advance advance) : advance_(std::move(advance)) {
  for (auto& known : known_) known.assign(kCommonCharacters, -1);
}

double TextWidths::of(char32_t character, Face face) {
  if (character >= kCommonCharacters) return advance_(character, face);
  float& known = known_[static_cast<std::size_t>(face)][character];
  if (known < 0) known = static_cast<float>(advance_(character, face));
  return known;
}

double TextWidths::of(std::string_view text, Face face) {
  double width = 0;
  eachDrawn(text, [&](char32_t character) { width += of(character, face); });
  return width;
}

}  // namespace zelkor
