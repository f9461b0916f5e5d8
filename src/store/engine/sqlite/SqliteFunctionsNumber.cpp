#include <array>
#include <cmath>
#include <cstdint>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "store/engine/sqlite/SqliteFunctions.h"

namespace zelkor::sqlite {
namespace {

void quotient(sqlite3_context* context, Arguments arguments) {
  if (!anyNull(arguments))
    sqlite3_result_double(context, divide(numberOf(arguments[0]), numberOf(arguments[1])));
}

// The operands of \ and Mod are rounded to whole numbers first.
struct WholeOperands {
  std::int64_t dividend;
  std::int64_t divisor;
};

WholeOperands wholeOperands(Arguments arguments) {
  const WholeOperands operands{CLng(numberOf(arguments[0])), CLng(numberOf(arguments[1]))};
  if (operands.divisor == 0) throw RuntimeError(ErrorNumber::DivisionByZero);
  return operands;
}

void integerDivide(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const WholeOperands operands = wholeOperands(arguments);
  sqlite3_result_int64(context, operands.dividend / operands.divisor);
}

void modulo(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const WholeOperands operands = wholeOperands(arguments);
  sqlite3_result_int64(context, operands.dividend % operands.divisor);
}

void power(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const double result = std::pow(numberOf(arguments[0]), numberOf(arguments[1]));
  if (std::isnan(result)) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  if (std::isinf(result)) throw RuntimeError(ErrorNumber::Overflow);
  sqlite3_result_double(context, result);
}

template <double (*round)(double)>
void rounded(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  if (sqlite3_value_type(arguments[0]) == SQLITE_INTEGER) return sqlite3_result_value(context, arguments[0]);
  sqlite3_result_double(context, round(numberOf(arguments[0])));
}

double down(double value) {
  return std::floor(value);
}
double towardsZero(double value) {
  return std::trunc(value);
}

void roundTo(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const double places = arguments.size() > 1 ? numberOf(arguments[1]) : 0;
  if (places < 0 || places > 15) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  const double scale = std::pow(10.0, std::nearbyint(places));
  sqlite3_result_double(context, roundHalfEven(numberOf(arguments[0]) * scale) / scale);
}

void sign(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) throw RuntimeError(ErrorNumber::InvalidUseOfNull);
  const double value = numberOf(arguments[0]);
  sqlite3_result_int(context, value > 0 ? 1 : value < 0 ? -1 : 0);
}

void squareRoot(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const double value = numberOf(arguments[0]);
  if (value < 0) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  sqlite3_result_double(context, std::sqrt(value));
}

constexpr std::array entries{
    FunctionEntry{"zk_divide", 2, quotient},   FunctionEntry{"zk_integer_divide", 2, integerDivide},
    FunctionEntry{"zk_modulo", 2, modulo},     FunctionEntry{"zk_power", 2, power},
    FunctionEntry{"zk_int", 1, rounded<down>}, FunctionEntry{"zk_fix", 1, rounded<towardsZero>},
    FunctionEntry{"zk_round", 1, roundTo},     FunctionEntry{"zk_round", 2, roundTo},
    FunctionEntry{"zk_sgn", 1, sign},          FunctionEntry{"zk_sqr", 1, squareRoot},
};

}  // namespace

std::span<const FunctionEntry> numberFunctions() {
  return entries;
}

}  // namespace zelkor::sqlite
