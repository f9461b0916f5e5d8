#include "store/dialect/binding/FunctionsTable.h"

#include <array>

#include "store/dialect/binding/Schema.h"

namespace zelkor::dialect {
namespace {

using enum ColumnType;

constexpr std::array rows{
    // conversion
    FunctionRow{"CDbl", "zk_cdbl", "c", 1, Double},
    FunctionRow{"CSng", "zk_cdbl", "c", 1, Double},
    FunctionRow{"CCur", "zk_ccur", "c", 1, Currency},
    FunctionRow{"CStr", "zk_cstr", "s", 1, Text},
    FunctionRow{"Str", "zk_str", "c", 1, Text},
    FunctionRow{"CDate", "zk_cdate", "v", 1, Date},
    FunctionRow{"CVDate", "zk_cdate", "v", 1, Date},
    FunctionRow{"DateValue", "zk_datevalue", "v", 1, Date},
    FunctionRow{"CBool", "zk_cbool", "c", 1, Boolean},
    FunctionRow{"IsNumeric", "zk_isnumeric", "v", 1, Boolean},
    FunctionRow{"IsDate", "zk_isdate", "v", 1, Boolean},
    // texts
    FunctionRow{"Len", "length", "t", 1, Long},
    FunctionRow{"Left", "zk_left", "tn", 2, Text},
    FunctionRow{"Right", "zk_right", "tn", 2, Text},
    FunctionRow{"Mid", "zk_mid", "tnn", 2, Text},
    FunctionRow{"Trim", "trim", "t", 1, Text},
    FunctionRow{"LTrim", "ltrim", "t", 1, Text},
    FunctionRow{"RTrim", "rtrim", "t", 1, Text},
    FunctionRow{"UCase", "upper", "t", 1, Text},
    FunctionRow{"LCase", "lower", "t", 1, Text},
    FunctionRow{"InStr", "zk_instr", "tt", 2, Long},
    FunctionRow{"InStr", "zk_instr", "ntt", 3, Long},
    FunctionRow{"Replace", "replace", "ttt", 3, Text},
    FunctionRow{"Space", "zk_space", "n", 1, Text},
    FunctionRow{"String", "zk_string", "nt", 2, Text},
    FunctionRow{"Asc", "zk_asc", "t", 1, Long},
    FunctionRow{"Chr", "zk_chr", "n", 1, Text},
    FunctionRow{"StrComp", "zk_strcomp", "ttn", 2, Short},
    FunctionRow{"Format", "zk_cstr", "s", 1, Text},
    // dates
    FunctionRow{"Year", "zk_year", "d", 1, Short},
    FunctionRow{"Month", "zk_month", "d", 1, Short},
    FunctionRow{"Day", "zk_day", "d", 1, Short},
    FunctionRow{"Hour", "zk_hour", "d", 1, Short},
    FunctionRow{"Minute", "zk_minute", "d", 1, Short},
    FunctionRow{"Second", "zk_second", "d", 1, Short},
    FunctionRow{"Weekday", "zk_weekday", "d", 1, Short},
    FunctionRow{"Now", "zk_now", "", 0, Date},
    FunctionRow{"Date", "zk_today", "", 0, Date},
    FunctionRow{"Time", "zk_time", "", 0, Date},
    FunctionRow{"DateAdd", "zk_dateadd", "tnd", 3, Date},
    FunctionRow{"DateDiff", "zk_datediff", "tdd", 3, Long},
    FunctionRow{"DatePart", "zk_datepart", "td", 2, Short},
    FunctionRow{"DateSerial", "zk_dateserial", "nnn", 3, Date},
    // numbers
    FunctionRow{"Abs", "abs", "n", 1, Double, true},
    FunctionRow{"Int", "zk_int", "n", 1, Double, true},
    FunctionRow{"Fix", "zk_fix", "n", 1, Double, true},
    FunctionRow{"Round", "zk_round", "nn", 1, Double, true},
    FunctionRow{"Sgn", "zk_sgn", "n", 1, Short},
    FunctionRow{"Sqr", "zk_sqr", "n", 1, Double},
};

}  // namespace

const FunctionRow* functionRow(std::string_view name, std::size_t arguments) {
  const FunctionRow* found = nullptr;
  for (const FunctionRow& row : rows) {
    if (!sameName(row.name, name)) continue;
    found = &row;
    if (arguments >= row.required && arguments <= row.arguments.size()) return found;
  }
  return found;
}

}  // namespace zelkor::dialect
