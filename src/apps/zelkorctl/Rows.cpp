#include "apps/zelkorctl/Rows.h"

#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>

namespace zelkor {
namespace {

using Json = nlohmann::ordered_json;

std::string escaped(const std::string& text) {
  std::string result;
  for (const char c : text) {
    switch (c) {
      case '\t':
        result += "\\t";
        break;
      case '\n':
        result += "\\n";
        break;
      case '\r':
        result += "\\r";
        break;
      case '\\':
        result += "\\\\";
        break;
      default:
        result += c;
    }
  }
  return result;
}

std::string hexadecimal(const std::string& bytes) {
  static constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    text += kDigits[byte >> 4];
    text += kDigits[byte & 0xF];
  }
  return text;
}

/// The field as it is printed: bytes as hexadecimal digits.
Value printed(const Recordset& rows, std::size_t column) {
  const Value value = rows.Fields(column);
  return rows.FieldIsBinary(column) && !value.isNull() ? Value(hexadecimal(value.text())) : value;
}

std::string tabbedField(const Value& value) {
  if (value.isNull()) return "\\N";
  if (value.kind() == Value::Kind::Date) return value.as<DateTime>().toIso();
  return escaped(value.text());
}

Json jsonOf(const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Null:
      return nullptr;
    case Value::Kind::Boolean:
      return value.as<bool>();
    case Value::Kind::Short:
      return value.as<std::int16_t>();
    case Value::Kind::Long:
      return value.as<std::int32_t>();
    case Value::Kind::Double:
      return value.as<double>();
    case Value::Kind::Currency:
      return value.as<Currency>().toDouble();
    case Value::Kind::Date:
      return value.as<DateTime>().toIso();
    case Value::Kind::Text:
      return value.as<std::string>();
  }
  return nullptr;
}

}  // namespace

void printTabbed(Recordset rows, std::ostream& output) {
  const std::size_t columns = rows.FieldCount();
  const auto separator = [columns](std::size_t column) { return column + 1 == columns ? '\n' : '\t'; };
  for (std::size_t i = 0; i < columns; ++i) output << escaped(rows.FieldName(i)) << separator(i);
  for (; !rows.Eof(); rows.MoveNext()) {
    for (std::size_t i = 0; i < columns; ++i) output << tabbedField(printed(rows, i)) << separator(i);
  }
}

void printJson(Recordset rows, std::ostream& output) {
  output << '[';
  const char* separator = "\n";
  for (; !rows.Eof(); rows.MoveNext()) {
    Json object = Json::object();
    for (std::size_t i = 0; i < rows.FieldCount(); ++i) {
      if (!object.contains(rows.FieldName(i))) object[rows.FieldName(i)] = jsonOf(printed(rows, i));
    }
    output << separator << object.dump(-1, ' ', false, Json::error_handler_t::replace);
    separator = ",\n";
  }
  output << "\n]\n";
}

}  // namespace zelkor
