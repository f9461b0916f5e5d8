#include "base/DateTime.h"
#include "support/Support.h"

namespace zelkor {
namespace {

using test::day;

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

}  // namespace
}  // namespace zelkor
