#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zelkor {

/// A point in time to the second on the proleptic Gregorian calendar, without zone; counted from the
/// platform's day 0, 1899-12-30 0:00:00. Valid years are 100 to 9999.
class DateTime {
 public:
  constexpr DateTime() = default;
  static constexpr DateTime fromSeconds(std::int64_t sinceDayZero) { return DateTime(sinceDayZero); }
  /// From the platform's serial number: whole days and fraction of a day, the fraction counted away from
  /// midnight also before day 0. Rounds to the second. Error 6 when outside the valid years.
  static DateTime fromSerial(double serial);
  /// From calendar parts; nullopt when they name no real day or time.
  static std::optional<DateTime> fromParts(int year, int month, int day, int hour = 0, int minute = 0,
                                           int second = 0);

  constexpr std::int64_t seconds() const { return seconds_; }
  double toSerial() const;
  int year() const;
  int month() const;  // 1..12
  int day() const;    // 1..31
  int hour() const;
  int minute() const;
  int second() const;
  /// 1 = Sunday .. 7 = Saturday.
  int weekday() const;
  bool isMidnight() const { return seconds_ % 86400 == 0; }
  /// The same day at midnight.
  DateTime date() const;

  /// The platform's general form in the Chinese locale: "2004-4-1", "2004-4-1 9:05:00"; a time of day 0
  /// alone is "9:05:00".
  std::string toText() const;
  /// "2004-04-01 09:05:00": the form in which the store keeps dates; orders as text.
  std::string toIso() const;

  constexpr auto operator<=>(const DateTime&) const = default;

 private:
  explicit constexpr DateTime(std::int64_t seconds) : seconds_(seconds) {}
  std::int64_t seconds_ = 0;
};

/// Reads a date, a time or both in any form that the platform's Chinese locale accepts: y-m-d, y/m/d, y.m.d,
/// y年m月d日 ("日" or "号"), English month names (2-Jan-1970), a year and a month alone ("2004-4": its first
/// day); time h:m, h:m:s, h时m分s秒, with AM/PM, 上午/下午. Three numbers that are no y-m-d are read as
/// m-d-y, and as d-m-y when that is no date either; a year of two digits lies in 1930 to 2029. nullopt
/// otherwise, also for a month and day without a year.
std::optional<DateTime> parseDate(std::string_view text);

/// Reads the store's own form ("2004-04-01 09:05:00" or "2004-04-01"), quickly; nullopt otherwise.
std::optional<DateTime> parseIsoDate(std::string_view text);

/// Number of interval boundaries from `from` to `to`: "yyyy", "q", "m", "d", "y", "w", "ww", "h", "n", "s"
/// (weeks begin on Sunday unless `firstDayOfWeek`, 1 = Sunday .. 7 = Saturday, says otherwise; "w" counts
/// whole weeks). An unknown interval is TypeMismatch.
std::int64_t DateDiff(std::string_view interval, DateTime from, DateTime to, int firstDayOfWeek = 1);

/// `from` moved by `count` intervals; a day that the target month lacks becomes its last day. Error 5 when
/// the result leaves the valid years.
DateTime DateAdd(std::string_view interval, std::int64_t count, DateTime from);

}  // namespace zelkor
