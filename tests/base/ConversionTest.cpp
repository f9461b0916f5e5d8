#include <gtest/gtest.h>

#include <cmath>

#include "base/Conversion.h"
#include "base/Decimal.h"
#include "base/RuntimeError.h"

namespace zelkor {
namespace {

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
    if (amount < 9e14) {
      ASSERT_EQ(Currency::fromDouble(-amount), -Currency::fromDecimal(decimalOf(amount))) << exact;
    }
  }
  for (const double power : {0.001, 0.01, 0.1, 1.0, 10.0, 1e6, 1e14, 1e15}) {
    for (const double near : {std::nextafter(power, 0), power, std::nextafter(power, 2 * power)}) {
      EXPECT_EQ(Val(textOfDouble(near)), power);
    }
  }
}

TEST(Currency, AddsExactly) {
  Currency total;
  for (int i = 0; i < 10000; ++i) total += Currency::fromDouble(0.1);
  EXPECT_EQ(total.toText(), "1000");
}

TEST(RuntimeError, SpeaksThePlatformsWords) {
  EXPECT_STREQ(RuntimeError(ErrorNumber::InvalidUseOfNull).what(), "无效使用 Null");
}

}  // namespace
}  // namespace zelkor
