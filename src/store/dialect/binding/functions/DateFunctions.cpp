#include <array>
#include <cmath>

#include "base/Clock.h"
#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/dialect/binding/functions/SqlFunction.h"

namespace zelkor::dialect {
namespace {

using enum ColumnType;

DateTime date(const Value& value) {
  return value.as<DateTime>();
}

const std::string& text(const Value& value) {
  return value.as<std::string>();
}

// Error 5 for what leads beyond any date.
std::int64_t whole(const Value& value) {
  const double number = roundHalfEven(value.as<double>());
  if (!(std::fabs(number) < 1e15)) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  return static_cast<std::int64_t>(number);
}

template <int (DateTime::*part)() const>
Value partOf(Arguments a) {
  return (date(a[0]).*part)();
}

Value timeOfDay(Arguments) {
  const DateTime moment = SystemClock().now();
  return DateTime::fromSeconds(moment.seconds() - moment.date().seconds());
}

Value dateDiff(Arguments a) {
  const std::int64_t distance = DateDiff(text(a[0]), date(a[1]), date(a[2]));
  const auto narrow = static_cast<std::int32_t>(distance);
  return narrow == distance ? Value(narrow) : Value(static_cast<double>(distance));
}

constexpr std::string_view kDateDiffOnServer = R"(DECLARE days integer := c::date - b::date;
BEGIN
  RETURN CASE lower(a)
    WHEN 'yyyy' THEN extract(year FROM c) - extract(year FROM b)
    WHEN 'q' THEN (extract(year FROM c) - extract(year FROM b)) * 4 + extract(quarter FROM c) - extract(quarter FROM b)
    WHEN 'm' THEN (extract(year FROM c) - extract(year FROM b)) * 12 + extract(month FROM c) - extract(month FROM b)
    WHEN 'd' THEN days WHEN 'y' THEN days WHEN 'w' THEN trunc(days / 7)
    WHEN 'ww' THEN (days + extract(dow FROM b) - extract(dow FROM c)) / 7
    WHEN 'h' THEN floor(extract(epoch FROM c) / 3600) - floor(extract(epoch FROM b) / 3600)
    WHEN 'n' THEN floor(extract(epoch FROM c) / 60) - floor(extract(epoch FROM b) / 60)
    WHEN 's' THEN extract(epoch FROM c) - extract(epoch FROM b)
    ELSE zk_fail('ZK013') END;
END)";

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

constexpr std::string_view kDatePartOnServer = R"(BEGIN
  RETURN CASE lower(a)
    WHEN 'yyyy' THEN extract(year FROM b) WHEN 'q' THEN extract(quarter FROM b) WHEN 'm' THEN extract(month FROM b)
    WHEN 'd' THEN extract(day FROM b) WHEN 'y' THEN extract(doy FROM b) WHEN 'w' THEN extract(dow FROM b) + 1
    WHEN 'ww' THEN ceil((extract(doy FROM b) + extract(dow FROM date_trunc('year', b))) / 7)
    WHEN 'h' THEN extract(hour FROM b) WHEN 'n' THEN extract(minute FROM b) WHEN 's' THEN extract(second FROM b)
    ELSE zk_fail('ZK005') END;
END)";

// Nothing leaves the years 100 to 9999.
constexpr std::string_view kDateAddOnServer = R"(DECLARE
  months integer := CASE lower(a) WHEN 'yyyy' THEN 12 WHEN 'q' THEN 3 WHEN 'm' THEN 1 END;
  seconds bigint := CASE lower(a) WHEN 'd' THEN 86400 WHEN 'y' THEN 86400 WHEN 'w' THEN 86400 WHEN 'ww' THEN 604800
                                  WHEN 'h' THEN 3600 WHEN 'n' THEN 60 WHEN 's' THEN 1 END;
  target numeric;
