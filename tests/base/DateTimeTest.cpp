#include "base/Conversion.h"
#include "base/DateTime.h"
#include "support/Golden.h"

namespace zelkor {
namespace {

using test::casesIn;
using test::day;
using test::errorOf;

TEST(ParseDate, ReadsTheFormsOfTheLocale) {
  for (const auto& one : casesIn("base/dates.txt")) {
    const auto date = parseDate(one[0]);
    EXPECT_EQ(date ? date->toIso() : "", one[1]) << one[0];
  }
  EXPECT_FALSE(IsDate(Value()));
  EXPECT_FALSE(IsDate(Value(38000.0)));
  EXPECT_TRUE(IsDate(Value("2004-4-1")));
}

TEST(ParseIsoDate, TakesTheStoresOwnFormAlone) {
  EXPECT_EQ(parseIsoDate("2004-04-01"), day("2004-4-1"));
  EXPECT_EQ(parseIsoDate("1899-12-29 06:00:00"), day("1899-12-29 6:00"));
  for (const auto text :
       {"2004-4-1", "2004-04-01T09:05:00", "2004-04-31", "2004-04-01 25:00:00", "2004-0a-01"}) {
    EXPECT_FALSE(parseIsoDate(text)) << text;
  }
}

TEST(DateTime, CountsFromDayZero) {
  const struct {
    double serial;
    std::string_view text;
  } kCases[] = {{0, "0:00:00"},       {1, "1899-12-31"},
                {-1, "1899-12-29"},   {-1.25, "1899-12-29 6:00:00"},
                {0.5, "12:00:00"},    {37623.2916666667, "2003-1-2 7:00:00"},
                {-657434, "100-1-1"}, {2958465, "9999-12-31"}};
  for (const auto& [serial, text] : kCases) {
    const DateTime date = DateTime::fromSerial(serial);
    EXPECT_EQ(date.toText(), text);
    EXPECT_NEAR(date.toSerial(), serial, 1e-9);
  }
  EXPECT_EQ(DateTime::fromSerial(38078.9999999).toText(), "2004-4-2");
  EXPECT_EQ(errorOf([] { DateTime::fromSerial(2958466); }), 6);
  EXPECT_EQ(errorOf([] { DateTime::fromSerial(-657435); }), 6);
}

TEST(DateTime, WalksTheWholeCalendar) {
  DateTime date = day("100-1-1");
  int weekday = date.weekday();
  for (int year = 100; year <= 9999; ++year) {
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    ASSERT_EQ(date.toText(), std::to_string(year) + "-1-1");
    ASSERT_EQ(date.weekday(), weekday);
    const DateTime march = DateTime::fromSeconds(date.seconds() + (leap ? 60 : 59) * 86400LL);
    ASSERT_EQ(march.toText(), std::to_string(year) + "-3-1");
    date = DateTime::fromSeconds(date.seconds() + (leap ? 366 : 365) * 86400LL);
    weekday = (weekday + (leap ? 2 : 1) - 1) % 7 + 1;
  }
  EXPECT_EQ(day("2003-11-22").weekday(), 7);
}

TEST(DateDiff, CountsBoundaries) {
  for (const auto& one : casesIn("base/date-spans.txt"))
    EXPECT_EQ(std::to_string(DateDiff(one[0], day(one[1]), day(one[2]))), one[3]) << one[0] << ' ' << one[1];
  EXPECT_EQ(DateDiff("ww", day("2017-12-31"), day("2018-1-1"), 2), 1);
  EXPECT_EQ(errorOf([] { DateDiff("x", day("2004-1-1"), day("2004-1-1")); }), 13);
}

TEST(DateAdd, MovesAndStaysInTheMonth) {
  for (const auto& one : casesIn("base/date-additions.txt"))
    EXPECT_EQ(DateAdd(one[0], std::stoi(one[1]), day(one[2])).toText(), one[3]) << one[0] << ' ' << one[2];
  EXPECT_EQ(errorOf([] { DateAdd("d", 1, day("9999-12-31")); }), 5);
  EXPECT_EQ(errorOf([] { DateAdd("m", -1, day("100-1-1")); }), 5);
}

}  // namespace
}  // namespace zelkor
