#include <algorithm>
#include <array>
#include <chrono>

#include "base/DateTime.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

enum class Interval { Year, Quarter, Month, Day, Week, CalendarWeek, Hour, Minute, Second };

constexpr std::int64_t kSecondsPerDay = 86400;

struct IntervalWord {
  std::string_view word;
  Interval interval;
};

// "d", "y" and "w" all count days when a date is moved; a difference in "w" is one of whole weeks.
constexpr std::array<IntervalWord, 10> kWords = {{{"yyyy", Interval::Year},
                                                  {"q", Interval::Quarter},
                                                  {"m", Interval::Month},
                                                  {"d", Interval::Day},
                                                  {"y", Interval::Day},
                                                  {"w", Interval::Week},
                                                  {"ww", Interval::CalendarWeek},
                                                  {"h", Interval::Hour},
                                                  {"n", Interval::Minute},
                                                  {"s", Interval::Second}}};

bool equalsBlindly(std::string_view text, std::string_view lower) {
  return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                    [](char a, char b) { return static_cast<char>(a | 0x20) == b; });
}

Interval intervalOf(std::string_view word) {
  for (const auto& entry : kWords) {
    if (equalsBlindly(word, entry.word)) return entry.interval;
  }
  throw RuntimeError(ErrorNumber::TypeMismatch);
}

std::int64_t floorDivide(std::int64_t dividend, std::int64_t divisor) {
  const std::int64_t quotient = dividend / divisor;
  return dividend % divisor < 0 ? quotient - 1 : quotient;
}

std::int64_t monthNumber(DateTime date) {
  return std::int64_t{date.year()} * 12 + date.month() - 1;
}

// Weeks counted so that each begins on `firstDayOfWeek`; day 0 was a Saturday, the seventh day from Sunday.
std::int64_t weekNumber(DateTime date, int firstDayOfWeek) {
  return floorDivide(floorDivide(date.seconds(), kSecondsPerDay) + 7 - firstDayOfWeek, 7);
}

DateTime movedByMonths(DateTime from, std::int64_t months) {
  const std::int64_t target = monthNumber(from) + months;
  const std::int64_t year = floorDivide(target, 12);
  if (year < 100 || year > 9999) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  const auto month = static_cast<unsigned>(target - year * 12) + 1;
  const auto last = std::chrono::year_month_day_last(std::chrono::year(static_cast<int>(year)),
                                                     std::chrono::month_day_last(std::chrono::month(month)));
  const int day = std::min(from.day(), static_cast<int>(static_cast<unsigned>(last.day())));
  return *DateTime::fromParts(static_cast<int>(year), static_cast<int>(month), day, from.hour(),
                              from.minute(), from.second());
}

DateTime movedBySeconds(DateTime from, std::int64_t count, std::int64_t unit) {
  constexpr std::int64_t kMost = 400'000'000'000;  // more than the valid years hold
  const DateTime first = *DateTime::fromParts(100, 1, 1);
  const DateTime last = *DateTime::fromParts(9999, 12, 31, 23, 59, 59);
  if (count > kMost || count < -kMost) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  const DateTime moved = DateTime::fromSeconds(from.seconds() + count * unit);
  if (moved < first || moved > last) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  return moved;
}

}  // namespace

std::int64_t DateDiff(std::string_view interval, DateTime from, DateTime to, int firstDayOfWeek) {
  const auto units = [&](std::int64_t unit) {
    return floorDivide(to.seconds(), unit) - floorDivide(from.seconds(), unit);
  };
  switch (intervalOf(interval)) {
    case Interval::Year:
      return to.year() - from.year();
    case Interval::Quarter:
      return monthNumber(to) / 3 - monthNumber(from) / 3;
    case Interval::Month:
      return monthNumber(to) - monthNumber(from);
    case Interval::Day:
      return units(kSecondsPerDay);
    case Interval::Week:
      return units(kSecondsPerDay) / 7;
    case Interval::CalendarWeek:
      return weekNumber(to, firstDayOfWeek) - weekNumber(from, firstDayOfWeek);
    case Interval::Hour:
      return units(3600);
    case Interval::Minute:
      return units(60);
    case Interval::Second:
      return units(1);
  }
  return 0;
}

DateTime DateAdd(std::string_view interval, std::int64_t count, DateTime from) {
  constexpr std::int64_t kMostMonths = 200'000;  // more than the valid years hold
  switch (intervalOf(interval)) {
    case Interval::Year:
      return movedByMonths(from, 12 * std::clamp(count, -kMostMonths, kMostMonths));
    case Interval::Quarter:
      return movedByMonths(from, 3 * std::clamp(count, -kMostMonths, kMostMonths));
    case Interval::Month:
      return movedByMonths(from, std::clamp(count, -kMostMonths, kMostMonths));
    case Interval::Day:
    case Interval::Week:
      return movedBySeconds(from, count, kSecondsPerDay);
    case Interval::CalendarWeek:
      return movedBySeconds(from, count, 7 * kSecondsPerDay);
    case Interval::Hour:
      return movedBySeconds(from, count, 3600);
    case Interval::Minute:
      return movedBySeconds(from, count, 60);
    case Interval::Second:
      return movedBySeconds(from, count, 1);
  }
  return from;
}

}  // namespace zelkor
