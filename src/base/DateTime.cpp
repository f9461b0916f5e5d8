#include "base/DateTime.h"

#include <array>
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

struct CalendarDay {
  int year;
  int month;
  int day;
};

// Both directions by the method of counting years from 1 March and eras of 400 years (Howard Hinnant,
// "chrono-compatible low-level date algorithms").
std::int64_t dayNumber(int year, int month, int day) {
  const std::int64_t y = month <= 2 ? year - 1 : year;
  const std::int64_t era = y / 400;
  const std::int64_t yearOfEra = y - era * 400;
  const std::int64_t dayOfYear = (153 * (month + (month > 2 ? -3 : 9)) + 2) / 5 + day - 1;
  const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
  return era * 146097 + dayOfEra - 719468 + kDayZeroToUnix;
}

CalendarDay calendarDay(std::int64_t number) {
  const std::int64_t shifted = number - kDayZeroToUnix + 719468;
  const std::int64_t era = (shifted >= 0 ? shifted : shifted - 146096) / 146097;
  const std::int64_t dayOfEra = shifted - era * 146097;
  const std::int64_t yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
  const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
  const std::int64_t monthFromMarch = (5 * dayOfYear + 2) / 153;
  const auto day = static_cast<int>(dayOfYear - (153 * monthFromMarch + 2) / 5 + 1);
  const auto month = static_cast<int>(monthFromMarch < 10 ? monthFromMarch + 3 : monthFromMarch - 9);
  return {static_cast<int>(yearOfEra + era * 400) + (month <= 2 ? 1 : 0), month, day};
}

std::int64_t dayOf(std::int64_t seconds) {
  return seconds >= 0 ? seconds / kSecondsPerDay : -((-seconds + kSecondsPerDay - 1) / kSecondsPerDay);
}

int secondOfDay(std::int64_t seconds) {
  return static_cast<int>(seconds - dayOf(seconds) * kSecondsPerDay);
}

int daysInMonth(int year, int month) {
  constexpr std::array<int, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
  return month == 2 && leap ? 29 : kDays[static_cast<std::size_t>(month - 1)];
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
  if (year < kFirstYear || year > kLastYear || month < 1 || month > 12) return std::nullopt;
  if (day < 1 || day > daysInMonth(year, month)) return std::nullopt;
  if (hour < 0 || hour > 23 || minute < 0 || minute > 59 || second < 0 || second > 59) return std::nullopt;
  return DateTime(dayNumber(year, month, day) * kSecondsPerDay + std::int64_t{hour} * 3600 +
                  std::int64_t{minute} * 60 + second);
}

double DateTime::toSerial() const {
  const auto day = static_cast<double>(dayOf(seconds_));
  const double fraction = secondOfDay(seconds_) / static_cast<double>(kSecondsPerDay);
  return day < 0 ? day - fraction : day + fraction;
}

int DateTime::year() const {
  return calendarDay(dayOf(seconds_)).year;
}
int DateTime::month() const {
  return calendarDay(dayOf(seconds_)).month;
}
int DateTime::day() const {
  return calendarDay(dayOf(seconds_)).day;
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
  // Day 0 was a Saturday.
  const auto fromSaturday = static_cast<int>(dayOf(seconds_) % 7);
  return (fromSaturday + 7 + 6) % 7 + 1;
}

DateTime DateTime::date() const {
  return DateTime(dayOf(seconds_) * kSecondsPerDay);
}

std::string DateTime::toText() const {
  std::string text;
  const bool timeOnly = dayOf(seconds_) == 0;
  if (!timeOnly) {
    const CalendarDay day = calendarDay(dayOf(seconds_));
    text = std::to_string(day.year) + '-' + std::to_string(day.month) + '-' + std::to_string(day.day);
    if (isMidnight()) return text;
    text.push_back(' ');
  }
  appendTime(text, *this);
  return text;
}

std::string DateTime::toIso() const {
  const std::int64_t dayCount = dayOf(seconds_);
  const CalendarDay day = calendarDay(dayCount);
  const auto inDay = static_cast<int>(seconds_ - dayCount * kSecondsPerDay);
  std::string text = "0000-00-00 00:00:00";
  putTwoDigits(text, 0, day.year / 100);
  putTwoDigits(text, 2, day.year % 100);
  putTwoDigits(text, 5, day.month);
  putTwoDigits(text, 8, day.day);
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
