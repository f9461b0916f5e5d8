#include <cmath>
#include <cstdint>

#include "base/Currency.h"
#include "base/RuntimeError.h"
#include "store/engine/sqlite/SqliteFunctions.h"

namespace zelkor::sqlite {
namespace {

constexpr double scale = 10000.0;

// The engine hands out zeroed memory, so the state must be meaningful when it is all zero.
struct CurrencyTotal {
  std::int64_t scaled;
  std::int64_t count;
};

void addCurrency(sqlite3_context* context, int, sqlite3_value** values) {
  auto* total = static_cast<CurrencyTotal*>(sqlite3_aggregate_context(context, sizeof(CurrencyTotal)));
  if (!total || isNull(values[0])) return;
  try {
    const double scaled = std::nearbyint(numberOf(values[0]) * scale);
    if (!(std::abs(scaled) < 9.2e18) ||
        __builtin_add_overflow(total->scaled, static_cast<std::int64_t>(scaled), &total->scaled))
      throw RuntimeError(ErrorNumber::Overflow);
    ++total->count;
  } catch (const std::exception& failure) {
    giveError(context, failure);
  }
}

const CurrencyTotal* finished(sqlite3_context* context) {
  const auto* total = static_cast<const CurrencyTotal*>(sqlite3_aggregate_context(context, 0));
  return total && total->count > 0 ? total : nullptr;
}

void giveSum(sqlite3_context* context) {
  if (const CurrencyTotal* total = finished(context))
    sqlite3_result_double(context, Currency::fromScaled(total->scaled).toDouble());
}

void giveAverage(sqlite3_context* context) {
  const CurrencyTotal* total = finished(context);
  if (!total) return;
  const double scaled = static_cast<double>(total->scaled) / static_cast<double>(total->count);
  sqlite3_result_double(context, std::nearbyint(scaled) / scale);
}

struct KeptValue {
  sqlite3_value* value;
};

KeptValue* keptValue(sqlite3_context* context) {
  return static_cast<KeptValue*>(sqlite3_aggregate_context(context, sizeof(KeptValue)));
}

void keepFirst(sqlite3_context* context, int, sqlite3_value** values) {
  KeptValue* kept = keptValue(context);
  if (kept && !kept->value) kept->value = sqlite3_value_dup(values[0]);
}

void keepLast(sqlite3_context* context, int, sqlite3_value** values) {
  KeptValue* kept = keptValue(context);
  if (!kept) return;
  sqlite3_value_free(kept->value);
  kept->value = sqlite3_value_dup(values[0]);
}

void giveKept(sqlite3_context* context) {
  KeptValue* kept = keptValue(context);
  if (!kept || !kept->value) return;
  sqlite3_result_value(context, kept->value);
  sqlite3_value_free(kept->value);
  kept->value = nullptr;
}

}  // namespace

void registerAggregates(sqlite3* connection) {
  constexpr int flags = SQLITE_UTF8 | SQLITE_INNOCUOUS | SQLITE_DETERMINISTIC;
  const auto add = [&](const char* name, auto* step, auto* finish) {
    sqlite3_create_function_v2(connection, name, 1, flags, nullptr, nullptr, step, finish, nullptr);
  };
  add("zk_sum_currency", addCurrency, giveSum);
  add("zk_avg_currency", addCurrency, giveAverage);
  add("zk_first", keepFirst, giveKept);
  add("zk_last", keepLast, giveKept);
}

}  // namespace zelkor::sqlite
