#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace zelkor::bench {

/// Seconds that `work` takes.
template <typename Work>
double secondsOf(Work&& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The middle one of an odd number of measurements.
inline double median(std::vector<double> measurements) {
  const auto middle = measurements.begin() + static_cast<std::ptrdiff_t>(measurements.size() / 2);
  std::nth_element(measurements.begin(), middle, measurements.end());
  return *middle;
}

}  // namespace zelkor::bench
