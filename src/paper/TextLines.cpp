#include "paper/TextLines.h"

#include <algorithm>

namespace zelkor {
namespace {

constexpr char32_t kFirstWide = 0x2E80;
constexpr std::u32string_view kNeverFirst = U"，。、；：？！）》」』】〕”’％…·,.;:?!)]}%";
constexpr std::u32string_view kNeverLast = U"（《「『【〔“‘([{";

bool isBlank(char32_t character) {
  return character == ' ' || character == '\t';
}

bool mayPart(char32_t before, char32_t behind) {
  if (isBlank(behind)) return false;
  if (isBlank(before)) return true;
  if (before < kFirstWide && behind < kFirstWide) return false;
  return kNeverFirst.find(behind) == kNeverFirst.npos && kNeverLast.find(before) == kNeverLast.npos;
}

/// What stays together, from the begin of a text: its bytes and width, those without the blanks at its end.
struct Piece {
  std::size_t length = 0;
  std::size_t inked = 0;
  double width = 0;
  double inkedWidth = 0;
  bool endsLine = false;  // by a line break, which is after it
  std::size_t breakLength = 0;
};

Piece firstPiece(std::string_view text, Face face, TextWidths& widths) {
  Piece piece;
  char32_t before = 0;
  while (piece.length < text.size()) {
    const std::string_view rest = text.substr(piece.length);
    if (rest.front() == '\n' || rest.front() == '\r') {
      piece.endsLine = true;
      piece.breakLength = rest.starts_with("\r\n") ? 2 : 1;
      break;
    }
    const Character character = firstCharacter(rest);
    if (piece.length > 0 && mayPart(before, character.code)) break;
    piece.length += character.length;
    piece.width += widths.of(drawnCharacter(character.code), face);
    before = character.code;
    if (isBlank(before)) continue;
    piece.inked = piece.length;
    piece.inkedWidth = piece.width;
  }
  return piece;
}

/// As many bytes as fit, one character at least.
std::size_t fittingLength(std::string_view text, double width, Face face, TextWidths& widths) {
  std::size_t length = 0;
  double used = 0;
  while (length < text.size()) {
    const Character character = firstCharacter(text.substr(length));
    used += widths.of(drawnCharacter(character.code), face);
    if (length > 0 && used > width) break;
    length += character.length;
  }
  return length;
}

/// Fills lines with pieces, one after the other.
class LineFiller {
 public:
  LineFiller(std::string_view text, double width, Face face, TextWidths& widths)
      : text_(text), width_(width + kTolerance), face_(face), widths_(widths) {}

  std::vector<std::string_view> lines() {
    while (at_ < text_.size()) {
      const Piece piece = firstPiece(text_.substr(at_), face_, widths_);
      if (used_ > 0 && used_ + piece.inkedWidth > width_) endLine();
      if (piece.inkedWidth > width_)
        breakPiece(piece);
      else
        add(piece.length, piece.inked, piece.width);
      if (!piece.endsLine) continue;
      at_ += piece.breakLength;
      endLine();
    }
    if (used_ > 0 || lines_.empty()) endLine();
    return std::move(lines_);
  }

 private:
  static constexpr double kTolerance = 1e-6;

  void add(std::size_t length, std::size_t inked, double width) {
    if (inked > 0) end_ = at_ + inked;
    at_ += length;
    used_ += width;
  }
  void breakPiece(const Piece& piece) {
    const std::size_t end = at_ + piece.inked;
    while (at_ < end) {
      const std::string_view rest = text_.substr(at_, end - at_);
      const std::size_t length = fittingLength(rest, width_, face_, widths_);
      add(length, length, widths_.of(rest.substr(0, length), face_));
      if (at_ < end) endLine();
    }
    at_ += piece.length - piece.inked;
  }
  void endLine() {
    lines_.push_back(text_.substr(begin_, std::max(begin_, end_) - begin_));
    begin_ = end_ = at_;
    used_ = 0;
  }

  std::string_view text_;
  double width_;
  Face face_;
  TextWidths& widths_;
  std::vector<std::string_view> lines_;
  std::size_t begin_ = 0;  // of the line
  std::size_t end_ = 0;    // of what is seen of it
  std::size_t at_ = 0;
  double used_ = 0;
};

}  // namespace

double widestPiece(std::string_view text, Face face, TextWidths& widths) {
  double widest = 0;
  while (!text.empty()) {
    const Piece piece = firstPiece(text, face, widths);
    widest = std::max(widest, piece.inkedWidth);
    text.remove_prefix(piece.length + piece.breakLength);
  }
  return widest;
}

std::vector<std::string_view> linesOf(std::string_view text, double width, Face face, TextWidths& widths) {
  return LineFiller(text, width, face, widths).lines();
}

}  // namespace zelkor
