#include "transfer/CellReading.h"

#include <cmath>
#include <limits>

#include "base/Text.h"
#include "base/Value.h"
#include "store/dialect/binding/ColumnTypes.h"
#include "store/dialect/binding/functions/ColumnConversion.h"
#include "store/engine/ColumnValue.h"
#include "transfer/ExactCurrency.h"

namespace zelkor {
namespace {

using dialect::ColumnType;

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
constexpr std::size_t kLongestQuotation = 40;

bool isPlain(std::string_view text) {
  for (const char c : text)
    if (static_cast<unsigned char>(c) >= 0x80U) return isValidUtf8(text);
  return true;
}

std::string repaired(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::string character = Left(text, 1);
    result += isValidUtf8(character) ? std::string_view(character) : kReplacement;
    text.remove_prefix(character.size());
  }
  return result;
}

std::string quotation(const std::string& text) {
  const std::string plain = repaired(text);
  return "“" + (Len(plain) > kLongestQuotation ? Left(plain, kLongestQuotation) + "…" : plain) + "”";
}

bool fits(ColumnType type, std::int64_t value) {
  switch (type) {
    case ColumnType::Boolean:
      return value == 0 || value == -1;
    case ColumnType::Short:
      return value == static_cast<std::int16_t>(value);
    default:
      return value == static_cast<std::int32_t>(value);
  }
}

struct CellOfValue {
  const Value& value;
  std::string& buffer;

  CarriedCell operator()() const {
    switch (value.kind()) {
      case Value::Kind::Boolean:
        return std::int64_t{value.as<bool>() ? -1 : 0};
      case Value::Kind::Short:
        return std::int64_t{value.as<std::int16_t>()};
      case Value::Kind::Long:
        return std::int64_t{value.as<std::int32_t>()};
      case Value::Kind::Double:
        return value.as<double>();
      case Value::Kind::Currency:
        return value.as<Currency>();
      case Value::Kind::Date:
        return value.as<DateTime>();
      case Value::Kind::Text:
        buffer = value.as<std::string>();
        return std::string_view(buffer);
      case Value::Kind::Null:
        break;
    }
    return {};
  }
};

}  // namespace

CarriedCell CellReading::read(const EngineStatement& row) {
  problem_.reset();
  const CellKind kind = row.kind(place_);
  if (kind == CellKind::Null && type_ != ColumnType::Boolean) return {};
  if (const auto cell = exact(row, kind)) return *cell;
  return nearest(row, kind);
}

std::optional<CarriedCell> CellReading::exact(const EngineStatement& row, CellKind kind) {
  switch (type_) {
    case ColumnType::Text:
    case ColumnType::Memo:
    case ColumnType::Date:
      return exactText(row, kind);
    case ColumnType::Binary:
      if (kind != CellKind::Bytes) return std::nullopt;
      buffer_ = row.bytes(place_);
      return CarriedBytes{buffer_};
    default:
      return exactNumber(row, kind);
  }
}

std::optional<CarriedCell> CellReading::exactText(const EngineStatement& row, CellKind kind) const {
  if (type_ != ColumnType::Date) {
    if (kind == CellKind::Bytes) return std::nullopt;
    const std::string_view text = row.text(place_);
    return isPlain(text) ? std::optional<CarriedCell>(text) : std::nullopt;
  }
  if (kind != CellKind::Text) return std::nullopt;
  const auto date = parseIsoDate(row.text(place_));
  return date ? std::optional<CarriedCell>(*date) : std::nullopt;
}

std::optional<CarriedCell> CellReading::exactNumber(const EngineStatement& row, CellKind kind) const {
  if (kind != CellKind::Integer && kind != CellKind::Real) return std::nullopt;
  if (type_ == ColumnType::Double) return row.real(place_);
  if (type_ == ColumnType::Currency) {
    const auto amount = decimalAmounts_ ? exactCurrency(row.text(place_)) : exactCurrency(row.real(place_));
    return amount ? std::optional<CarriedCell>(*amount) : std::nullopt;
  }
  if (kind == CellKind::Real && std::nearbyint(row.real(place_)) != row.real(place_)) return std::nullopt;
  if (kind == CellKind::Real && std::abs(row.real(place_)) > std::numeric_limits<std::int32_t>::max())
    return std::nullopt;
  const std::int64_t value = row.integer(place_);
  return fits(type_, value) ? std::optional<CarriedCell>(value) : std::nullopt;
}

CarriedCell CellReading::nearest(const EngineStatement& row, CellKind kind) {
  if (type_ == ColumnType::Text || type_ == ColumnType::Memo) return nearestText(row, kind);
  if (type_ != ColumnType::Binary) return nearestValue(row);
  buffer_ = row.text(place_);
  problem_ = "值" + quotation(buffer_) + "不是二进制内容，按其字节存入。";
  return CarriedBytes{buffer_};
}

CarriedCell CellReading::nearestText(const EngineStatement& row, CellKind kind) {
  const std::string text = kind == CellKind::Bytes ? row.bytes(place_) : std::string(row.text(place_));
  buffer_ = repaired(text);
  problem_ = buffer_ == text ? "二进制内容按文本存入。" : "文本中有不是 UTF-8 的字节，以“�”代替。";
  return std::string_view(buffer_);
}

CarriedCell CellReading::nearestValue(const EngineStatement& row) {
  const Value value = readCell(row, place_, ColumnType::Unknown);
  const std::optional<Value> converted = dialect::convertForColumn(value, type_);
  // A number or a date in a column of texts may be what the type wants.
  if (!converted || converted->isNull() || !value.isText() || converted->text() != value.text())
    problem_ = (value.isNull() ? "空值" : "值" + quotation(value.text())) + "不是" +
               dialect::typeName(type_) + "，存为" +
               (!converted || converted->isNull() ? "空值" : quotation(converted->text())) + "。";
  return converted ? CellOfValue{*converted, buffer_}() : CarriedCell{};
}

}  // namespace zelkor
