#include <array>

#include "base/Conversion.h"
#include "store/dialect/binding/FunctionBindings.h"
#include "store/dialect/binding/functions/ColumnConversion.h"
#include "store/dialect/binding/functions/SqlFunction.h"

namespace zelkor::dialect {
namespace {

using enum ColumnType;

// What an operator converts by itself: Null stays Null.
template <typename Convert>
Value orNull(const Value& value, Convert convert) {
  return value.isNull() ? Value() : Value(convert(value));
}

Value leadingNumber(Arguments a) {
  if (!a[0].isText()) return CDbl(a[0]);
  return Val(a[0].as<std::string>());
}

Value amount(Arguments a) {
  const bool exact = a[0].isNull() || a[0].kind() == Value::Kind::Long;
  return exact ? a[0] : Value(Currency::fromDouble(CDbl(a[0])));
}

// A text beside a boolean: one that is none becomes Null, which meets nothing.
Value truth(Arguments a) {
  if (a[0].isNull()) return {};
  return convertForColumn(a[0], Boolean).value_or(Value());
}

// An action without options stores Null where a value cannot be converted.
template <ColumnType type>
Value assign(Arguments a) {
  return convertForColumn(a[0], type).value_or(type == Boolean ? Value(false) : Value());
}

constexpr std::string_view kAssignCurrencyOnServer =
    "CASE WHEN abs(zk_fitting_number(a)::numeric) < 922337203685477.58075 "
    "THEN zk_currency(zk_fitting_number(a)::numeric) END";

constexpr std::array kRows{
    SqlFunction{"Val", "c", Double, "zk_val", leadingNumber, "", "the number that a text begins with, else 0",
                bindNumberReading},
    SqlFunction{"CInt", "c", Short, "zk_cint", [](Arguments a) -> Value { return CInt(a[0]); },
                "zk_whole(zk_number(a), 32767)", "a whole number of 16 bits, a tie to the even one",
                bindNumberReading},
    SqlFunction{"CLng", "c", Long, "zk_clng", [](Arguments a) -> Value { return CLng(a[0]); },
                "zk_whole(zk_number(a), 2147483647)", "a whole number of 32 bits, a tie to the even one",
                bindNumberReading},
    SqlFunction{"CDbl", "c", Double, "zk_cdbl", [](Arguments a) -> Value { return CDbl(a[0]); },
                "zk_given(zk_number(a))", "a number"},
    SqlFunction{"CCur", "m", Currency, "zk_ccur", [](Arguments a) -> Value { return CCur(a[0]); },
                "zk_given(zk_currency(a))", "an amount of four decimals"},
    SqlFunction{"CStr", "s", Text, "zk_cstr", [](Arguments a) -> Value { return CStr(a[0]); },
                "zk_given(zk_text(a))", "a text"},
    SqlFunction{"CDate", "v", Date, "zk_cdate", [](Arguments a) -> Value { return CDate(a[0]); },
                "zk_given(zk_date(a))", "a date"},
    SqlFunction{"IsNumeric", "v", Boolean, "zk_isnumeric",
                [](Arguments a) -> Value { return IsNumeric(a[0]); },
                "CASE WHEN zk_fitting_number(a::text) IS NULL THEN 0 ELSE -1 END",
                "whether it is a number or a text that can be read as one"},
    SqlFunction{"IsDate", "v", Boolean, "zk_isdate", [](Arguments a) -> Value { return IsDate(a[0]); },
                "CASE WHEN zk_read_date(a::text) IS NULL THEN 0 ELSE -1 END",
                "whether it is a date or a text that can be read as one"},
    SqlFunction{"IsNull", "v", Boolean, "", nullptr, "", "whether it is Null", bindIsNull},
    SqlFunction{"IIf", "cvv", Unknown, "", nullptr, "", "the second where the first holds, else the third",
                bindChoice},
    SqlFunction{"Nz", "v", Unknown, "coalesce", nullptr, "", "0 or the empty text in place of Null",
                bindReplacement},
    SqlFunction{"Nz", "vv", Unknown, "coalesce", nullptr, "", "the second in place of Null", bindReplacement},

    SqlFunction{"", "c", Double, "zk_number",
                [](Arguments a) { return orNull(a[0], [](const Value& v) { return CDbl(v); }); }},
    SqlFunction{"", "m", Currency, "zk_currency", amount},
    SqlFunction{"", "c", Boolean, "zk_boolean", truth},
    SqlFunction{"", "s", Text, "zk_text",
                [](Arguments a) { return orNull(a[0], [](const Value& v) { return CStr(v); }); }},
    SqlFunction{"", "v", Date, "zk_date",
                [](Arguments a) { return orNull(a[0], [](const Value& v) { return CDate(v); }); }},
    SqlFunction{"", "d", Text, "zk_datetext", [](Arguments a) -> Value { return CStr(a[0]); }},
    SqlFunction{"", "d", Double, "zk_serial", [](Arguments a) -> Value { return CDbl(a[0]); }},
    SqlFunction{"", "n", Date, "zk_date_of_serial", [](Arguments a) -> Value { return CDate(a[0]); }},
    SqlFunction{"", "c", Short, "zk_assign_short", assign<Short>,
                "zk_fitting_whole(zk_fitting_number(a), 32767)"},
    SqlFunction{"", "c", Long, "zk_assign_long", assign<Long>,
                "zk_fitting_whole(zk_fitting_number(a), 2147483647)"},
    SqlFunction{"", "c", Double, "zk_assign_double", assign<Double>, "zk_fitting_number(a)"},
    SqlFunction{"", "m", Currency, "zk_assign_currency", assign<Currency>, kAssignCurrencyOnServer},
    SqlFunction{"", "v", Date, "zk_assign_date", assign<Date>, "zk_fitting_date(a)"},
    SqlFunction{"", "c", Boolean, "zk_assign_boolean", assign<Boolean>,
                "coalesce(zk_boolean(a), 0::smallint)"},
};

}  // namespace

std::span<const SqlFunction> conversionFunctions() {
  return kRows;
}

}  // namespace zelkor::dialect
