#include <cmath>
#include <limits>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "support/Support.h"

namespace zelkor {
namespace {

using test::day;
using test::errorOf;

struct NumberCase {
  std::string_view text;
  double expected;
};

TEST(Val, ReadsTheLongestLeadingNumber) {
  constexpr NumberCase kCases[] = {
      {"", 0},
      {"hhh", 0},
      {".", 0},
      {"-", 0},
      {"--1", 0},
      {"e5", 0},
      {"1222.3hhh", 1222.3},
      {" 2 45 7", 2457},
      {"\t1\n2", 12},
      {"1,234", 1},
      {"￥5", 0},
      {"    1615 198th Street N.E.", 1615198},
      {"1 2 3 e -2 whatever", 1.23},
      {"1.1e +3", 1100},
      {"1d2", 100},
      {"1e", 1},
      {"1e-3", 0.001},
      {"1%", 1},
      {"-1", -1},
      {"- .5", -0.5},
      {"+7", 7},
      {".1", 0.1},
      {"1..1", 1},
      {"5.00%", 5},
      {"20年", 20},
      {"&HFFFF", -1},
      {"&HFFFF%", -1},
      {"&HFFFF&", 65535},
      {"&hff", 255},
      {"&H F", 15},
      {"&O17", 15},
      {"  &H1FFFFwhatever", 131071},
      {"  &H123whatever", 291},
      {"&H", 0},
      {"0.1", 0.1},
      {"123456789012345678901234567890", 123456789012345678901234567890.0},
      {"0.30000000000000004", 0.30000000000000004},
      {"1.7976931348623157E308", 1.7976931348623157E308},
      {"1e-400", 0},
  };
  for (const auto& [text, expected] : kCases) EXPECT_EQ(Val(text), expected) << '"' << text << '"';
  EXPECT_EQ(errorOf([] { Val("1e400"); }), 6);
}

TEST(ParseNumber, TakesWholeTextsOnly) {
  constexpr NumberCase kGood[] = {{"12", 12},       {" -37.5e2 ", -3750}, {"1,234.5", 1234.5}, {"4,5", 45},
                                  {" &o36 ", 30},   {"+.5", 0.5},         {"5.", 5},           {"12-", -12},
                                  {"(3.5)", -3.5},  {"￥1,000", 1000},    {"- 5", -5},         {"1E-2", 0.01},
                                  {"0012.50", 12.5}};
  for (const auto& [text, expected] : kGood) EXPECT_EQ(parseNumber(text), expected) << '"' << text << '"';
  constexpr std::string_view kBad[] = {"",      " ",     ".",  "-",    "1 2",       "12a",
                                       "1.2.3", "1.2,3", ",5", "True", " &H37foo ", "1e",
                                       "--1",   "-1-",   "(1", "1)",   "5%",        "一"};
  for (const auto text : kBad) EXPECT_FALSE(parseNumber(text)) << '"' << text << '"';
}

TEST(TextOfDouble, HasFifteenDigitsAndNoTrailingZeros) {
  const struct {
    double value;
    std::string_view expected;
  } kCases[] = {
      {0, "0"},
      {-0.0, "0"},
      {0.1 + 0.2, "0.3"},
      {437.324, "437.324"},
      {8.78787878, "8.78787878"},
      {-12345.6789, "-12345.6789"},
      {20.0 / 12, "1.66666666666667"},
      {1.0 / 3, "0.333333333333333"},
      {1.0 / 12, "8.33333333333333E-02"},
      {0.05, "0.05"},
      {0.00001, "0.00001"},
      {1e-15, "0.000000000000001"},
      {1e-16, "1E-16"},
      {123456789012345.0, "123456789012345"},
      {1234567890123456.0, "1.23456789012346E+15"},
      {999999999999999.9, "1E+15"},
      {1e15, "1E+15"},
      {-2.5e100, "-2.5E+100"},
      {22.1225472000002, "22.1225472000002"},
      {100000, "100000"},
      {5e-324, "4.94065645841247E-324"},
  };
  for (const auto& [value, expected] : kCases) EXPECT_EQ(textOfDouble(value), expected);
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
  EXPECT_EQ(CLng(0.49), 0);
  EXPECT_EQ(CLng(0.51), 1);
  EXPECT_EQ(CLng(1.5), 2);
  EXPECT_EQ(CInt(0.5), 0);
  EXPECT_EQ(CInt(2.5), 2);
  EXPECT_EQ(CInt(8.51), 9);
  EXPECT_EQ(CInt(4.5), 4);
  EXPECT_EQ(CInt(-2.5), -2);
  EXPECT_EQ(CLng(25427.45), 25427);
  EXPECT_EQ(CLng(Value("-1")), -1);
  EXPECT_EQ(CLng(Value("345513.7")), 345514);
  EXPECT_EQ(CInt(Value("513.7")), 514);
  EXPECT_EQ(CInt(Value("00012")), 12);
  EXPECT_EQ(CLng(Value(true)), -1);
  EXPECT_EQ(CInt(32767.49), 32767);
  EXPECT_EQ(CInt(-32768.5), -32768);
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
  const struct {
    double value;
    std::string_view expected;
  } kCases[] = {{0.000149, "0.0001"}, {0.00009, "0.0001"},   {1.00009, "1.0001"},      {0.00005, "0"},
                {0.00015, "0.0002"},  {0.00025, "0.0002"},   {2.67505, "2.675"},       {-0.00015, "-0.0002"},
                {-1, "-1"},           {57.12346, "57.1235"}, {1e14, "100000000000000"}};
  for (const auto& [value, expected] : kCases) EXPECT_EQ(CCur(Value(value)).toText(), expected) << value;
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
