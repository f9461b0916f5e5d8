#include <array>
#include <cmath>
#include <string>

#include "base/Clock.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/engine/sqlite/SqliteFunctions.h"

namespace zelkor::sqlite {
namespace {

template <int (DateTime::*part)() const>
void partOf(sqlite3_context* context, Arguments arguments) {
  if (!isNull(arguments[0])) sqlite3_result_int(context, (dateOf(arguments[0]).*part)());
}

void now(sqlite3_context* context, Arguments) {
  giveDate(context, SystemClock().now());
}

void today(sqlite3_context* context, Arguments) {
  giveDate(context, SystemClock().now().date());
}

void timeOfDay(sqlite3_context* context, Arguments) {
  const DateTime moment = SystemClock().now();
  giveDate(context, DateTime::fromSeconds(moment.seconds() - moment.date().seconds()));
}

void dateAdd(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const auto count = static_cast<std::int64_t>(std::nearbyint(numberOf(arguments[1])));
  giveDate(context, DateAdd(textOf(arguments[0]), count, dateOf(arguments[2])));
}

void dateDiff(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  sqlite3_result_int64(context, DateDiff(textOf(arguments[0]), dateOf(arguments[1]), dateOf(arguments[2])));
}

int part(std::string_view interval, DateTime date) {
  if (interval == "yyyy") return date.year();
  if (interval == "q") return (date.month() + 2) / 3;
  if (interval == "m") return date.month();
  if (interval == "d") return date.day();
  if (interval == "w") return date.weekday();
  if (interval == "h") return date.hour();
  if (interval == "n") return date.minute();
  if (interval == "s") return date.second();
  const auto newYear = DateTime::fromParts(date.year(), 1, 1);
  if (interval == "y") return static_cast<int>(DateDiff("d", *newYear, date)) + 1;
  if (interval == "ww") return static_cast<int>(DateDiff("ww", *newYear, date)) + 1;
  throw RuntimeError(ErrorNumber::InvalidProcedureCall);
}

void datePart(sqlite3_context* context, Arguments arguments) {
  if (!anyNull(arguments))
    sqlite3_result_int(context, part(LCase(textOf(arguments[0])), dateOf(arguments[1])));
}

// Months and days beyond their range run over into the years and months.
void dateSerial(sqlite3_context* context, Arguments arguments) {
  if (anyNull(arguments)) return;
  const auto whole = [&](std::size_t index) {
    return static_cast<std::int64_t>(std::nearbyint(numberOf(arguments[index])));
  };
  const std::int64_t year = whole(0);
  const auto newYear =
      year > 0 && year < 10'000 ? DateTime::fromParts(static_cast<int>(year), 1, 1) : std::nullopt;
  if (!newYear) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  const std::int64_t months = whole(1) - 1;
  const std::int64_t days = whole(2) - 1;
  giveDate(context, DateAdd("d", days, DateAdd("m", months, *newYear)));
}

constexpr std::array entries{
    FunctionEntry{"zk_year", 1, partOf<&DateTime::year>},
    FunctionEntry{"zk_month", 1, partOf<&DateTime::month>},
    FunctionEntry{"zk_day", 1, partOf<&DateTime::day>},
    FunctionEntry{"zk_hour", 1, partOf<&DateTime::hour>},
    FunctionEntry{"zk_minute", 1, partOf<&DateTime::minute>},
    FunctionEntry{"zk_second", 1, partOf<&DateTime::second>},
    FunctionEntry{"zk_weekday", 1, partOf<&DateTime::weekday>},
    FunctionEntry{"zk_now", 0, now, false},
    FunctionEntry{"zk_today", 0, today, false},
    FunctionEntry{"zk_time", 0, timeOfDay, false},
    FunctionEntry{"zk_dateadd", 3, dateAdd},
    FunctionEntry{"zk_datediff", 3, dateDiff},
    FunctionEntry{"zk_datepart", 2, datePart},
    FunctionEntry{"zk_dateserial", 3, dateSerial},
};

}  // namespace

std::span<const FunctionEntry> dateFunctions() {
  return entries;
}

}  // namespace zelkor::sqlite
