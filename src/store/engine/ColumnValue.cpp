#include "store/engine/ColumnValue.h"

#include <cmath>
#include <limits>

#include "base/Conversion.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

using dialect::ColumnType;

Value ofInteger(std::int64_t value) {
  if (value >= std::numeric_limits<std::int32_t>::min() && value <= std::numeric_limits<std::int32_t>::max())
    return static_cast<std::int32_t>(value);
  return static_cast<double>(value);
}

// An engine may go on with what has left the range of its numbers.
double finite(double value) {
  if (!std::isfinite(value)) throw RuntimeError(ErrorNumber::Overflow);
  return value;
}

Value byKind(const EngineStatement& row, int column, CellKind kind) {
  switch (kind) {
    case CellKind::Integer:
      return ofInteger(row.integer(column));
    case CellKind::Real:
      return finite(row.real(column));
    case CellKind::Text:
      return row.text(column);
    case CellKind::Bytes:
      return row.bytes(column);
    case CellKind::Null:
      break;
  }
  return {};
}

Value ofNumber(const EngineStatement& row, int column, CellKind kind, ColumnType type) {
  switch (type) {
    case ColumnType::Short: {
      const std::int64_t value = row.integer(column);
      const auto narrow = static_cast<std::int16_t>(value);
      if (kind == CellKind::Integer && narrow == value) return narrow;
      break;
    }
    case ColumnType::Double:
      return finite(row.real(column));
    case ColumnType::Currency:
      return Currency::fromDouble(row.real(column));
    case ColumnType::Boolean:
      return row.integer(column) != 0;
    default:
      break;
  }
  return byKind(row, column, kind);
}

Value ofText(const EngineStatement& row, int column, ColumnType type) {
  if (type == ColumnType::Date)
    if (const auto date = parseIsoDate(row.text(column))) return *date;
  return row.text(column);
}

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

Value readCell(const EngineStatement& row, int column, ColumnType type) {
  const CellKind kind = row.kind(column);
  switch (kind) {
    case CellKind::Null:
      return {};
    case CellKind::Text:
      return ofText(row, column, type);
    case CellKind::Bytes:
      return row.bytes(column);
    default:
      return ofNumber(row, column, kind, type);
  }
}

std::optional<Value> convertForColumn(const Value& value, ColumnType type) {
  try {
    return convert(value, type);
  } catch (const RuntimeError&) {
    return std::nullopt;
  }
}

void bindValue(EngineStatement& statement, int parameter, const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Null:
      return statement.bindNull(parameter);
    case Value::Kind::Boolean:
      return statement.bindInteger(parameter, value.as<bool>() ? -1 : 0);
    case Value::Kind::Short:
      return statement.bindInteger(parameter, value.as<std::int16_t>());
    case Value::Kind::Long:
      return statement.bindInteger(parameter, value.as<std::int32_t>());
    case Value::Kind::Double:
      return statement.bindReal(parameter, value.as<double>());
    case Value::Kind::Currency:
      return statement.bindReal(parameter, value.as<Currency>().toDouble());
    case Value::Kind::Date:
      return statement.bindText(parameter, value.as<DateTime>().toIso());
    case Value::Kind::Text:
      return statement.bindText(parameter, value.as<std::string>());
  }
}

}  // namespace zelkor
