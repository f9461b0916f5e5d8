#include "store/dialect/binding/functions/ColumnConversion.h"

#include "base/Conversion.h"
#include "base/RuntimeError.h"

namespace zelkor::dialect {
namespace {

std::optional<double> numberOf(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Text:
      return parseNumber(value.as<std::string>());
    case Value::Kind::Date:
      return value.as<DateTime>().toSerial();
    default:
      return value.number();
  }
}

template <typename Convert>
std::optional<Value> whole(const Value& value, Convert convert) {
  const std::optional<double> number = numberOf(value);
  if (!number) return std::nullopt;
  return Value(convert(*number));
}

std::optional<Value> toDate(const Value& value) {
  if (value.kind() == Value::Kind::Date) return value;
  if (value.isText()) {
    const auto date = parseDate(value.as<std::string>());
    return date ? std::optional<Value>(*date) : std::nullopt;
  }
  return Value(DateTime::fromSerial(value.number()));
}

std::optional<Value> toBoolean(const Value& value) {
  if (value.isNull()) return Value(false);
  if (value.kind() == Value::Kind::Date) return Value(value.as<DateTime>().toSerial() != 0);
  return Value(CBool(value));
}

std::optional<Value> toText(const Value& value) {
  if (value.isText()) return value;
  return Value(CStr(value));
}

std::optional<Value> convert(const Value& value, ColumnType type) {
  if (type == ColumnType::Boolean) return toBoolean(value);
  if (value.isNull()) return value;
  switch (type) {
    case ColumnType::Text:
    case ColumnType::Memo:
      return toText(value);
    case ColumnType::Short:
      return whole(value, [](double number) { return CInt(number); });
    case ColumnType::Long:
    case ColumnType::Counter:
      return whole(value, [](double number) { return CLng(number); });
    case ColumnType::Double:
      return whole(value, [](double number) { return number; });
    case ColumnType::Currency:
      if (value.kind() == Value::Kind::Currency) return value;
      return whole(value, [](double number) { return Currency::fromDouble(number); });
    case ColumnType::Date:
      return toDate(value);
    default:
      return value;
  }
}

}  // namespace

std::optional<Value> convertForColumn(const Value& value, ColumnType type) {
  try {
    return convert(value, type);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

}  // namespace zelkor::dialect
