#include "base/Conversion.h"
#include "base/Format.h"
#include "support/Support.h"

namespace zelkor {
namespace {

using test::day;

struct FormatCase {
  Value value;
  std::string_view picture;
  std::string_view expected;
};

void expectAll(const std::vector<FormatCase>& cases) {
  for (const auto& [value, picture, expected] : cases) {
    EXPECT_EQ(Format(value, picture), expected) << value.textOrEmpty() << " as " << picture;
  }
}

TEST(Format, ShowsAmountsWithFixedDecimals) {
  expectAll({
      {2.675, "0.00", "2.68"},
      {-2.675, "0.00", "-2.68"},
      {1.005, "0.00", "1.01"},
      {0.125, "0.00", "0.13"},
      {0.0, "0.00", "0.00"},
      {-0.001, "0.00", "0.00"},
      {0.005, "0.00", "0.01"},
      {999.995, "0.00", "1000.00"},
      {1e15, "0.00", "1000000000000000.00"},
      {123456.78, "0.00", "123456.78"},
      {1.0 / 3, "0.0000", "0.3333"},
      {0.00425, "0.0000", "0.0043"},
      {1.0 / 240, "0.0000", "0.0042"},
      {33.35, "0.0", "33.4"},
      {2.5, "0", "3"},
      {std::int32_t{7}, "0.00", "7.00"},
      {true, "0.00", "-1.00"},
      {Currency::fromScaled(9223372036854775807), "0.00", "922337203685477.58"},
      {Currency::fromScaled(26750), "0.00", "2.68"},
      {"12345.678", "0.00", "12345.68"},
      {"1,234", "0.00", "1234.00"},
      {"", "0.00", ""},
      {"合计", "0.00", "合计"},
      {Value(), "0.00", ""},
  });
}

TEST(Format, FollowsNumberPictures) {
  expectAll({
      {2658.0, "00000", "02658"},
      {std::int32_t{123456}, "00000", "123456"},
      {-7.0, "00", "-07"},
      {23.675, "00.0000", "23.6750"},
      {23.675, "##.##", "23.68"},
      {5459.4, "##,##0.00", "5,459.40"},
      {11111210.6, "#,##0.00", "11,111,210.60"},
      {-1234.5, "#,##0.00", "-1,234.50"},
      {0.0, "#,##0.00", "0.00"},
      {999.0, "#,##0", "999"},
      {0.0, "##,###.00", ".00"},
      {0.5, "##,###.00", ".50"},
      {1234567.891, "##,###.00", "1,234,567.89"},
      {123.4, "#.00", "123.40"},
      {0.05, "#.00", ".05"},
      {12.3, ".00", "12.30"},
      {5.0, "0.##", "5."},
      {5.25, "0.##", "5.25"},
      {5.1, "0.##", "5.1"},
      {0.25, "##.00%", "25.00%"},
      {5.0, "0.00%", "500.00%"},
      {0.05, "0.00%", "5.00%"},
      {1234.0, "000000,000", "000,001,234"},
  });
}

TEST(Format, FollowsDatePictures) {
  const DateTime moment = day("2004-4-1 9:05:07");
  expectAll({
      {moment, "yyyy-mm-dd", "2004-04-01"},
      {moment, "YYYY-MM-DD", "2004-04-01"},
      {moment, "yyyy-m-d", "2004-4-1"},
      {moment, "yyyy-mm-01", "2004-04-01"},
      {day("2004-4-15"), "yyyy-mm-01", "2004-04-01"},
      {moment, "yyyy-mm-", "2004-04-"},
      {moment, "yyyy.mm", "2004.04"},
      {moment, "yyyy.mm.dd", "2004.04.01"},
      {moment, "yyyy年mm月dd日 hh时mm分ss秒", "2004年04月01日 09时05分07秒"},
      {moment, "mm分ss秒", "05分07秒"},
      {moment, "h:m:s", "9:5:7"},
      {moment, "hh:nn:ss", "09:05:07"},
      {"2004-4-1", "yyyy-mm-dd", "2004-04-01"},
      {38078.0, "yyyy-mm-dd", "2004-04-01"},
      {"未知", "yyyy-mm-dd", "未知"},
      {Value(), "yyyy-mm-dd", ""},
  });
}

TEST(Format, RefusesOtherPictures) {
  for (const char* picture :
       {"", "abc", "0.00;(0.00)", "0.00E+00", "Standard", "@@@", "<", "0,", "%", "0.0.0", "\"x\"0", "￥0",
        "mmm d", "ddddd", "c", "yy-m-d", "hh:nn AM/PM", "Short Date", "\\d"})
    EXPECT_EQ(test::errorOf([&] { Format(Value(1.5), picture); }), 3251) << picture;
}

}  // namespace
}  // namespace zelkor
