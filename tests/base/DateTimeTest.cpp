#include "base/Conversion.h"
#include "base/DateTime.h"
#include "support/Support.h"

namespace zelkor {
namespace {

using test::day;
using test::errorOf;

TEST(ParseDate, ReadsTheFormsOfTheLocale) {
  constexpr std::pair<std::string_view, std::string_view> kCases[] = {
      {"2004-4-1", "2004-04-01 00:00:00"},
      {"2004/04/01", "2004-04-01 00:00:00"},
      {"2004.4.1", "2004-04-01 00:00:00"},
      {" 2004-4-1 ", "2004-04-01 00:00:00"},
      {"2004年4月1日", "2004-04-01 00:00:00"},
      {"04年4月1号", "2004-04-01 00:00:00"},
      {"2004年4月1日 9时05分", "2004-04-01 09:05:00"},
      {"2004年4月1日 09时05分30秒", "2004-04-01 09:05:30"},
      {"2004-4-1 9:05", "2004-04-01 09:05:00"},
      {"2004-04-01 09:05:30", "2004-04-01 09:05:30"},
      {"2004-4-1 下午 3:00", "2004-04-01 15:00:00"},
      {"9:05:00 2004-4-1", "2004-04-01 09:05:00"},
      {"2006-12-11 1:2:3 pm", "2006-12-11 13:02:03"},
      {"2008-10-3 22:34:35 aM", "2008-10-03 22:34:35"},
      // No y-m-d: the month first, the day first only where that is no date.
      {"4/1/2004", "2004-04-01 00:00:00"},
      {"1/2/2004", "2004-01-02 00:00:00"},
      {"13/1/2004", "2004-01-13 00:00:00"},
      {"11/23/1811", "1811-11-23 00:00:00"},
      {"1 2 1970", "1970-01-02 00:00:00"},
      {"01/06/98", "1998-01-06 00:00:00"},
      // Two-digit years lie in 1930 to 2029.
      {"1-2-3", "2001-02-03 00:00:00"},
      {"29-1-2", "2029-01-02 00:00:00"},
      {"30-1-2", "1930-01-02 00:00:00"},
      {"32 2 3", "1932-02-03 00:00:00"},
      {"2-Jan-1970", "1970-01-02 00:00:00"},
      {"January 2, 1970", "1970-01-02 00:00:00"},
      {"Jan 35", "1935-01-01 00:00:00"},
      {"2004-4", "2004-04-01 00:00:00"},
      {"2004年4月", "2004-04-01 00:00:00"},
      {"1 am", "1899-12-30 01:00:00"},
      {"12:59 AM", "1899-12-30 00:59:00"},
      {"9:05:07", "1899-12-30 09:05:07"},
      {"2000-2-29", "2000-02-29 00:00:00"},
      {"100-1-1", "0100-01-01 00:00:00"},
      {"9999-12-31 23:59:59", "9999-12-31 23:59:59"},
  };
  for (const auto& [text, expected] : kCases) {
    const auto date = parseDate(text);
    ASSERT_TRUE(date) << text;
    EXPECT_EQ(date->toIso(), expected) << text;
  }
}

TEST(ParseDate, RefusesWhatIsNoDate) {
  constexpr std::string_view kCases[] = {"",
                                         "0",
                                         "4",
                                         "True",
                                         "2004-13-1",
                                         "2003-2-29",
                                         "1900-2-29",
                                         "2004-4-31",
                                         "2004-0-1",
                                         "2004-1-0",
                                         "2004-4-1-1",
                                         "2004--4-1",
                                         "-2004-4-1",
                                         "2004-4-1-",
                                         "2004.5",
                                         "1.5",
                                         "10/22",
                                         "4月1日",
                                         "99-1-1-1",
                                         "20040401",
                                         "2004-4-1 24:00",
                                         "9:60",
                                         "9:05:60",
                                         "9:",
                                         "am",
                                         "2004-4-1 am",
                                         "2004-4-1 9",
                                         "2004-4-1x",
                                         "固定资产",
                                         "2004年13月1日",
                                         "2004年4年1日",
                                         "10000-1-1",
                                         "99999999999",
                                         "1:2:3:4",
                                         "30 Feb 2004",
                                         "Foo 2004",
                                         "9:05-2004-4-1"};
  for (const auto text : kCases) EXPECT_FALSE(parseDate(text)) << text;
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
  const struct {
    std::string_view interval, from, to;
    std::int64_t expected;
  } kCases[] = {
      {"yyyy", "2003-10-22", "2007-11-22", 4},
      {"q", "2003-10-22", "2003-11-22", 0},
      {"q", "2003-10-22", "2007-11-22", 16},
      {"m", "2003-10-22", "2003-11-1", 1},
      {"M", "2003-10-22", "2007-11-22", 49},
      {"m", "2004-3-31 23:59:59", "2004-3-1", 0},
      {"m", "2004-1-1", "2003-12-31", -1},
      {"d", "2003-3-22", "2003-11-1", 224},
      {"d", "2007-3-22", "2003-10-1", -1268},
      {"d", "2001-1-1", "2002-1-1", 365},
      {"d", "2004-2-28 23:00:00", "2004-3-1 1:00:00", 2},
      {"w", "2018-11-3", "2018-11-10", 1},
      {"w", "2003-3-22", "2003-11-1", 32},
      {"w", "2007-3-22", "2003-10-1", -181},
      {"ww", "2018-11-3", "2018-11-10", 1},
      {"ww", "2000-1-1", "2001-1-1", 53},
      {"ww", "2003-10-22", "2007-11-22", 213},
      {"h", "1:37:00", "2:15:00", 1},
      {"h", "2016-3-13 1:37:00", "2018-11-3 2:15:00", 23161},
      {"n", "1:37:59", "1:38:00", 1},
      {"n", "2016-3-13 1:37:30", "2018-11-3 2:15:13", 1389638},
      {"s", "1:37:30", "14:15:13", 45463},
      {"s", "2018-11-3 14:15:30", "2016-3-13 1:37:13", -83421497},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(DateDiff(c.interval, day(c.from), day(c.to)), c.expected) << c.interval << ' ' << c.from;
  }
  EXPECT_EQ(DateDiff("ww", day("2017-12-31"), day("2018-1-1"), 2), 1);
  EXPECT_EQ(errorOf([] { DateDiff("x", day("2004-1-1"), day("2004-1-1")); }), 13);
}

TEST(DateAdd, MovesAndStaysInTheMonth) {
  const struct {
    std::string_view interval;
    std::int64_t count;
    std::string_view from, expected;
  } kCases[] = {
      {"yyyy", 2, "2003-11-22 5:45:13", "2005-11-22 5:45:13"},
      {"yyyy", 1, "2004-2-29", "2005-2-28"},
      {"q", -1, "2004-5-31", "2004-2-29"},
      {"m", 2, "2003-11-22 5:45:13", "2004-1-22 5:45:13"},
      {"m", 1, "2004-1-31", "2004-2-29"},
      {"m", -1, "2004-1-31", "2003-12-31"},
      {"m", 240, "2004-1-1", "2024-1-1"},
      {"w", 20, "2003-11-22 5:45:13", "2003-12-12 5:45:13"},
      {"ww", 5, "2003-11-22 5:45:13", "2003-12-27 5:45:13"},
      {"d", -1, "2004-3-1", "2004-2-29"},
      {"h", 24, "2003-11-22", "2003-11-23"},
      {"n", 34, "2003-11-22 5:45:13", "2003-11-22 6:19:13"},
      {"h", 30, "5:45:13", "1899-12-31 11:45:13"},
      {"s", -1, "2004-1-1", "2003-12-31 23:59:59"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(DateAdd(c.interval, c.count, day(c.from)).toText(), c.expected) << c.interval << ' ' << c.from;
  }
  EXPECT_EQ(errorOf([] { DateAdd("d", 1, day("9999-12-31")); }), 5);
  EXPECT_EQ(errorOf([] { DateAdd("m", -1, day("100-1-1")); }), 5);
}

}  // namespace
}  // namespace zelkor
