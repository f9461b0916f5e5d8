#include "transfer/jet/JetValue.h"

#include <array>
#include <cmath>

#include "base/RuntimeError.h"
#include "transfer/jet/JetNumeric.h"

namespace zelkor::jet {
namespace {

using dialect::ColumnType;

constexpr std::size_t kGuidSize = 16;
constexpr int kGuidText = 38;
constexpr int kWholeDigitsOfCurrency = 14;
constexpr int kDecimalsOfCurrency = 4;

// By what the column may hold, so that all of its values are kept alike.
bool fitsCurrency(const Column& column) {
  return column.scale <= kDecimalsOfCurrency && column.precision - column.scale <= kWholeDigitsOfCurrency;
}

/// The first three groups are numbers, their low bytes first; the rest is a row of bytes.
void writeGuid(std::string_view bytes, std::string& text) {
  constexpr std::array<std::size_t, kGuidSize> order{3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15};
  constexpr std::string_view digits = "0123456789ABCDEF";
  text = "{";
  for (std::size_t i = 0; i < kGuidSize; ++i) {
    if (i == 4 || i == 6 || i == 8 || i == 10) text.push_back('-');
    const auto byte = static_cast<unsigned char>(bytes[order[i]]);
    text.push_back(digits[byte >> 4]);
    text.push_back(digits[byte & 0xF]);
  }
  text.push_back('}');
}

}  // namespace

ColumnType nativeType(const Column& column) {
  switch (column.type) {
    case Type::Boolean:
      return ColumnType::Boolean;
    case Type::Byte:
    case Type::Short:
      return ColumnType::Short;
    case Type::Long:
      return ColumnType::Long;
    case Type::Money:
      return ColumnType::Currency;
    case Type::Single:
    case Type::Double:
      return ColumnType::Double;
    case Type::Date:
      return ColumnType::Date;
    case Type::Binary:
    case Type::Ole:
      return ColumnType::Binary;
    case Type::Text:
    case Type::Guid:
      return ColumnType::Text;
    case Type::Memo:
      return ColumnType::Memo;
    case Type::Numeric:
      return fitsCurrency(column) ? ColumnType::Currency : ColumnType::Double;
  }
  return ColumnType::Unknown;
}

int textSize(const Column& column, const Layout& layout) {
  if (column.type == Type::Guid) return kGuidText;
  if (column.type != Type::Text) return 0;
  return static_cast<int>(layout.isJet3 ? column.length : column.length / 2);
}

CarriedCell ValueReader::read(TableWalk& walk, const Column& column, std::string& buffer) {
  complaint_.clear();
  const bool isSet = walk.isSet(column);
  if (column.type == Type::Boolean) return std::int64_t{isSet ? -1 : 0};
  if (!isSet) return {};
  const std::string_view field = walk.field(column);
  if (const std::size_t size = sizeOf(column.type); size != 0 && field.size() != size)
    walk.damaged(column, "不能读出");
  return ofField(walk, column, field, buffer);
}

CarriedCell ValueReader::ofField(TableWalk& walk, const Column& column, std::string_view field,
                                 std::string& buffer) {
  switch (column.type) {
    case Type::Byte:
      return std::int64_t{numberAt<std::uint8_t>(field, 0)};
    case Type::Short:
      return std::int64_t{numberAt<std::int16_t>(field, 0)};
    case Type::Long:
      return std::int64_t{numberAt<std::int32_t>(field, 0)};
    case Type::Money:
      return Currency::fromScaled(numberAt<std::int64_t>(field, 0));
    case Type::Single:
      return real(numberAt<float>(field, 0));
    case Type::Double:
      return real(numberAt<double>(field, 0));
    case Type::Date:
      return date(numberAt<double>(field, 0));
    case Type::Numeric:
      return numeric(column, field);
    case Type::Guid:
      writeGuid(field, buffer);
      return std::string_view(buffer);
    case Type::Text:
      return text(field, buffer);
    case Type::Memo:
      return memo(walk, field, buffer);
    case Type::Ole:
      return CarriedBytes{walk.longValue(field, buffer)};
    default:
      return CarriedBytes{field};
  }
}

CarriedCell ValueReader::text(std::string_view bytes, std::string& buffer) {
  const DecodedText text = texts_.value(bytes, buffer);
  if (!text.whole) complaint_ = "含有不能解读的字符，以 U+FFFD 代替";
  return text.text;
}

CarriedCell ValueReader::memo(TableWalk& walk, std::string_view field, std::string& buffer) {
  const std::string_view bytes = walk.longValue(field, longValue_);
  const CarriedCell cell = text(bytes, buffer);
  if (bytes.data() != longValue_.data() || std::get<std::string_view>(cell).data() == buffer.data())
    return cell;
  buffer = std::get<std::string_view>(cell);
  return std::string_view(buffer);
}

CarriedCell ValueReader::real(double value) {
  if (std::isfinite(value)) return value;
  complaint_ = "不是有限的数值，存为空值";
  return {};
}

CarriedCell ValueReader::date(double serial) try {
  return DateTime::fromSerial(serial);
} catch (const RuntimeError&) {
  complaint_ = "日期超出范围，存为空值：序号 " + std::to_string(serial);
  return {};
}

CarriedCell ValueReader::numeric(const Column& column, std::string_view field) {
  const Numeric value(field, column.scale);
  if (fitsCurrency(column)) {
    if (const auto currency = value.currency()) return *currency;
    complaint_ = "超出货币的范围，存为空值：" + value.toText();
    return {};
  }
  if (!value.isExactAsDouble()) complaint_ = "位数过多，存为最接近的双精度数：" + value.toText();
  return value.toDouble();
}

}  // namespace zelkor::jet
