#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "base/Characters.h"
#include "paper/Page.h"

namespace zelkor {

/// How far a character moves the next one to the right, as a part of the letters' size.
using Advance = std::function<double(char32_t character, Face face)>;

/// The character that is drawn: a tab stands as a blank, a byte that is none as the mark for it.
char32_t drawnCharacter(char32_t code);

/// Calls `take` with every character that is drawn of a text.
template <typename Take>
void eachDrawn(std::string_view text, Take take) {
  while (!text.empty()) {
    const auto byte = static_cast<unsigned char>(text.front());
    const Character character = byte < 0x80 ? Character{byte, 1} : firstCharacter(text);
    take(drawnCharacter(character.code));
    text.remove_prefix(character.length);
  }
}

/// Measures texts, each character of a face but once.
class TextWidths {
 public:
  explicit TextWidths(Advance advance);

  double of(char32_t character, Face face);
  /// A whole text on one line.
  double of(std::string_view text, Face face);

 private:
  Advance advance_;
  std::vector<float> known_[2];  // by character, of the common ones; negative: not yet
};

}  // namespace zelkor
