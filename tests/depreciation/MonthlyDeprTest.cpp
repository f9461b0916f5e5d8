#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "depreciation/MonthlyDepr.h"

namespace zelkor {
namespace {

const Value kNull;

struct Case {
  const char* what;
  DeprBasis card;  // method, life, used months, value, residual value, residual rate
  const char* rate;
  const char* amount;
};

TEST(MonthlyDepr, followsTheMethod) {
  const Case cases[] = {
      {"straight line", {"2", 120, 0, 100000.0, 5000.0, 0.05}, "0.0079", "790"},
      {"the same under 3", {"3", 36, 0, 12345.67, 0.0, 0.04}, "0.0267", "329.6294"},
      {"the same under 6, months used make no difference", {"6", 60, 59, 1000.0, 0.0, 0.1}, "0.015", "15"},
      {"a rate on a tie goes down to even", {"2", 20000, 0, 100000.0, 0.0, 0.0}, "0", "0"},
      {"a rate on a tie goes up to even", {"2", 5000, 0, 100.0, 0.0, 0.25}, "0.0002", "0.02"},
      {"an amount on a tie goes down to even", {"2", 80, 0, 0.5, 0.0, 0.0}, "0.0125", "0.0062"},
      {"an amount on a tie goes up to even", {"2", 120, 0, 0.5, 0.0, 0.05}, "0.0079", "0.004"},
      {"no life", {"2", 0, 0, 1000.0, 0.0, 0.05}, "0", "0"},
      {"life not known", {"3", kNull, 0, 1000.0, 0.0, 0.05}, "0", "0"},
      {"life not known hides a missing rate", {"6", kNull, 0, kNull, kNull, kNull}, "0", "0"},
      {"years' digits", {"5", 60, 12, 100000.0, 5000.0, 0.0}, "0.0533", "5063.5"},
      {"one and a half years count as two", {"5", 18, 0, 1000.0, 0.0, 0.0}, "0.3333", "333.3"},
      {"two and a half years count as two", {"5", 30, 0, 1000.0, 0.0, 0.0}, "0.3333", "333.3"},
      {"used up", {"5", 60, 60, 1000.0, 0.0, 0.0}, "0", "0"},
      {"used beyond its life", {"5", 12, 24, 1000.0, 100.0, 0.0}, "-1", "-900"},
      {"longest life of whole years in 16 bits", {"5", 3060, 0, 1000.0, 0.0, 0.0}, "0", "0"},
      {"no depreciation", {"1", 120, 0, 100000.0, 5000.0, 0.05}, "0", "0"},
      {"workload", {"4", 120, 0, 100000.0, 5000.0, 0.05}, "0", "0"},
      {"a blank makes it another method", {"2 ", 120, 0, 100000.0, 5000.0, 0.05}, "0", "0"},
      {"no method", {kNull, 120, 0, 100000.0, 5000.0, 0.05}, "0", "0"},
  };
  for (const Case& c : cases) {
    const MonthlyDepr depr = monthlyDepr(c.card);
    EXPECT_EQ(depr.rate.toText(), c.rate) << c.what;
    EXPECT_EQ(depr.amount.toText(), c.amount) << c.what;
  }
}

struct ErrorCase {
  const char* what;
  DeprBasis card;
  ErrorNumber error;
};

TEST(MonthlyDepr, raisesWhatTheArithmeticRaises) {
  const ErrorCase cases[] = {
      {"residual rate missing", {"2", 120, 0, 1000.0, 0.0, kNull}, ErrorNumber::InvalidUseOfNull},
      {"value missing", {"2", 120, 0, kNull, 0.0, 0.05}, ErrorNumber::InvalidUseOfNull},
      {"amount beyond currency", {"2", 120, 0, 1e19, 0.0, 0.05}, ErrorNumber::Overflow},
      {"under half a year", {"5", 5, 0, 1000.0, 0.0, 0.0}, ErrorNumber::DivisionByZero},
      {"half a year rounds to none", {"5", 6, 0, 1000.0, 0.0, 0.0}, ErrorNumber::DivisionByZero},
      {"half a year, used up", {"5", 6, 6, 1000.0, 0.0, 0.0}, ErrorNumber::DivisionByZero},
      {"no life under years' digits", {"5", 0, 0, 1000.0, 0.0, 0.0}, ErrorNumber::DivisionByZero},
      {"life missing", {"5", kNull, 0, 1000.0, 0.0, 0.0}, ErrorNumber::InvalidUseOfNull},
      {"months used missing", {"5", 60, kNull, 1000.0, 0.0, 0.0}, ErrorNumber::InvalidUseOfNull},
      {"residual value missing", {"5", 60, 0, 1000.0, kNull, 0.0}, ErrorNumber::InvalidUseOfNull},
      {"years beyond 16 bits", {"5", 400000, 0, 1000.0, 0.0, 0.0}, ErrorNumber::Overflow},
      {"digits beyond 16 bits", {"5", 3072, 0, 1000.0, 0.0, 0.0}, ErrorNumber::Overflow},
  };
  for (const ErrorCase& c : cases) {
    try {
      monthlyDepr(c.card);
      ADD_FAILURE() << c.what << " raised nothing";
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.number(), static_cast<int>(c.error)) << c.what;
    }
  }
}

}  // namespace
}  // namespace zelkor
