#include <array>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "store/engine/ColumnValue.h"
#include "store/engine/sqlite/SqliteFunctions.h"

namespace zelkor::sqlite {
namespace {

using dialect::ColumnType;

void requireValue(sqlite3_value* value) {
  if (isNull(value)) throw RuntimeError(ErrorNumber::InvalidUseOfNull);
}

void val(sqlite3_context* context, Arguments arguments) {
  requireValue(arguments[0]);
  if (sqlite3_value_type(arguments[0]) != SQLITE_TEXT) return sqlite3_result_value(context, arguments[0]);
  sqlite3_result_double(context, Val(textOf(arguments[0])));
}

void cint(sqlite3_context* context, Arguments arguments) {
  sqlite3_result_int(context, CInt(valueOf(arguments[0])));
}

void clng(sqlite3_context* context, Arguments arguments) {
  sqlite3_result_int(context, CLng(valueOf(arguments[0])));
}

void cdbl(sqlite3_context* context, Arguments arguments) {
  sqlite3_result_double(context, CDbl(valueOf(arguments[0])));
}

void ccur(sqlite3_context* context, Arguments arguments) {
  sqlite3_result_double(context, CCur(valueOf(arguments[0])).toDouble());
}

void cbool(sqlite3_context* context, Arguments arguments) {
  giveBoolean(context, CBool(valueOf(arguments[0])));
}

void cdate(sqlite3_context* context, Arguments arguments) {
  requireValue(arguments[0]);
  giveDate(context, dateOf(arguments[0]));
}

void dateValue(sqlite3_context* context, Arguments arguments) {
  requireValue(arguments[0]);
  giveDate(context, dateOf(arguments[0]).date());
}

void cstr(sqlite3_context* context, Arguments arguments) {
  giveText(context, CStr(valueOf(arguments[0])));
}

// Str keeps a place for the sign.
void str(sqlite3_context* context, Arguments arguments) {
  const double number = CDbl(valueOf(arguments[0]));
  giveText(context, (number < 0 ? "" : " ") + textOfDouble(number));
}

// What an operator converts by itself: Null stays Null.

void number(sqlite3_context* context, Arguments arguments) {
  if (!isNull(arguments[0])) sqlite3_result_double(context, numberOf(arguments[0]));
}

void currency(sqlite3_context* context, Arguments arguments) {
  if (isNull(arguments[0])) return;
  if (sqlite3_value_type(arguments[0]) == SQLITE_INTEGER) return sqlite3_result_value(context, arguments[0]);
  sqlite3_result_double(context, Currency::fromDouble(numberOf(arguments[0])).toDouble());
}

void text(sqlite3_context* context, Arguments arguments) {
  if (!isNull(arguments[0])) giveText(context, CStr(valueOf(arguments[0])));
}

// A text beside a boolean: one that is none becomes Null, which meets nothing.
void boolean(sqlite3_context* context, Arguments arguments) {
  if (isNull(arguments[0])) return;
  const auto converted = convertForColumn(valueOf(arguments[0]), ColumnType::Boolean);
  if (converted) giveValue(context, *converted);
}

void date(sqlite3_context* context, Arguments arguments) {
  if (!isNull(arguments[0])) giveDate(context, dateOf(arguments[0]));
}

void dateText(sqlite3_context* context, Arguments arguments) {
  if (!isNull(arguments[0])) giveText(context, dateOf(arguments[0]).toText());
}

void serial(sqlite3_context* context, Arguments arguments) {
  if (!isNull(arguments[0])) sqlite3_result_double(context, dateOf(arguments[0]).toSerial());
}

void dateOfSerial(sqlite3_context* context, Arguments arguments) {
  if (!isNull(arguments[0])) giveDate(context, DateTime::fromSerial(numberOf(arguments[0])));
}

void isNumeric(sqlite3_context* context, Arguments arguments) {
  giveBoolean(context, IsNumeric(valueOf(arguments[0])));
}

void isDate(sqlite3_context* context, Arguments arguments) {
  const Value value = valueOf(arguments[0]);
  giveBoolean(context, value.isText() && (parseIsoDate(value.as<std::string>()) || IsDate(value)));
}

// An action without options stores Null where a value cannot be converted.
template <ColumnType type>
void assign(sqlite3_context* context, Arguments arguments) {
  const Value value = valueOf(arguments[0]);
  if (type == ColumnType::Date && value.isText())
    if (parseIsoDate(value.as<std::string>()))
      return giveDate(context, *parseIsoDate(value.as<std::string>()));
  const auto converted = convertForColumn(value, type);
  giveValue(context, converted ? *converted : type == ColumnType::Boolean ? Value(false) : Value());
}

constexpr std::array entries{
    FunctionEntry{"zk_val", 1, val},
    FunctionEntry{"zk_cint", 1, cint},
    FunctionEntry{"zk_clng", 1, clng},
    FunctionEntry{"zk_cdbl", 1, cdbl},
    FunctionEntry{"zk_ccur", 1, ccur},
    FunctionEntry{"zk_cbool", 1, cbool},
    FunctionEntry{"zk_cdate", 1, cdate},
    FunctionEntry{"zk_datevalue", 1, dateValue},
    FunctionEntry{"zk_cstr", 1, cstr},
    FunctionEntry{"zk_str", 1, str},
    FunctionEntry{"zk_number", 1, number},
    FunctionEntry{"zk_currency", 1, currency},
    FunctionEntry{"zk_boolean", 1, boolean},
    FunctionEntry{"zk_text", 1, text},
    FunctionEntry{"zk_date", 1, date},
    FunctionEntry{"zk_datetext", 1, dateText},
    FunctionEntry{"zk_serial", 1, serial},
    FunctionEntry{"zk_date_of_serial", 1, dateOfSerial},
    FunctionEntry{"zk_isnumeric", 1, isNumeric},
    FunctionEntry{"zk_isdate", 1, isDate},
    FunctionEntry{"zk_assign_short", 1, assign<ColumnType::Short>},
    FunctionEntry{"zk_assign_long", 1, assign<ColumnType::Long>},
    FunctionEntry{"zk_assign_double", 1, assign<ColumnType::Double>},
    FunctionEntry{"zk_assign_currency", 1, assign<ColumnType::Currency>},
    FunctionEntry{"zk_assign_date", 1, assign<ColumnType::Date>},
    FunctionEntry{"zk_assign_boolean", 1, assign<ColumnType::Boolean>},
};

}  // namespace

std::span<const FunctionEntry> conversionFunctions() {
  return entries;
}

}  // namespace zelkor::sqlite
