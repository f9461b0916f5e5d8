#include "base/DateTime.h"

#include <chrono>
#include <cmath>

#include "base/RuntimeError.h"

namespace zelkor {
namespace {

constexpr std::int64_t kSecondsPerDay = 86400;
// Days from 1970-01-01 back to the platform's day 0, 1899-12-30.
constexpr std::int64_t kDayZeroToUnix = 25569;
constexpr int kFirstYear = 100;
constexpr int kLastYear = 9999;
constexpr double kFirstSerial = -657434;  // 100-01-01
constexpr double kLastSerial = 2958465;   // 9999-12-31

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

year_month_day calendarDay(int year, int month, int day) {
  return {std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
          std::chrono::day(static_cast<unsigned>(day))};
}

std::int64_t dayNumber(year_month_day day) {
  return sys_days(day).time_since_epoch().count() + kDayZeroToUnix;
}

year_month_day calendarDay(std::int64_t number) {
  return sys_days(days(number - kDayZeroToUnix));
}

std::int64_t dayOf(std::int64_t seconds) {
  return std::chrono::floor<days>(std::chrono::seconds(seconds)).count();
}

int secondOfDay(std::int64_t seconds) {
  return static_cast<int>(seconds - dayOf(seconds) * kSecondsPerDay);
}

int yearOf(year_month_day day) {
  return static_cast<int>(day.year());
}

int monthOf(year_month_day day) {
  return static_cast<int>(static_cast<unsigned>(day.month()));
}

int dayOfMonth(year_month_day day) {
  return static_cast<int>(static_cast<unsigned>(day.day()));
}

void appendTwoDigits(std::string& text, int number) {
  text.push_back(static_cast<char>('0' + number / 10));
  text.push_back(static_cast<char>('0' + number % 10));
}

void putTwoDigits(std::string& text, std::size_t at, int number) {
  text[at] = static_cast<char>('0' + number / 10);
  text[at + 1] = static_cast<char>('0' + number % 10);
}

void appendTime(std::string& text, const DateTime& time) {
  text += std::to_string(time.hour());
  text.push_back(':');
  appendTwoDigits(text, time.minute());
  text.push_back(':');
  appendTwoDigits(text, time.second());
}

// `count` digits at `at`; -1 where one is none.
int digitsAt(std::string_view text, std::size_t at, std::size_t count) {
  int number = 0;
  for (std::size_t i = at; i < at + count; ++i) {
    if (text[i] < '0' || text[i] > '9') return -1;
    number = number * 10 + (text[i] - '0');
  }
  return number;
}

}  // namespace

DateTime DateTime::fromSerial(double serial) {
  if (!(serial > kFirstSerial - 1 && serial < kLastSerial + 1)) throw RuntimeError(ErrorNumber::Overflow);
  const double day = std::trunc(serial);
  const auto inDay = std::llround(std::fabs(serial - day) * static_cast<double>(kSecondsPerDay));
  const DateTime result(static_cast<std::int64_t>(day) * kSecondsPerDay + inDay);
  const std::int64_t wholeDay = dayOf(result.seconds_);
  if (wholeDay < static_cast<std::int64_t>(kFirstSerial) ||
      wholeDay > static_cast<std::int64_t>(kLastSerial)) {
    throw RuntimeError(ErrorNumber::Overflow);
  }
  return result;
}

std::optional<DateTime> DateTime::fromParts(int year, int month, int day, int hour, int minute, int second) {
  if (year < kFirstYear || year > kLastYear || month < 1 || day < 1 || month > 12 || day > 31)
    return std::nullopt;
  const year_month_day date = calendarDay(year, month, day);
  if (!date.ok()) return std::nullopt;
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) return std::nullopt;
  return DateTime(dayNumber(date) * kSecondsPerDay + std::int64_t{hour} * 3600 + std::int64_t{minute} * 60 +
                  second);
}

double DateTime::toSerial() const {
  const auto day = static_cast<double>(dayOf(seconds_));
  const double fraction = secondOfDay(seconds_) / static_cast<double>(kSecondsPerDay);
  return day < 0 ? day - fraction : day + fraction;
}

int DateTime::year() const {
  return yearOf(calendarDay(dayOf(seconds_)));
}
int DateTime::month() const {
  return monthOf(calendarDay(dayOf(seconds_)));
}
int DateTime::day() const {
  return dayOfMonth(calendarDay(dayOf(seconds_)));
}
int DateTime::hour() const {
  return secondOfDay(seconds_) / 3600;
}
int DateTime::minute() const {
  return secondOfDay(seconds_) / 60 % 60;
}
int DateTime::second() const {
  return secondOfDay(seconds_) % 60;
}

int DateTime::weekday() const {
  const std::chrono::weekday day(sys_days(days(dayOf(seconds_) - kDayZeroToUnix)));
  return static_cast<int>(day.c_encoding()) + 1;
}

DateTime DateTime::date() const {
  return DateTime(dayOf(seconds_) * kSecondsPerDay);
}

std::string DateTime::toText() const {
  std::string text;
  const bool timeOnly = dayOf(seconds_) == 0;
  if (!timeOnly) {
    const year_month_day day = calendarDay(dayOf(seconds_));
    text = std::to_string(yearOf(day)) + '-' + std::to_string(monthOf(day)) + '-' +
           std::to_string(dayOfMonth(day));
    if (isMidnight()) return text;
    text.push_back(' ');
  }
  appendTime(text, *this);
  return text;
}

std::string DateTime::toIso() const {
  const std::int64_t dayCount = dayOf(seconds_);
  const year_month_day day = calendarDay(dayCount);
  const auto inDay = static_cast<int>(seconds_ - dayCount * kSecondsPerDay);
  std::string text = "0000-00-00 00:00:00";
  putTwoDigits(text, 0, yearOf(day) / 100);
  putTwoDigits(text, 2, yearOf(day) % 100);
  putTwoDigits(text, 5, monthOf(day));
  putTwoDigits(text, 8, dayOfMonth(day));
  putTwoDigits(text, 11, inDay / 3600);
  putTwoDigits(text, 14, inDay / 60 % 60);
  putTwoDigits(text, 17, inDay % 60);
  return text;
}

std::optional<DateTime> parseIsoDate(std::string_view text) {
  const bool withTime = text.size() == 19;
  if (!withTime && text.size() != 10) return std::nullopt;
  if (text[4] != '-' || text[7] != '-') return std::nullopt;
  const int year = digitsAt(text, 0, 4);
  const int month = digitsAt(text, 5, 2);
  const int day = digitsAt(text, 8, 2);
  if (!withTime) return DateTime::fromParts(year, month, day);
  if (text[10] != ' ' || text[13] != ':' || text[16] != ':') return std::nullopt;
  return DateTime::fromParts(year, month, day, digitsAt(text, 11, 2), digitsAt(text, 14, 2),
                             digitsAt(text, 17, 2));
}

}  // namespace zelkor
