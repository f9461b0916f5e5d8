#include "base/Format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "base/Conversion.h"
#include "base/Decimal.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

std::optional<Decimal> decimalOfNumber(double number) {
  return std::isfinite(number) ? std::optional(decimalOf(number)) : std::nullopt;
}

std::optional<Decimal> numberIn(const Value& value) {
  if (value.kind() == Value::Kind::Currency) {
    const std::int64_t scaled = value.as<Currency>().scaled();
    const auto bits = static_cast<std::uint64_t>(scaled);
    return Decimal{scaled < 0, scaled < 0 ? 0 - bits : bits, -4};
  }
  if (!value.isText()) return decimalOfNumber(CDbl(value));
  const std::string& text = value.as<std::string>();
  if (const auto number = parseNumber(text)) return decimalOfNumber(*number);
  if (const auto date = parseDate(text)) return decimalOfNumber(date->toSerial());
  return std::nullopt;
}

std::optional<DateTime> dateIn(const Value& value) {
  if (!value.isText()) return CDate(value);
  const std::string& text = value.as<std::string>();
  if (const auto date = parseDate(text)) return date;
  if (const auto number = parseNumber(text)) return DateTime::fromSerial(*number);
  return std::nullopt;
}

// With so many decimals, and a digit before the point.
std::string fixedText(const Decimal& value, std::size_t decimals) {
  const Decimal rounded = roundedTo(value, static_cast<int>(decimals), Tie::AwayFromZero);
  std::array<char, 24> buffer{};
  char* const end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), rounded.coefficient).ptr;
  std::string text;
  if (rounded.negative && !rounded.isZero()) text.push_back('-');
  const std::size_t sign = text.size();
  text.append(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  if (!rounded.isZero())
    text.append(static_cast<std::size_t>(rounded.exponent + static_cast<int>(decimals)), '0');
  if (decimals == 0) return text;
  if (text.size() - sign <= decimals) text.insert(sign, decimals + 1 - (text.size() - sign), '0');
  text.insert(text.size() - decimals, 1, '.');
  return text;
}

/// "#,##0.00": places before and after the point, of which so many are always shown.
struct NumberPicture {
  std::size_t wholeZeros = 0;
  std::size_t decimals = 0;
  std::size_t decimalZeros = 0;
  bool thousands = false;
  bool point = false;
  bool percent = false;
};

std::optional<NumberPicture> numberPicture(std::string_view text) {
  NumberPicture picture;
  char before = '\0';
  bool anyPlace = false;
  for (const char c : text) {
    const bool place = c == '0' || c == '#';
    const bool misplaced =
        picture.percent || (c == ',' && (picture.point || (before != '0' && before != '#')));
    if (misplaced || (before == ',' && !place) || (c == '.' && picture.point)) return std::nullopt;
    if (place && picture.point) {
      ++picture.decimals;
      if (c == '0') picture.decimalZeros = picture.decimals;
    } else if (place) {
      if (c == '0' || picture.wholeZeros > 0) ++picture.wholeZeros;
    } else if (c == ',') {
      picture.thousands = true;
    } else if (c == '.') {
      picture.point = true;
    } else if (c == '%') {
      picture.percent = true;
    } else {
      return std::nullopt;
    }
    anyPlace = anyPlace || place;
    before = c;
  }
  return anyPlace && before != ',' ? std::optional(picture) : std::nullopt;
}

/// The decimals of "0" and "0.00", in which most numbers are shown: nothing is left out of such a text or put
/// between.
std::optional<std::size_t> fixedDecimals(std::string_view picture) {
  constexpr std::size_t kFirst = 2;
  if (picture == "0") return 0;
  const bool fixed = picture.size() > kFirst && picture.starts_with("0.") &&
                     picture.find_first_not_of('0', kFirst) == std::string_view::npos;
  return fixed ? std::optional(picture.size() - kFirst) : std::nullopt;
}

std::string formatNumber(Decimal value, const NumberPicture& picture) {
  if (picture.percent) value.exponent += 2;
  std::string text = fixedText(value, picture.decimals);
  const std::size_t sign = text.starts_with('-') ? 1 : 0;
  std::size_t end = std::min(text.find('.'), text.size());
  if (end == sign + 1 && text[sign] == '0') text.erase(sign, 1), --end;
  if (end - sign < picture.wholeZeros) {
    text.insert(sign, picture.wholeZeros - (end - sign), '0');
    end = sign + picture.wholeZeros;
  }
  const std::size_t shown = end + (picture.point ? 1 : 0);
  while (text.size() > shown + picture.decimalZeros && text.back() == '0') text.pop_back();
  if (picture.point && text.size() == end) text.push_back('.');
  if (picture.thousands)
    for (std::size_t at = end; at > sign + 3; at -= 3) text.insert(at - 3, 1, ',');
  if (picture.percent) text.push_back('%');
  return text;
}

char lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isLetter(char c) {
  return lower(c) >= 'a' && lower(c) <= 'z';
}

// How often the character at `at` occurs there in a row, in either case.
std::size_t runAt(std::string_view picture, std::size_t at) {
  std::size_t end = at;
  while (end < picture.size() && lower(picture[end]) == lower(picture[at])) ++end;
  return end - at;
}

bool isDatePicture(std::string_view picture) {
  bool anyField = false;
  for (std::size_t at = 0; at < picture.size();) {
    const char c = lower(picture[at]);
    if (std::string_view("\"\\@&<>!;").find(c) != std::string_view::npos) return false;
    if (!isLetter(c)) {
      ++at;
      continue;
    }
    const std::size_t run = runAt(picture, at);
    const bool known =
        c == 'y' ? run == 4 : run <= 2 && std::string_view("mdhns").find(c) != std::string_view::npos;
    if (!known) return false;
    anyField = true;
    at += run;
  }
  return anyField;
}

int partOf(DateTime date, char letter) {
  switch (letter) {
    case 'y':
      return date.year();
    case 'm':
      return date.month();
    case 'd':
      return date.day();
    case 'h':
      return date.hour();
    case 'n':
      return date.minute();
    default:
      return date.second();
  }
}

std::string formatDate(DateTime date, std::string_view picture) {
  std::string text;
  char before = '\0';
  for (std::size_t at = 0; at < picture.size();) {
    char letter = lower(picture[at]);
    if (!isLetter(letter)) {
      text.push_back(picture[at++]);
      continue;
    }
    const std::size_t run = runAt(picture, at);
    at += run;
    const auto next =
        std::find_if(picture.begin() + static_cast<std::ptrdiff_t>(at), picture.end(), isLetter);
    const bool minutes = before == 'h' || (next != picture.end() && lower(*next) == 's');
    before = letter;
    if (letter == 'm' && minutes) letter = 'n';
    const std::string digits = std::to_string(partOf(date, letter));
    if (digits.size() < run) text.append(run - digits.size(), '0');
    text += digits;
  }
  return text;
}

}  // namespace

std::string Format(const Value& value, std::string_view picture) {
  if (value.isNull()) return {};
  if (const auto decimals = fixedDecimals(picture)) {
    const auto number = numberIn(value);
    return number ? fixedText(*number, *decimals) : CStr(value);
  }
  if (const auto shown = numberPicture(picture)) {
    const auto number = numberIn(value);
    return number ? formatNumber(*number, *shown) : CStr(value);
  }
  if (!isDatePicture(picture))
    throw RuntimeError(ErrorNumber::OperationNotSupported, "不支持格式 '" + std::string(picture) + "'。");
  const auto date = dateIn(value);
  return date ? formatDate(*date, picture) : CStr(value);
}

}  // namespace zelkor
