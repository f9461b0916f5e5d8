#include <array>
#include <cmath>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "store/dialect/binding/functions/SqlFunction.h"

namespace zelkor::dialect {
namespace {

using enum ColumnType;

double number(const Value& value) {
  return value.as<double>();
}

Value rounded(Arguments a) {
  const double places = a.size() > 1 ? number(a[1]) : 0;
  if (places < 0 || places > 15) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  const double scale = std::pow(10.0, std::nearbyint(places));
  return roundHalfEven(number(a[0]) * scale) / scale;
}

// The operands of \ and Mod are rounded to whole numbers first.
std::int64_t divisor(const Value& value) {
  const std::int64_t whole = CLng(number(value));
  if (whole == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
  return whole;
}

Value whole(std::int64_t value) {
  const auto narrow = static_cast<std::int32_t>(value);
  return narrow == value ? Value(narrow) : Value(static_cast<double>(value));
}

Value power(Arguments a) {
  const double result = std::pow(number(a[0]), number(a[1]));
  if (std::isnan(result)) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  if (std::isinf(result)) throw RuntimeError(ErrorNumber::Overflow);
  return result;
}

constexpr std::string_view kRoundOnServer = R"(BEGIN
  IF b < 0 OR b > 15 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN round(a * power(10::double precision, round(b))) / power(10::double precision, round(b));
END)";

constexpr std::string_view kDivideOnServer = R"(BEGIN
  IF b <> 0 THEN RETURN a / b; END IF;
  IF a = 0 THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
  RAISE EXCEPTION USING ERRCODE = 'ZK011';
END)";

// What is too small to differ from nothing is nothing.
constexpr std::string_view kPowerOnServer = R"(BEGIN
  IF a < 0 AND b <> trunc(b) THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  IF a = 0 THEN
    IF b < 0 THEN RAISE EXCEPTION USING ERRCODE = 'ZK006'; END IF;
    RETURN CASE WHEN b = 0 THEN 1 ELSE 0 END;
  END IF;
  RETURN CASE WHEN b * ln(abs(a)) < -745.13 THEN 0 ELSE power(a, b) END;
END)";

constexpr std::array kRows{
    SqlFunction{"Abs", "n", Unknown, "abs", nullptr, "", "without its sign"},
    SqlFunction{"Int", "n", Unknown, "zk_int", [](Arguments a) -> Value { return std::floor(number(a[0])); },
                "floor(a)", "the greatest whole number that is not greater"},
    SqlFunction{"Fix", "n", Unknown, "zk_fix", [](Arguments a) -> Value { return std::trunc(number(a[0])); },
                "trunc(a)", "without its decimals"},
    SqlFunction{"Round", "n", Unknown, "zk_round", rounded, "round(a)",
                "to a whole number, a tie to the even one"},
    SqlFunction{"Round", "nn", Unknown, "zk_round", rounded, kRoundOnServer,
                "to so many decimals, a tie to the even digit"},
    SqlFunction{"Sgn", "c", Short, "zk_sgn",
                [](Arguments a) -> Value {
                  const double value = CDbl(a[0]);
                  return value > 0 ? 1 : value < 0 ? -1 : 0;
                },
                "sign(zk_given(zk_number(a)))", "-1, 0 or 1"},
    SqlFunction{"", "nn", Double, "zk_divide",
                [](Arguments a) -> Value { return divide(number(a[0]), number(a[1])); }, kDivideOnServer},
    SqlFunction{"", "nn", Long, "zk_integer_divide",
                [](Arguments a) { return whole(CLng(number(a[0])) / divisor(a[1])); },
                "zk_whole(a, 2147483647) / zk_divisor(b)"},
    SqlFunction{"", "nn", Long, "zk_modulo",
                [](Arguments a) { return whole(CLng(number(a[0])) % divisor(a[1])); },
                "zk_whole(a, 2147483647) % zk_divisor(b)"},
    SqlFunction{"", "nn", Double, "zk_power", power, kPowerOnServer},
};

}  // namespace

std::span<const SqlFunction> numberFunctions() {
  return kRows;
}

}  // namespace zelkor::dialect
