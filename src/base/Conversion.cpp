#include "base/Conversion.h"

#include <cmath>
#include <limits>

#include "base/Decimal.h"
#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

[[noreturn]] void fail(ErrorNumber number) {
  throw RuntimeError(number);
}

template <typename Integer>
Integer wholeOf(double value) {
  const double rounded = roundHalfEven(value);
  if (!(rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max())) {
    fail(ErrorNumber::Overflow);
  }
  return static_cast<Integer>(rounded);
}

double numberOfText(std::string_view text) {
  const auto number = parseNumber(text);
  if (!number) fail(ErrorNumber::TypeMismatch);
  return *number;
}

Currency currencyOfText(std::string_view text) {
  const auto parsed = parseNumeral(text);
  if (!parsed) fail(ErrorNumber::TypeMismatch);
  return Currency::fromDecimal(parsed->numeral.value);
}

}  // namespace

double roundHalfEven(double value) {
  return std::nearbyint(value);
}

double divide(double dividend, double divisor) {
  if (divisor != 0) return dividend / divisor;
  fail(dividend == 0 ? ErrorNumber::Overflow : ErrorNumber::DivisionByZero);
}

std::int16_t CInt(double value) {
  return wholeOf<std::int16_t>(value);
}
std::int32_t CLng(double value) {
  return wholeOf<std::int32_t>(value);
}

std::int16_t CInt(const Value& value) {
  if (value.kind() == Value::Kind::Short) return value.as<std::int16_t>();
  return wholeOf<std::int16_t>(CDbl(value));
}

std::int32_t CLng(const Value& value) {
  if (value.kind() == Value::Kind::Long) return value.as<std::int32_t>();
  return wholeOf<std::int32_t>(CDbl(value));
}

double CDbl(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Null:
      fail(ErrorNumber::InvalidUseOfNull);
    case Value::Kind::Boolean:
      return value.as<bool>() ? -1 : 0;
    case Value::Kind::Short:
      return value.as<std::int16_t>();
    case Value::Kind::Long:
      return value.as<std::int32_t>();
    case Value::Kind::Double:
      return value.as<double>();
    case Value::Kind::Currency:
      return value.as<Currency>().toDouble();
    case Value::Kind::Date:
      return value.as<DateTime>().toSerial();
    case Value::Kind::Text:
      return numberOfText(value.as<std::string>());
  }
  return 0;
}

Currency CCur(const Value& value) {
  if (value.kind() == Value::Kind::Currency) return value.as<Currency>();
  if (value.isText()) return currencyOfText(value.as<std::string>());
  return Currency::fromDouble(CDbl(value));
}

bool CBool(const Value& value) {
  if (value.kind() == Value::Kind::Boolean) return value.as<bool>();
  if (!value.isText()) return CDbl(value) != 0;
  const std::string word = LCase(Trim(value.as<std::string>()));
  if (word == "true" || word == "#true#") return true;
  if (word == "false" || word == "#false#") return false;
  return numberOfText(word) != 0;
}

DateTime CDate(const Value& value) {
  if (value.kind() == Value::Kind::Date) return value.as<DateTime>();
  if (!value.isText()) return DateTime::fromSerial(CDbl(value));
  const auto date = parseDate(value.as<std::string>());
  if (!date) fail(ErrorNumber::TypeMismatch);
  return *date;
}

std::string CStr(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Null:
      fail(ErrorNumber::InvalidUseOfNull);
    case Value::Kind::Boolean:
      return value.as<bool>() ? "True" : "False";
    case Value::Kind::Short:
      return std::to_string(value.as<std::int16_t>());
    case Value::Kind::Long:
      return std::to_string(value.as<std::int32_t>());
    case Value::Kind::Double:
      return textOfDouble(value.as<double>());
    case Value::Kind::Currency:
      return value.as<Currency>().toText();
    case Value::Kind::Date:
      return value.as<DateTime>().toText();
    case Value::Kind::Text:
      return value.as<std::string>();
  }
  return {};
}

bool IsDate(const Value& value) {
  if (value.kind() == Value::Kind::Date) return true;
  return value.isText() && parseDate(value.as<std::string>()).has_value();
}

bool IsNumeric(const Value& value) {
  if (!value.isText()) return value.isNumber();
  const auto parsed = parseNumeral(value.as<std::string>());
  if (!parsed) return false;
  try {
    toDouble(parsed->numeral, parsed->digits);
    return true;
  } catch (const RuntimeError&) {  // beyond the range of a double
    return false;
  }
}

}  // namespace zelkor
