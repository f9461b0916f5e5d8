#include <array>
#include <charconv>
#include <cstdlib>

#include "base/FormatPictures.h"

namespace zelkor {
namespace {

struct Piece {
  enum class Kind : std::uint8_t { Literal, Digit, Point, Exponent };
  Kind kind = Kind::Literal;
  std::string text;       // of a literal; the letter and sign of an exponent
  bool zero = false;      // of a digit: shown even where the number has none
  bool fraction = false;  // of a digit: stands behind the point
};

/// One section of a picture, read.
struct NumberPicture {
  std::vector<Piece> pieces;
  int wholePlaces = 0;
  int decimals = 0;
  int exponentPlaces = 0;
  int shift = 0;  // power of ten by which the number is multiplied before it is shown
  bool thousands = false;
};

class PictureReader {
 public:
  NumberPicture read(std::string_view section) {
    while (!section.empty()) section.remove_prefix(readOne(section));
    endOfWhole();
    return std::move(picture_);
  }

 private:
  std::size_t readOne(std::string_view rest) {
    std::string literal;
    if (const std::size_t length = takeLiteral(rest, literal); length != 0) {
      addLiteral(literal);
      return length;
    }
    const char c = rest.front();
    switch (c) {
      case '0':
      case '#':
        addDigit(c == '0');
        return 1;
      case '.':
        endOfWhole();
        if (!point_) picture_.pieces.push_back({Piece::Kind::Point, ".", false, false});
        point_ = true;
        return 1;
      case ',':
        if (!point_) ++commas_;
        return 1;
      case '%':
        picture_.shift += 2;
        addLiteral("%");
        return 1;
      case 'E':
      case 'e':
        if (rest.size() > 1 && (rest[1] == '+' || rest[1] == '-')) return readExponent(rest);
        break;
      default:
        break;
    }
    addLiteral(rest.substr(0, 1));
    return 1;
  }

  std::size_t readExponent(std::string_view rest) {
    endOfWhole();
    point_ = true;
    std::size_t length = 2;
    while (length < rest.size() && (rest[length] == '0' || rest[length] == '#')) ++length;
    picture_.exponentPlaces = static_cast<int>(length) - 2;
    picture_.pieces.push_back({Piece::Kind::Exponent, std::string(rest.substr(0, 2)), false, false});
    return length;
  }

  void addDigit(bool zero) {
    if (commas_ != 0 && picture_.wholePlaces != 0) picture_.thousands = true;
    commas_ = 0;
    picture_.pieces.push_back({Piece::Kind::Digit, {}, zero, point_});
    ++(point_ ? picture_.decimals : picture_.wholePlaces);
  }

  // Commas with no digit behind them divide by a thousand each.
  void endOfWhole() {
    if (picture_.wholePlaces != 0) picture_.shift -= 3 * commas_;
    commas_ = 0;
  }

  void addLiteral(std::string_view text) {
    auto& pieces = picture_.pieces;
    if (pieces.empty() || pieces.back().kind != Piece::Kind::Literal) pieces.emplace_back();
    pieces.back().text += text;
  }

  NumberPicture picture_;
  int commas_ = 0;
  bool point_ = false;
};

/// The digits of a rounded number on both sides of the point.
struct Digits {
  std::string whole;  // no leading zeros: empty below 1
  std::string fraction;

  bool isZero() const { return whole.empty() && fraction.find_first_not_of('0') == std::string::npos; }
};

Digits digitsOf(const Decimal& value, int decimals) {
  const Decimal rounded = roundedTo(value, decimals, Tie::AwayFromZero);
  std::string all = rounded.isZero() ? std::string() : std::to_string(rounded.coefficient);
  const int zeros = rounded.exponent + decimals;
  if (!all.empty()) all.append(static_cast<std::size_t>(zeros), '0');
  const auto places = static_cast<std::size_t>(decimals);
  if (all.size() < places) all.insert(0, places - all.size(), '0');
  return {all.substr(0, all.size() - places), all.substr(all.size() - places)};
}

class PictureWriter {
 public:
  PictureWriter(const NumberPicture& picture, Digits digits, int exponent)
      : picture_(picture), digits_(std::move(digits)), exponent_(exponent) {}

  std::string write() {
    for (const Piece& piece : picture_.pieces) {
      switch (piece.kind) {
        case Piece::Kind::Literal:
          text_ += piece.text;
          break;
        case Piece::Kind::Point:
          if (picture_.wholePlaces == 0) text_ += digits_.whole;
          text_.push_back('.');
          break;
        case Piece::Kind::Exponent:
          writeExponent(piece.text);
          break;
        case Piece::Kind::Digit:
          piece.fraction ? writeFractionDigit(piece.zero) : writeWholeDigit(piece.zero);
      }
    }
    return std::move(text_);
  }

