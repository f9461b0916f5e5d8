#pragma once

#include <cstdint>
#include <vector>

namespace zelkor {

/// A sum of doubles as they are written: each counts as its decimal text of 15 significant digits, and these
/// are added exactly, so that the total has no noise and does not depend on their order.
class DecimalSum {
 public:
  void add(double value) {
    if (!addAmount(value)) addOther(value);
  }
  /// The double nearest to the sum; error 6 beyond the range of a double.
  double total() const { return dividedBy(1); }
  /// The double nearest to the sum divided by a count, which is not 0.
  double dividedBy(std::int64_t count) const;

 private:
  __extension__ using Wide = __int128;
  struct Part {
    int exponent = 0;  // of 10
    Wide coefficient = 0;
  };

  bool addAmount(double value);
  void addOther(double value);

  Wide amounts_ = 0;  // in ten-thousandths
  std::vector<Part> others_;
  double infinite_ = 0;
};

}  // namespace zelkor
