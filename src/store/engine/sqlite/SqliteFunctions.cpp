#include "store/engine/sqlite/SqliteFunctions.h"

#include <array>
#include <exception>
#include <limits>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "store/dialect/binding/functions/SqlFunction.h"

namespace zelkor {
namespace {

using dialect::RowGathering;
using dialect::SqlFunction;

bool isNull(sqlite3_value* value) {
  return sqlite3_value_type(value) == SQLITE_NULL;
}

Value textOf(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  return std::string_view(text ? text : "", static_cast<std::size_t>(sqlite3_value_bytes(value)));
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

Value numberOf(sqlite3_value* value) {
  if (sqlite3_value_type(value) == SQLITE_TEXT) return CDbl(textOf(value));
  return sqlite3_value_double(value);
}

Value dateOf(sqlite3_value* value) {
  const Value given = valueOf(value);
  if (given.isText())
    if (const auto date = parseIsoDate(given.as<std::string>())) return *date;
  return CDate(given);
}

// What the letters of SqlFunction::arguments say.
Value argument(char letter, sqlite3_value* value) {
  switch (letter) {
    case 't':
      return textOf(value);
    case 'n':
      return numberOf(value);
    case 'd':
      return dateOf(value);
    default:
      return valueOf(value);
  }
}

bool nullGivesNull(char letter) {
  return letter == 't' || letter == 'n' || letter == 'd';
}

void giveText(sqlite3_context* context, std::string_view text) {
  sqlite3_result_text64(context, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

// A double that is whole stays a double.
void giveValue(sqlite3_context* context, const Value& value) {
  switch (value.kind()) {
    case Value::Kind::Null:
      return sqlite3_result_null(context);
    case Value::Kind::Boolean:
      return sqlite3_result_int(context, value.as<bool>() ? -1 : 0);
    case Value::Kind::Short:
      return sqlite3_result_int(context, value.as<std::int16_t>());
    case Value::Kind::Long:
      return sqlite3_result_int(context, value.as<std::int32_t>());
    case Value::Kind::Double:
      return sqlite3_result_double(context, value.as<double>());
    case Value::Kind::Currency:
      return sqlite3_result_double(context, value.as<Currency>().toDouble());
    case Value::Kind::Date:
      return giveText(context, value.as<DateTime>().toIso());
    case Value::Kind::Text:
      return giveText(context, value.as<std::string>());
  }
}

// No exception may pass through the engine's own frames.
template <typename Work>
void guarded(sqlite3_context* context, Work work) {
  try {
    work();
  } catch (const std::exception& failure) {
    const auto* error = dynamic_cast<const RuntimeError*>(&failure);
    const int number = error ? error->number() : static_cast<int>(ErrorNumber::InvalidProcedureCall);
    const std::string text = "ZK" + std::to_string(number) + ":" + failure.what();
    sqlite3_result_error(context, text.c_str(), static_cast<int>(text.size()));
  }
}

const SqlFunction& functionOf(sqlite3_context* context) {
  return *static_cast<const SqlFunction*>(sqlite3_user_data(context));
}

void invoke(sqlite3_context* context, int count, sqlite3_value** values) {
  guarded(context, [&] {
    const SqlFunction& function = functionOf(context);
    std::array<Value, 3> arguments;
    const auto size = static_cast<std::size_t>(count);
    for (std::size_t i = 0; i < size; ++i) {
      if (nullGivesNull(function.arguments[i]) && isNull(values[i])) return;
      arguments[i] = argument(function.arguments[i], values[i]);
    }
    giveValue(context, function.inFile({arguments.data(), size}));
  });
}

// The engine hands out zeroed memory for each group; it keeps a pointer.
RowGathering*& gathering(sqlite3_context* context) {
  return *static_cast<RowGathering**>(sqlite3_aggregate_context(context, sizeof(RowGathering*)));
}

// A table that an outer join leaves out has no place: it comes first.
std::vector<std::int64_t> placeIn(std::span<sqlite3_value*> values) {
  std::vector<std::int64_t> place;
  for (sqlite3_value* value : values)
    place.push_back(isNull(value) ? std::numeric_limits<std::int64_t>::min() : sqlite3_value_int64(value));
  return place;
}

void gather(sqlite3_context* context, int count, sqlite3_value** values) {
  guarded(context, [&] {
    const SqlFunction& function = functionOf(context);
    const char letter = function.arguments.front();
    if (nullGivesNull(letter) && isNull(values[0])) return;
    RowGathering*& gathered = gathering(context);
    if (!gathered) gathered = function.gatheredInFile().release();
    if (count > 1) gathered->standAt(placeIn({values + 1, static_cast<std::size_t>(count - 1)}));
    if (letter == 'n' && sqlite3_value_type(values[0]) == SQLITE_FLOAT) {
      gathered->addNumber(sqlite3_value_double(values[0]));
    } else {
      gathered->add(argument(letter, values[0]));
    }
  });
}

void giveGathered(sqlite3_context* context) {
  const std::unique_ptr<RowGathering> gathered(gathering(context));
  if (gathered) guarded(context, [&] { giveValue(context, gathered->result()); });
}

}  // namespace

// A function of no arguments returns the time; any other gives the same for the same.
void registerSqliteFunctions(sqlite3* connection) {
  for (const SqlFunction* function : dialect::sqlFunctions()) {
    const bool gathers = function->gatheredInFile != nullptr;
    if (!gathers && !function->inFile) continue;
    const bool constant = !function->arguments.empty();
    const int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | (constant ? SQLITE_DETERMINISTIC : 0);
    const int count = function->gathersInOrder() ? -1 : static_cast<int>(function->arguments.size());
    sqlite3_create_function_v2(connection, std::string(function->called).c_str(), count, flags,
                               const_cast<SqlFunction*>(function), gathers ? nullptr : invoke,
                               gathers ? gather : nullptr, gathers ? giveGathered : nullptr, nullptr);
  }
}

}  // namespace zelkor
