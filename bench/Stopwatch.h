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

/// The shortest of the measurements: what else the machine does can only lengthen one.
inline double best(const std::vector<double>& measurements) {
  return *std::min_element(measurements.begin(), measurements.end());
}

}  // namespace zelkor::bench
