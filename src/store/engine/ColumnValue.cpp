#include "store/engine/ColumnValue.h"

#include <cmath>
#include <limits>

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
