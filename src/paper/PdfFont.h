#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "paper/PaperFont.h"

namespace zelkor {

/// A face as a PDF document uses it. Each character has a code of its own, so that a text can be copied as it
/// was even where several characters look alike and share a glyph.
class PdfFont {
 public:
  static constexpr const char* kEncodingName = "Zelkor-Codes";

  explicit PdfFont(Face face) : font_(face), codes_(kCommonCharacters) {}

  const PaperFont& font() const { return font_; }
  /// Appends the text as a string object.
  void appendText(std::string& content, std::string_view text);
  bool isUsed() const { return !characters_.empty(); }

  /// From codes to glyphs, and to characters.
  std::string encoding() const;
  std::string toUnicode() const;
  std::string widths() const;
  std::string outlines() const;

 private:
  static constexpr std::size_t kCommonCharacters = 0x10000;
  struct Character {
    char32_t code;
    std::uint32_t glyph;
  };

  std::uint16_t codeOf(char32_t character);
  std::uint16_t addCharacter(char32_t character);

  PaperFont font_;
  std::vector<std::uint16_t> codes_;   // by character; 0: none yet
  std::vector<Character> characters_;  // by code, from 1
};

}  // namespace zelkor
