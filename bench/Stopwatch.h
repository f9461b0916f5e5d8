#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <vector>

namespace zelkor::bench {

/// Seconds that `work` takes.
template <typename Work>
double secondsOf(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The shortest of the measurements: what else the machine does can only lengthen one.
inline double best(const std::vector<double>& measurements) {
  return *std::min_element(measurements.begin(), measurements.end());
}

/// The measurement in the middle, for what cannot be repeated alone on the machine's processors.
inline double median(std::vector<double> measurements) {
  const auto middle = measurements.begin() + static_cast<std::ptrdiff_t>(measurements.size() / 2);
  std::nth_element(measurements.begin(), middle, measurements.end());
  return *middle;
}

/// Prints the best of the measurements beside the best of the floor's as microseconds per card, with their
/// ratio; gives the former.
inline double printPerCard(const char* what, long cards, const std::vector<double>& seconds,
                           const std::vector<double>& floorSeconds) {
  const double perCard = 1e6 / static_cast<double>(cards);
  const double cost = best(seconds) * perCard;
  const double floor = best(floorSeconds) * perCard;
  std::printf("%-17s %7ld cards  %8.2f us/card  floor %8.2f us/card  ratio %5.2f\n", what, cards, cost, floor,
              cost / floor);
  return cost;
}

}  // namespace zelkor::bench