 private:
  // The first place also takes the digits for which the picture has no place.
  void writeWholeDigit(bool zero) {
    zeroSeen_ = zeroSeen_ || zero;
    const auto places = static_cast<std::size_t>(picture_.wholePlaces);
    const std::size_t fromRight = places - 1 - wholeIndex_;
    if (wholeIndex_ == 0) {
      for (std::size_t i = digits_.whole.size(); i > places; --i)
        putWhole(digits_.whole[digits_.whole.size() - i], i - 1);
    }
    ++wholeIndex_;
    if (fromRight < digits_.whole.size()) {
      putWhole(digits_.whole[digits_.whole.size() - 1 - fromRight], fromRight);
    } else if (zeroSeen_) {
      putWhole('0', fromRight);
    }
  }

  void putWhole(char digit, std::size_t fromRight) {
    text_.push_back(digit);
    if (picture_.thousands && fromRight != 0 && fromRight % 3 == 0) text_.push_back(',');
  }

  void writeFractionDigit(bool zero) {
    const std::size_t index = fractionIndex_++;
    const bool needed =
        zero || digits_.fraction.find_first_not_of('0', index) != std::string::npos || zeroFollows(index);
    if (needed) text_.push_back(digits_.fraction[index]);
  }

  bool zeroFollows(std::size_t index) const {
    std::size_t at = 0;
    for (const Piece& piece : picture_.pieces) {
      if (piece.kind != Piece::Kind::Digit || !piece.fraction) continue;
      if (at++ > index && piece.zero) return true;
    }
    return false;
  }

  void writeExponent(std::string_view mark) {
    text_.push_back(mark[0]);
    if (exponent_ < 0) {
      text_.push_back('-');
    } else if (mark[1] == '+') {
      text_.push_back('+');
    }
    const std::string digits = std::to_string(std::abs(exponent_));
    const auto places = static_cast<std::size_t>(picture_.exponentPlaces);
    if (digits.size() < places) text_.append(places - digits.size(), '0');
    text_ += digits;
  }

  const NumberPicture& picture_;
  Digits digits_;
  int exponent_;
  std::string text_;
  std::size_t wholeIndex_ = 0;
  std::size_t fractionIndex_ = 0;
  bool zeroSeen_ = false;
};

// Moves the point so that the mantissa fills the whole places; the exponent that makes up for it is returned.
int normalizeForExponent(Decimal& value, const NumberPicture& picture) {
  if (value.isZero()) return 0;
  const auto exponentFor = [&picture](const Decimal& number) {
    return static_cast<int>(std::to_string(number.coefficient).size()) + number.exponent -
           picture.wholePlaces;
  };
  int exponent = exponentFor(value);
  // Rounding may carry into one more digit: 9.996 under 0.00E+00 is 1.00E+01.
  exponent = exponentFor(roundedTo(value, picture.decimals - exponent, Tie::AwayFromZero));
  value.exponent -= exponent;
  return exponent;
}

std::string formatSection(Decimal value, std::string_view section, bool withSign) {
  const NumberPicture picture = PictureReader().read(section);
  value.exponent += picture.shift;
  const int exponent = picture.exponentPlaces != 0 ? normalizeForExponent(value, picture) : 0;
  Digits digits = digitsOf(value, picture.decimals);
  const bool negative = withSign && value.negative && !digits.isZero();
  const std::string text = PictureWriter(picture, std::move(digits), exponent).write();
  return negative ? '-' + text : text;
}

}  // namespace

std::string formatNumber(const Decimal& value, std::string_view picture) {
  const auto sections = pictureSections(picture);
  const auto given = [&sections](std::size_t index) {
    return index < sections.size() && !sections[index].empty();
  };
  if (value.isZero() && given(2)) return formatSection(value, sections[2], false);
  if (!value.isZero() && value.negative && given(1)) return formatSection(value, sections[1], false);
  return formatSection(value, sections[0], true);
}

std::string formatFixed(const Decimal& value, int places) {
  const Decimal rounded = roundedTo(value, places, Tie::AwayFromZero);
  std::array<char, 24> buffer{};
  char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), rounded.coefficient).ptr;
  std::string text;
  if (rounded.negative && !rounded.isZero()) text.push_back('-');
  const std::size_t sign = text.size();
  text.append(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  const int zeros = rounded.exponent + places;
  if (!rounded.isZero()) text.append(static_cast<std::size_t>(zeros), '0');
  const auto decimals = static_cast<std::size_t>(places);
  if (decimals == 0) return text;
  if (text.size() - sign <= decimals) text.insert(sign, decimals + 1 - (text.size() - sign), '0');
  text.insert(text.size() - decimals, 1, '.');
  return text;
}

}  // namespace zelkor
