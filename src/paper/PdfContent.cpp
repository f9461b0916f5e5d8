#include "paper/PdfContent.h"

#include <charconv>
#include <cmath>
#include <cstdio>

#include "paper/TextWidths.h"

namespace zelkor {
namespace {

/// Lengths are written in hundredths of a point.
long hundredths(double points) {
  return std::lround(points * 100);
}

void appendHundredths(std::string& content, long number) {
  if (number < 0) content += '-';
  const long size = std::labs(number);
  char digits[24];
  content.append(digits, std::to_chars(digits, digits + sizeof digits, size / 100).ptr);
  if (const long rest = size % 100; rest != 0) {
    content += '.';
    content += static_cast<char>('0' + rest / 10);
    if (rest % 10 != 0) content += static_cast<char>('0' + rest % 10);
  }
  content += ' ';
}

void appendPoints(std::string& content, double points) {
  appendHundredths(content, hundredths(points));
}

void appendBoxes(std::string& content, const Page& page, double height) {
  for (const PlacedBox& box : page.boxes) {
    for (const double number : {box.x, height - box.y - box.height, box.width, box.height}) {
      appendPoints(content, number);
    }
    content += "re\n";
  }
  if (!page.boxes.empty()) content += "B\n";
}

void appendLines(std::string& content, const Page& page, double height) {
  for (const PlacedLine& line : page.lines) {
    appendPoints(content, line.fromX);
    appendPoints(content, height - line.fromY);
    content += "m ";
    appendPoints(content, line.toX);
    appendPoints(content, height - line.toY);
    content += "l\n";
  }
  if (!page.lines.empty()) content += "S\n";
}

/// Each text is placed from the one before.
void appendTexts(std::string& content, const Page& page, double height, PdfFont (&faces)[2]) {
  long x = 0;
  long y = 0;
  double size = 0;
  Face face = Face::Regular;
  content += "BT\n";
  for (const PlacedText& text : page.texts) {
    if (text.size != size || text.face != face) {
      size = text.size;
      face = text.face;
      content += face == Face::Bold ? "/B " : "/R ";
      appendPoints(content, size);
      content += "Tf\n";
    }
    const long toX = hundredths(text.x);
    const long toY = hundredths(height - text.y);
    appendHundredths(content, toX - x);
    appendHundredths(content, toY - y);
    content += "Td";
    faces[static_cast<std::size_t>(face)].appendText(content, text.text);
    content += "Tj\n";
    x = toX;
    y = toY;
  }
  content += "ET\n";
}

void appendUnit(std::string& text, std::uint32_t unit) {
  char digits[9];
  std::snprintf(digits, sizeof digits, "%04X", unit);
  text += digits;
}

}  // namespace

void appendContent(std::string& content, const Page& page, double height, PdfFont (&faces)[2]) {
  appendPoints(content, kRuleWidth);
  content += "w 2 J ";  // to the corners, beyond the ends
  appendPoints(content, kBoxShade);
  content += "g ";
  appendPoints(content, kRuleShade);
  content += "G\n";
  appendBoxes(content, page, height);
  appendLines(content, page, height);
  content += "0 g\n";
  appendTexts(content, page, height, faces);
}

std::string pdfText(std::string_view text) {
  std::string units = "<FEFF";
  eachDrawn(text, [&units](char32_t character) {
    if (character < 0x10000) return appendUnit(units, character);
    appendUnit(units, 0xD800 + ((character - 0x10000) >> 10));
    appendUnit(units, 0xDC00 + ((character - 0x10000) & 0x3FF));
  });
  return units + ">";
}

}  // namespace zelkor