BEGIN
  IF abs(b) >= 1e15 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  IF months IS NULL AND seconds IS NULL THEN RAISE EXCEPTION USING ERRCODE = 'ZK013'; END IF;
  IF months IS NOT NULL THEN
    target := extract(year FROM c) * 12 + extract(month FROM c) - 1 + months * round(b)::numeric;
    IF target NOT BETWEEN 1200 AND 119999 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
    RETURN c + make_interval(months => months * round(b)::integer);
  END IF;
  target := extract(epoch FROM c) + seconds * round(b)::numeric;
  IF target NOT BETWEEN extract(epoch FROM timestamp '0100-01-01')
                    AND extract(epoch FROM timestamp '9999-12-31 23:59:59') THEN
    RAISE EXCEPTION USING ERRCODE = 'ZK005';
  END IF;
  RETURN timestamp 'epoch' + target::bigint * interval '1 second';
END)";

// Months and days beyond their range run over into the years and months.
Value dateSerial(Arguments a) {
  const std::int64_t year = whole(a[0]);
  const auto newYear =
      year > 0 && year < 10'000 ? DateTime::fromParts(static_cast<int>(year), 1, 1) : std::nullopt;
  if (!newYear) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  return DateAdd("d", whole(a[2]) - 1, DateAdd("m", whole(a[1]) - 1, *newYear));
}

constexpr std::string_view kDateSerialOnServer = R"(BEGIN
  IF round(a) NOT BETWEEN 100 AND 9999 THEN RAISE EXCEPTION USING ERRCODE = 'ZK005'; END IF;
  RETURN zk_dateadd('d', round(c) - 1, zk_dateadd('m', round(b) - 1, make_timestamp(round(a)::integer, 1, 1, 0, 0, 0)));
END)";

constexpr std::array kRows{
    SqlFunction{"Year", "d", Short, "zk_year", partOf<&DateTime::year>, "extract(year FROM a)",
                "the year of a date"},
    SqlFunction{"Month", "d", Short, "zk_month", partOf<&DateTime::month>, "extract(month FROM a)",
                "1 to 12"},
    SqlFunction{"Day", "d", Short, "zk_day", partOf<&DateTime::day>, "extract(day FROM a)", "1 to 31"},
    SqlFunction{"Hour", "d", Short, "zk_hour", partOf<&DateTime::hour>, "extract(hour FROM a)", "0 to 23"},
    SqlFunction{"Minute", "d", Short, "zk_minute", partOf<&DateTime::minute>, "extract(minute FROM a)",
                "0 to 59"},
    SqlFunction{"Second", "d", Short, "zk_second", partOf<&DateTime::second>, "extract(second FROM a)",
                "0 to 59"},
    SqlFunction{"Now", "", Date, "zk_now", [](Arguments) -> Value { return SystemClock().now(); },
                "date_trunc('second', localtimestamp)", "the date and the time"},
    SqlFunction{"Date", "", Date, "zk_today", [](Arguments) -> Value { return SystemClock().now().date(); },
                "date_trunc('day', localtimestamp)", "today"},
    SqlFunction{
        "Time", "", Date, "zk_time", timeOfDay,
        "timestamp '1899-12-30' + (date_trunc('second', localtimestamp) - date_trunc('day', localtimestamp))",
        "the time of day"},
    SqlFunction{"DateAdd", "tnd", Date, "zk_dateadd",
                [](Arguments a) -> Value { return DateAdd(text(a[0]), whole(a[1]), date(a[2])); },
                kDateAddOnServer, "a date moved by so many intervals (yyyy, q, m, y, d, w, ww, h, n, s)"},
    SqlFunction{"DateDiff", "tdd", Long, "zk_datediff", dateDiff, kDateDiffOnServer,
                "how many intervals begin between two dates"},
    SqlFunction{"DatePart", "td", Short, "zk_datepart",
                [](Arguments a) -> Value { return part(LCase(text(a[0])), date(a[1])); }, kDatePartOnServer,
                "the part of a date that an interval names"},
    SqlFunction{"DateSerial", "nnn", Date, "zk_dateserial", dateSerial, kDateSerialOnServer,
                "a date of year, month and day"},
};

}  // namespace

std::span<const SqlFunction> dateFunctions() {
  return kRows;
}

}  // namespace zelkor::dialect
