#include <cmath>
#include <limits>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "support/Golden.h"

namespace zelkor {
namespace {

using test::casesIn;
using test::day;
using test::errorOf;

/// A column of numbers in a file of cases.
double number(const std::string& text) {
  return std::strtod(text.c_str(), nullptr);
}

TEST(Val, ReadsTheLongestLeadingNumber) {
  for (const auto& one : casesIn("base/leading-numbers.txt"))
    EXPECT_EQ(Val(one[0]), number(one[1])) << '"' << one[0] << '"';
  EXPECT_EQ(errorOf([] { Val("1e400"); }), 6);
}

TEST(ParseNumber, TakesWholeTextsOnly) {
  for (const auto& one : casesIn("base/whole-numbers.txt")) {
    const auto found = parseNumber(one[0]);
    EXPECT_EQ(found.has_value(), !one[1].empty()) << '"' << one[0] << '"';
    EXPECT_EQ(found.value_or(0), number(one[1])) << '"' << one[0] << '"';
  }
}

TEST(TextOfDouble, HasFifteenDigitsAndNoTrailingZeros) {
  for (const auto& one : casesIn("base/doubles.txt")) EXPECT_EQ(textOfDouble(number(one[0])), one[1]);
}

// The quick ways of finding the digits must agree with the library's exact printing.
TEST(TextOfDouble, AgreesWithExactPrinting) {
  std::uint64_t state = 1;
  for (int i = 0; i < 60000; ++i) {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    constexpr double kDivisors[] = {100, 10000, 7, 65536, 3e9, 1e11};
    const double amount = static_cast<double>(state >> (10 + i % 40)) / kDivisors[i % 6];
    char exact[40];
    std::snprintf(exact, sizeof exact, "%.14e", amount);
    ASSERT_EQ(Val(textOfDouble(amount)), std::strtod(exact, nullptr)) << exact;
    ASSERT_EQ(Val(exact), std::strtod(exact, nullptr));
  }
  for (const double power : {0.001, 0.01, 0.1, 1.0, 10.0, 1e6, 1e14, 1e15}) {
    for (const double near : {std::nextafter(power, 0), power, std::nextafter(power, 2 * power)}) {
      EXPECT_EQ(Val(textOfDouble(near)), power);
    }
  }
  EXPECT_EQ(textOfDouble(0.5000000000000005), "0.500000000000001");
  EXPECT_EQ(textOfDouble(1048576.00000000023283064365386962890625), "1048576");
}

TEST(Whole, TiesGoToTheEvenNumber) {
  const std::pair<Value, int> cases[] = {{0.49, 0},
                                         {0.51, 1},
                                         {0.5, 0},
                                         {1.5, 2},
                                         {2.5, 2},
                                         {4.5, 4},
                                         {8.51, 9},
                                         {-2.5, -2},
                                         {25427.45, 25427},
                                         {Value("-1"), -1},
                                         {Value("513.7"), 514},
                                         {Value("00012"), 12},
                                         {Value(true), -1},
                                         {32767.49, 32767},
                                         {-32768.5, -32768}};
  for (const auto& [value, whole] : cases) {
    EXPECT_EQ(CInt(value), whole) << value.text();
    EXPECT_EQ(CLng(value), whole) << value.text();
  }
  EXPECT_EQ(CLng(Value("345513.7")), 345514);
}

TEST(Conversions, RaiseThePlatformsErrors) {
  EXPECT_EQ(errorOf([] { CInt(32767.5); }), 6);
  EXPECT_EQ(errorOf([] { CInt(-32768.51); }), 6);
  EXPECT_EQ(errorOf([] { CLng(2147483647.5); }), 6);
  EXPECT_EQ(errorOf([] { CLng(std::nan("")); }), 6);
  EXPECT_EQ(errorOf([] { CInt(Value("")); }), 13);
  EXPECT_EQ(errorOf([] { CLng(Value("")); }), 13);
  EXPECT_EQ(errorOf([] { CDbl(Value("")); }), 13);
  EXPECT_EQ(errorOf([] { CCur(Value("1元")); }), 13);
  EXPECT_EQ(errorOf([] { CBool(Value("")); }), 13);
  EXPECT_EQ(errorOf([] { CDate(Value("True")); }), 13);
  for (const auto convert : {+[](const Value& v) { CInt(v); }, +[](const Value& v) { CDbl(v); },
                             +[](const Value& v) { CCur(v); }, +[](const Value& v) { CBool(v); },
                             +[](const Value& v) { CDate(v); }, +[](const Value& v) { CStr(v); },
                             +[](const Value& v) { v.text(); }, +[](const Value& v) { v.number(); }}) {
    EXPECT_EQ(errorOf([convert] { convert(Value()); }), 94);
  }
  EXPECT_STREQ(RuntimeError(ErrorNumber::InvalidUseOfNull).what(), "无效使用 Null");
  EXPECT_EQ(Value().textOrEmpty(), "");
  EXPECT_EQ(Value().numberOrZero(), 0);
  EXPECT_EQ(errorOf([] { divide(1, 0); }), 11);
  EXPECT_EQ(errorOf([] { divide(0, 0); }), 6);
}

TEST(CBool, ReadsWordsAndNumbers) {
  EXPECT_FALSE(CBool(Value("0")));
  EXPECT_TRUE(CBool(Value("true")));
  EXPECT_TRUE(CBool(Value("-1")));
  EXPECT_FALSE(CBool(Value("False")));
  EXPECT_TRUE(CBool(Value(0.5)));
}

TEST(CStr, GivesThePlatformsTexts) {
  EXPECT_EQ(CStr(Value(true)), "True");
  EXPECT_EQ(CStr(Value(CCur(Value("1234.50")))), "1234.5");
  EXPECT_EQ(CStr(Value(day("2004-4-1"))), "2004-4-1");
  EXPECT_EQ(CStr(Value(std::int32_t{-5})), "-5");
}

TEST(CCur, RoundsTheDecimalTextToTheEvenDigit) {
  for (const auto& one : casesIn("base/amounts.txt"))
    EXPECT_EQ(CCur(Value(number(one[0]))).toText(), one[1]) << one[0];
  EXPECT_EQ(CCur(Value(0.552222211)).scaled() * 100, 552200);
  EXPECT_EQ(CCur(Value("922337203685477.5807")).scaled(), std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(errorOf([] { CCur(Value("922337203685477.5808")); }), 6);
  EXPECT_EQ(errorOf([] { CCur(Value(1e15)); }), 6);
  EXPECT_EQ(errorOf([] { CCur(Value(-1e300)); }), 6);
}

TEST(Currency, AddsExactlyAndOverflows) {
  EXPECT_EQ((CCur(Value(0.5)) + CCur(Value(-0.6))).toText(), "-0.1");
  Currency total;
  for (int i = 0; i < 10000; ++i) total += Currency::fromDouble(0.1);
  EXPECT_EQ(total.toText(), "1000");
  const auto largest = Currency::fromScaled(std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(errorOf([&] { largest + Currency::fromScaled(1); }), 6);
  EXPECT_EQ(errorOf([&] { -largest - Currency::fromScaled(2); }), 6);
  EXPECT_EQ(Currency::fromScaled(std::numeric_limits<std::int64_t>::min()).toText(), "-922337203685477.5808");
}

TEST(IsNumeric, TellsNumbersFromTheRest) {
  EXPECT_TRUE(IsNumeric(Value(37.0)));
  EXPECT_TRUE(IsNumeric(Value(" -37.5e2 ")));
  EXPECT_TRUE(IsNumeric(Value("4,5")));
  EXPECT_FALSE(IsNumeric(Value()));
  EXPECT_FALSE(IsNumeric(Value("")));
  EXPECT_FALSE(IsNumeric(Value(" &H37foo ")));
  EXPECT_FALSE(IsNumeric(Value("1e999")));
  EXPECT_FALSE(IsNumeric(Value(day("2003-2-1"))));
}

}  // namespace
}  // namespace zelkor
