#include "paper/PdfFont.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <map>

#include "base/RuntimeError.h"
#include "paper/TextWidths.h"

namespace zelkor {
namespace {

constexpr std::size_t kMostEntries = 100;  // of one block of a character map
constexpr std::size_t kMostCodes = 0xFFFF;

std::string hexadecimal(std::uint32_t number) {
  char digits[9];
  std::snprintf(digits, sizeof digits, "%04X", number);
  return digits;
}

/// As UTF-16.
std::string hexadecimalText(char32_t character) {
  if (character < 0x10000) return hexadecimal(character);
  const std::uint32_t rest = character - 0x10000;
  return hexadecimal(0xD800 + (rest >> 10)) + hexadecimal(0xDC00 + (rest & 0x3FF));
}

std::string characterMap(const std::string& name, const char* entries, std::size_t count,
                         const std::function<std::string(std::size_t)>& target) {
  std::string map =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
      "/CIDSystemInfo << /Registry (Adobe) /Ordering (Identity) /Supplement 0 >> def\n/CMapName /" +
      name + " def\n/CMapType " + (entries == std::string_view("cidchar") ? "1" : "2") +
      " def\n1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n";
  for (std::size_t first = 0; first < count; first += kMostEntries) {
    const std::size_t end = std::min(count, first + kMostEntries);
    map += std::to_string(end - first) + " begin" + entries + "\n";
    for (std::size_t i = first; i < end; ++i) {
      map += "<" + hexadecimal(static_cast<std::uint32_t>(i + 1)) + "> " + target(i) + "\n";
    }
    map += std::string("end") + entries + "\n";
  }
  return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

void appendByte(std::string& content, std::uint8_t byte) {
  const char letter = static_cast<char>(byte);
  if (letter == '(' || letter == ')' || letter == '\\') content += '\\';
  if (letter == '\r') {
    content += "\\r";
  } else {
    content += letter;
  }
}

}  // namespace

std::uint16_t PdfFont::addCharacter(char32_t character) {
  if (characters_.size() == kMostCodes) {
    throw RuntimeError(ErrorNumber::DeviceIo, "不同的字太多，不能写成 PDF");
  }
  characters_.push_back({character, font_.glyph(character)});
  return static_cast<std::uint16_t>(characters_.size());
}

std::uint16_t PdfFont::codeOf(char32_t character) {
  if (character < kCommonCharacters) {
    std::uint16_t& code = codes_[character];
    if (code == 0) code = addCharacter(character);
    return code;
  }
  const auto found = std::ranges::find(characters_, character, &Character::code);
  if (found == characters_.end()) return addCharacter(character);
  return static_cast<std::uint16_t>(found - characters_.begin() + 1);
}

void PdfFont::appendText(std::string& content, std::string_view text) {
  content += '(';
  eachDrawn(text, [&](char32_t character) {
    const std::uint16_t code = codeOf(character);
    appendByte(content, static_cast<std::uint8_t>(code >> 8));
    appendByte(content, static_cast<std::uint8_t>(code & 0xFF));
  });
  content += ')';
}

std::string PdfFont::encoding() const {
  return characterMap(kEncodingName, "cidchar", characters_.size(),
                      [this](std::size_t i) { return std::to_string(characters_[i].glyph); });
}

std::string PdfFont::toUnicode() const {
  return characterMap("Zelkor-Unicode", "bfchar", characters_.size(),
                      [this](std::size_t i) { return "<" + hexadecimalText(characters_[i].code) + ">"; });
}

std::string PdfFont::widths() const {
  std::map<std::uint32_t, long> byGlyph;
  for (const Character& one : characters_) byGlyph[one.glyph] = std::lround(font_.advance(one.glyph) * 1000);
  std::string list;
  for (const auto& [glyph, width] : byGlyph) {
    list += std::to_string(glyph) + " [" + std::to_string(width) + "] ";
  }
  return list;
}

std::string PdfFont::outlines() const {
  std::vector<std::uint32_t> glyphs;
  for (const Character& one : characters_) glyphs.push_back(one.glyph);
  return font_.outlines(glyphs);
}

}  // namespace zelkor
