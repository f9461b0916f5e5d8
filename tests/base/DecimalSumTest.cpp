#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "base/DecimalSum.h"

namespace zelkor {
namespace {

double totalOf(const std::vector<double>& values) {
  DecimalSum sum;
  for (const double value : values) sum.add(value);
  return sum.total();
}

TEST(DecimalSum, DoesNotDependOnTheOrder) {
  std::mt19937 random(5);
  std::vector<double> values;
  for (int i = 0; i < 3000; ++i)
    values.push_back(static_cast<double>(static_cast<int>(random())) / (i % 3 == 0   ? 100
                                                                        : i % 3 == 1 ? 7
                                                                                     : 1e9));
  const double total = totalOf(values);
  for (int i = 0; i < 5; ++i) {
    std::ranges::shuffle(values, random);
    EXPECT_EQ(totalOf(values), total);
  }
}

}  // namespace
}  // namespace zelkor
