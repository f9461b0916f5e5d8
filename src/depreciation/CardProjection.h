#pragma once

#include "depreciation/MonthlyDepr.h"

namespace zelkor {

/// The depreciation of one card, month after month, as its formula gives it when months go on being used up.
class CardProjection {
 public:
  /// `first` is what the basis comes to, `accumulated` what was depreciated before the first month.
  CardProjection(DeprBasis basis, const MonthlyDepr& first, double accumulated);

  /// The next month as the run books it: the formula, whatever is left.
  Currency booked();
  /// The next month, no more than what is left above the residual value.
  Currency projected();

 private:
  Currency formula();
  void use(Currency amount);

  DeprBasis basis_;
  bool varies_;
  Currency amount_;  // of every month where it does not vary
  Currency left_;    // that may still be depreciated
};

}  // namespace zelkor
