#include "store/engine/sqlite/SqliteFunctions.h"

#include <limits>

#include "base/Conversion.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace sqlite {

bool isNull(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_NULL;
}

bool anyNull(Arguments arguments) {
  for (sqlite3_value* argument : arguments)
    if (isNull(argument)) return true;
  return false;
}

std::string_view textOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return {text ? text : "", static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

double numberOf(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_TEXT) return CDbl(Value(textOf(value)));
  return sqlite3_value_double(value);
}

Value valueOf(sqlite3_value* value) {
  switch (sqlite3_value_type(value)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER: {
      const sqlite3_int64 number = sqlite3_value_int64(value);
      if (number >= std::numeric_limits<std::int32_t>::min() &&
          number <= std::numeric_limits<std::int32_t>::max())
        return static_cast<std::int32_t>(number);
      return static_cast<double>(number);
    }
    case SQLITE_FLOAT:
      return sqlite3_value_double(value);
    default:
      return textOf(value);
  }
}

DateTime dateOf(sqlite3_value* value) {
  if (sqlite3_value_type(value) != SQLITE_TEXT) return DateTime::fromSerial(sqlite3_value_double(value));
  const std::string_view text = textOf(value);
  if (const auto date = parseIsoDate(text)) return *date;
  if (const auto date = parseDate(text)) return *date;
  throw RuntimeError(ErrorNumber::TypeMismatch);
}

void giveText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void giveDate(sqlite3_context* context, DateTime date) {
  giveText(context, date.toIso());
}

void giveBoolean(sqlite3_context* context, bool value) {
  sqlite3_result_int(context, value ? -1 : 0);
}

void giveValue(sqlite3_context* context, const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Null:
      return sqlite3_result_null(context);
    case Value::Kind::Boolean:
      return giveBoolean(context, value.as<bool>());
    case Value::Kind::Short:
      return sqlite3_result_int(context, value.as<std::int16_t>());
    case Value::Kind::Long:
      return sqlite3_result_int(context, value.as<std::int32_t>());
    case Value::Kind::Double:
      return sqlite3_result_double(context, value.as<double>());
    case Value::Kind::Currency:
      return sqlite3_result_double(context, value.as<Currency>().toDouble());
    case Value::Kind::Date:
      return giveDate(context, value.as<DateTime>());
    case Value::Kind::Text:
      return giveText(context, value.as<std::string>());
  }
}

void giveError(sqlite3_context* context, const std::exception& failure) {
  const auto* error = dynamic_cast<const RuntimeError*>(&failure);
  const int number = error ? error->number() : static_cast<int>(ErrorNumber::InvalidProcedureCall);
  const std::string text = "ZK" + std::to_string(number) + ":" + failure.what();
  sqlite3_result_error(context, text.c_str(), static_cast<int>(text.size()));
}

namespace {

// No exception may pass through the engine's own frames.
void invoke(sqlite3_context* context, int count, sqlite3_value** values) {
  const auto* entry = static_cast<const FunctionEntry*>(sqlite3_user_data(context));
  try {
    entry->function(context, Arguments(values, static_cast<std::size_t>(count)));
  } catch (const std::exception& failure) {
    giveError(context, failure);
  }
}

void registerAll(sqlite3* connection, std::span<const FunctionEntry> entries) {
  for (const FunctionEntry& entry : entries) {
    const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (entry.deterministic ? SQLITE_DETERMINISTIC : 0);
    sqlite3_create_function_v2(connection, entry.name, entry.arguments, flags,
                               const_cast<FunctionEntry*>(&entry), invoke, nullptr, nullptr, nullptr);
  }
}

}  // namespace
}  // namespace sqlite

void registerSqliteFunctions(sqlite3* connection) {
  sqlite::registerAll(connection, sqlite::conversionFunctions());
  sqlite::registerAll(connection, sqlite::textFunctions());
  sqlite::registerAll(connection, sqlite::dateFunctions());
  sqlite::registerAll(connection, sqlite::numberFunctions());
  sqlite::registerAggregates(connection);
}

}  // namespace zelkor
