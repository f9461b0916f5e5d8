#pragma once

#include <memory>
#include <span>
#include <string>

#include "paper/Page.h"

namespace zelkor {

/// The one font of all that leaves the program on paper, and the package that brings it.
inline constexpr const char* kPaperFont = "Noto Sans CJK SC";
inline constexpr const char* kPaperFontPackage = "fonts-noto-cjk";

/// A face of the font, from its file. Error 57, which names the package, where it is not installed.
class PaperFont {
 public:
  explicit PaperFont(Face face);
  PaperFont(const PaperFont&) = delete;
  PaperFont& operator=(const PaperFont&) = delete;
  ~PaperFont();

  /// 0 for a character that the font does not have.
  std::uint32_t glyph(char32_t character) const;
  /// How far a glyph moves the next one, as a part of the letters' size.
  double advance(std::uint32_t glyph) const;
  /// Heights above and (negative) below the base line, as parts of the letters' size.
  double ascent() const;
  double descent() const;
  /// The outlines of these glyphs alone, by their numbers here, as a compact font (CFF).
  std::string outlines(std::span<const std::uint32_t> glyphs) const;

 private:
  struct Handles;
  std::unique_ptr<Handles> handles_;
};

}  // namespace zelkor
