#include <algorithm>
#include <random>

#include "base/DecimalSum.h"
#include "support/Support.h"

namespace zelkor {
namespace {

DecimalSum sumOf(const std::vector<double>& values) {
  DecimalSum sum;
  for (const double value : values) sum.add(value);
  return sum;
}

TEST(DecimalSum, IsTheDoubleNearestToWhatIsWritten) {
  const struct {
    std::vector<double> values;
    double total;
    double average;
  } kCases[] = {
      {{0.1, 0.2}, 0.3, 0.15},
      {{0.7, 0.7, 0.7}, 2.1, 0.7},
      {{1e15, 0.01, -1e15}, 0.01, 0.01 / 3},
      {{1e300, 0.25, -1e300}, 0.25, 0.25 / 3},
      {{1.0 / 3, 1.0 / 3, 1.0 / 3}, 0.999999999999999, 0.333333333333333},
      {{-0.1, -0.2}, -0.3, -0.15},
      {{5e-324, 1e-320}, 1.0004e-320, 5e-321},
      {{90071992547409.1, 90071992547409.1, 0.1}, 180143985094818.3, 60047995031606.1},
      {{0.00001, 0.00002}, 0.00003, 0.000015},
      {{2.5, -2.5}, 0, 0},
  };
  for (const auto& [values, total, average] : kCases) {
    const DecimalSum sum = sumOf(values);
    EXPECT_EQ(sum.total(), total);
    EXPECT_EQ(sum.dividedBy(static_cast<std::int64_t>(values.size())), average) << total;
  }
  EXPECT_EQ(test::errorOf([] { sumOf({1.7e308, 1.7e308}).total(); }), 6);
}

TEST(DecimalSum, DoesNotDependOnTheOrder) {
  std::mt19937 random(5);
  std::vector<double> values;
  for (int i = 0; i < 3000; ++i)
    values.push_back(static_cast<double>(static_cast<int>(random())) / (i % 3 == 0   ? 100
                                                                        : i % 3 == 1 ? 7
                                                                                     : 1e9));
  const double total = sumOf(values).total();
  for (int i = 0; i < 5; ++i) {
    std::ranges::shuffle(values, random);
    EXPECT_EQ(sumOf(values).total(), total);
  }
}

}  // namespace
}  // namespace zelkor
