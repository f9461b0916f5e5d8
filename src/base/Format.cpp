#include "base/Format.h"

#include <array>
#include <cmath>

#include "base/Conversion.h"
#include "base/FormatPictures.h"
#include "base/Text.h"

namespace zelkor {
namespace {

struct NamedPicture {
  std::string_view name;
  std::string_view picture;
};

// Numbers and dates of the Chinese locale.
constexpr std::array<NamedPicture, 12> kNamedPictures = {{{"Fixed", "0.00"},
                                                          {"Standard", "#,##0.00"},
                                                          {"Percent", "0.00%"},
                                                          {"Scientific", "0.00E+00"},
                                                          {"Currency", "￥#,##0.00;￥-#,##0.00"},
                                                          {"General Date", "c"},
                                                          {"Long Date", "dddddd"},
                                                          {"Medium Date", "dd-mmm-yy"},
                                                          {"Short Date", "ddddd"},
                                                          {"Long Time", "ttttt"},
                                                          {"Medium Time", "hh:nn AM/PM"},
                                                          {"Short Time", "hh:nn"}}};

struct NamedTruth {
  std::string_view name;
  std::string_view yes;
  std::string_view no;
};
constexpr std::array<NamedTruth, 3> kNamedTruths = {
    {{"Yes/No", "Yes", "No"}, {"True/False", "True", "False"}, {"On/Off", "On", "Off"}}};

enum class PictureKind { Number, Date, Text, Literal };

bool contains(std::string_view set, char c) {
  return set.find(c) != std::string_view::npos;
}

// The first character with a meaning tells what the picture is for.
PictureKind kindOf(std::string_view picture) {
  std::string ignored;
  while (!picture.empty()) {
    if (const std::size_t literal = takeLiteral(picture, ignored); literal != 0) {
      picture.remove_prefix(literal);
      continue;
    }
    const char c = picture.front();
    if (contains("0#.,%", c)) return PictureKind::Number;
    if (contains("@&<>!", c)) return PictureKind::Text;
    if (contains("ymdhnswqcYMDHNSWQC", c) || picture.starts_with("ttttt")) return PictureKind::Date;
    if (picture.starts_with("AM/PM") || picture.starts_with("am/pm")) return PictureKind::Date;
    picture.remove_prefix(1);
  }
  return PictureKind::Literal;
}

// "0", "0.00" and their like, which nearly every amount is shown with; -1 for any other picture.
int fixedPlaces(std::string_view picture) {
  if (picture == "0") return 0;
  if (!picture.starts_with("0.0")) return -1;
  const bool onlyZeros = picture.find_first_not_of('0', 2) == std::string_view::npos;
  return onlyZeros ? static_cast<int>(picture.size()) - 2 : -1;
}

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

// "@" a character or a blank, "&" a character or nothing, filled from the right unless "!" stands in the
// picture; "<" and ">" change the case.
std::string formatText(std::string_view text, std::string_view picture) {
  std::size_t places = 0;
  for (const char c : picture) places += contains("@&", c) ? 1 : 0;
  const bool fromLeft = contains(picture, '!');
  std::size_t missing = places > Len(text) ? places - Len(text) : 0;
  std::size_t next = 1;
  std::string result;
  if (places != 0 && Len(text) > places && !fromLeft) {
    result = Left(text, Len(text) - places);
    next += Len(text) - places;
  }
  for (const char c : picture) {
    if (contains("<>!", c)) continue;
    if (!contains("@&", c)) {
      result.push_back(c);
    } else if (fromLeft ? next > Len(text) : missing > 0) {
      if (missing > 0) --missing;
      if (c == '@') result.push_back(' ');
    } else {
      result += Mid(text, next++, 1);
    }
  }
  result += Mid(text, places == 0 ? 1 : next);
  if (contains(picture, '<')) return LCase(result);
  return contains(picture, '>') ? UCase(result) : result;
}

std::string formatNull(std::string_view picture) {
  const auto sections = pictureSections(picture);
  return sections.size() == 4 ? formatNumber(Decimal{}, sections[3]) : std::string();
}

std::optional<std::string> formatNamed(const Value& value, std::string_view name) {
  for (const NamedPicture& named : kNamedPictures) {
    if (equalsIgnoringCase(name, named.name)) return Format(value, named.picture);
  }
  const bool general = equalsIgnoringCase(name, "General Number");
  for (const NamedTruth& named : kNamedTruths) {
    if (!equalsIgnoringCase(name, named.name)) continue;
    const auto number = numberIn(value);
    if (!number) return CStr(value);
    return std::string(number->isZero() ? named.no : named.yes);
  }
  if (!general) return std::nullopt;
  const bool dated = value.kind() == Value::Kind::Date;
  return dated ? textOfDouble(value.as<DateTime>().toSerial()) : CStr(value);
}

}  // namespace

std::vector<std::string_view> pictureSections(std::string_view picture) {
  std::vector<std::string_view> sections;
  std::size_t start = 0;
  std::string ignored;
  for (std::size_t at = 0; at < picture.size();) {
    if (const std::size_t literal = takeLiteral(picture.substr(at), ignored); literal != 0) {
      at += literal;
      continue;
    }
    if (picture[at] == ';') {
      sections.push_back(picture.substr(start, at - start));
      start = at + 1;
    }
    ++at;
  }
  sections.push_back(picture.substr(start));
  return sections;
}

std::size_t takeLiteral(std::string_view picture, std::string& literal) {
  if (picture.size() >= 2 && picture[0] == '\\') {
    literal.push_back(picture[1]);
    return 2;
  }
  if (!picture.starts_with('"')) return 0;
  const std::size_t end = picture.find('"', 1);
  const std::size_t stop = end == std::string_view::npos ? picture.size() : end;
  literal += picture.substr(1, stop - 1);
  return end == std::string_view::npos ? stop : stop + 1;
}

std::string Format(const Value& value, std::string_view picture) {
  if (value.isNull()) return formatNull(picture);
  if (const int places = fixedPlaces(picture); places >= 0) {
    const auto number = numberIn(value);
    return number ? formatFixed(*number, places) : CStr(value);
  }
  if (picture.empty()) return CStr(value);
  if (const auto text = formatNamed(value, picture)) return *text;
  switch (kindOf(picture)) {
    case PictureKind::Number: {
      const auto number = numberIn(value);
      return number ? formatNumber(*number, picture) : CStr(value);
    }
    case PictureKind::Date: {
      const auto date = dateIn(value);
      return date ? formatDate(*date, picture) : CStr(value);
    }
    case PictureKind::Text:
      return formatText(CStr(value), picture);
    case PictureKind::Literal:
      break;
  }
  return formatNumber(Decimal{}, picture);
}

}  // namespace zelkor
