#include "transfer/jet/JetConversion.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor::jet {
namespace {

using dialect::ColumnType;
using Converted = std::optional<CarriedCell>;

constexpr std::int64_t kCurrencyUnit = 10000;
constexpr std::size_t kLongestShown = 40;

template <typename Whole>
Converted within(std::int64_t value) {
  if (value < std::numeric_limits<Whole>::min() || value > std::numeric_limits<Whole>::max())
    return std::nullopt;
  return value;
}

/// The shortest text that stands for the same double.
std::string textOf(double value) {
  std::array<char, 32> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), value);
  return {text.data(), result.ptr};
}

Converted inBuffer(std::string text, std::string& buffer) {
  buffer = std::move(text);
  return std::string_view(buffer);
}

Converted wholeTo(std::int64_t value, ColumnType type, std::string& buffer) {
  switch (type) {
    case ColumnType::Short:
      return within<std::int16_t>(value);
    case ColumnType::Long:
    case ColumnType::Counter:
      return within<std::int32_t>(value);
    case ColumnType::Boolean:
      if (value < -1 || value > 1) return std::nullopt;
      return std::int64_t{value == 0 ? 0 : -1};
    case ColumnType::Double:
      return static_cast<double>(value);
    case ColumnType::Currency:
      return Currency::fromScaled(value * kCurrencyUnit);  // a whole number of a file has 32 bits
    case ColumnType::Date:
      return DateTime::fromSerial(static_cast<double>(value));
    case ColumnType::Text:
    case ColumnType::Memo:
      return inBuffer(std::to_string(value), buffer);
    default:
      return std::nullopt;
  }
}

Converted realTo(double value, ColumnType type, std::string& buffer) {
  switch (type) {
    case ColumnType::Short:
    case ColumnType::Long:
    case ColumnType::Counter:
    case ColumnType::Boolean:
      if (value != std::trunc(value) || std::fabs(value) > std::numeric_limits<std::int32_t>::max())
        return std::nullopt;
      return wholeTo(static_cast<std::int64_t>(value), type, buffer);
    case ColumnType::Double:
      return value;
    case ColumnType::Currency: {
      // The platform takes 15 digits of a double for its value; what lies after them is no loss.
      const Currency currency = Currency::fromDouble(value);
      if (textOfDouble(currency.toDouble()) != textOfDouble(value)) return std::nullopt;
      return currency;
    }
    case ColumnType::Date:
      return DateTime::fromSerial(value);
    case ColumnType::Text:
    case ColumnType::Memo:
      return inBuffer(textOf(value), buffer);
    default:
      return std::nullopt;
  }
}

Converted currencyTo(Currency value, ColumnType type, std::string& buffer) {
  switch (type) {
    case ColumnType::Currency:
      return value;
    case ColumnType::Text:
    case ColumnType::Memo:
      return inBuffer(value.toText(), buffer);
    case ColumnType::Double:
      if (Currency::fromDouble(value.toDouble()) != value) return std::nullopt;
      return value.toDouble();
    default:
      if (value.scaled() % kCurrencyUnit != 0) return std::nullopt;
      return wholeTo(value.scaled() / kCurrencyUnit, type, buffer);
  }
}

Converted dateTo(DateTime value, ColumnType type, std::string& buffer) {
  switch (type) {
    case ColumnType::Date:
      return value;
    case ColumnType::Text:
    case ColumnType::Memo:
      return inBuffer(value.toText(), buffer);
    default:
      return realTo(value.toSerial(), type, buffer);
  }
}

Converted textTo(std::string_view text, ColumnType type, std::string& buffer) {
  switch (type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return text;
    case ColumnType::Boolean:
      return std::int64_t{CBool(Value(text)) ? -1 : 0};
    case ColumnType::Currency:
      return CCur(Value(text));
    case ColumnType::Date:
      if (const auto date = parseDate(text)) return *date;
      return std::nullopt;
    case ColumnType::Binary:
      return std::nullopt;
    default:
      return realTo(CDbl(Value(text)), type, buffer);
  }
}

Converted changed(const CarriedCell& value, ColumnType type, std::string& buffer) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return wholeTo(*whole, type, buffer);
  if (const auto* real = std::get_if<double>(&value)) return realTo(*real, type, buffer);
  if (const auto* amount = std::get_if<Currency>(&value)) return currencyTo(*amount, type, buffer);
  if (const auto* date = std::get_if<DateTime>(&value)) return dateTo(*date, type, buffer);
  if (const auto* text = std::get_if<std::string_view>(&value)) return textTo(*text, type, buffer);
  if (type == ColumnType::Binary) return value;
  return std::nullopt;
}

}  // namespace

std::optional<CarriedCell> converted(const CarriedCell& value, ColumnType type, std::string& buffer) {
  if (std::holds_alternative<std::monostate>(value))
    return type == ColumnType::Boolean ? std::nullopt : Converted(value);
  try {
    return changed(value, type, buffer);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

bool isNumberBeyondZero(const CarriedCell& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return *whole != 0;
  if (const auto* real = std::get_if<double>(&value)) return *real != 0;
  const auto* amount = std::get_if<Currency>(&value);
  return amount != nullptr && amount->scaled() != 0;
}

bool holdsAll(ColumnType type, ColumnType other) {
  if (type == other) return true;
  switch (type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return other == ColumnType::Text || other == ColumnType::Memo;
    case ColumnType::Long:
    case ColumnType::Counter:
      return other == ColumnType::Long || other == ColumnType::Short || other == ColumnType::Boolean;
    case ColumnType::Short:
      return other == ColumnType::Boolean;
    default:
      return false;
  }
}

std::string shownText(const CarriedCell& value) {
  if (std::holds_alternative<std::monostate>(value)) return "空值";
  if (std::holds_alternative<CarriedBytes>(value)) return "二进制数据";
  std::string buffer;
  const auto text = converted(value, ColumnType::Memo, buffer);
  const std::string whole(std::get<std::string_view>(*text));
  return Len(whole) <= kLongestShown ? whole : Left(whole, kLongestShown) + "…";
}

}  // namespace zelkor::jet
