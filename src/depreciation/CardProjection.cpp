#include "depreciation/CardProjection.h"

#include <algorithm>
#include <utility>

#include "base/Conversion.h"

namespace zelkor {
namespace {

Currency amountOf(const Value& value) {
  return Currency::fromDouble(value.numberOrZero());
}

/// Of both the one that is nearer to nothing; none where they point in different directions.
Currency within(Currency amount, Currency left) {
  const Currency none;
  if (amount >= none) return std::min(amount, std::max(left, none));
  return std::max(amount, std::min(left, none));
}

}  // namespace

CardProjection::CardProjection(DeprBasis basis, const MonthlyDepr& first, double accumulated)
    : basis_(std::move(basis)),
      varies_(countsUsedMonths(basis_)),
      amount_(first.amount),
      left_(amountOf(basis_.dblValue) - amountOf(basis_.dblBV) - Currency::fromDouble(accumulated)) {}

Currency CardProjection::formula() {
  return varies_ ? monthlyDepr(basis_).amount : amount_;
}

void CardProjection::use(Currency amount) {
  left_ = left_ - amount;
  if (varies_) basis_.lUsedMonths = Value(basis_.lUsedMonths.number() + 1);
}

Currency CardProjection::booked() {
  const Currency amount = formula();
  use(amount);
  return amount;
}

Currency CardProjection::projected() {
  if (left_ == Currency()) return {};
  const Currency amount = within(formula(), left_);
  use(amount);
  return amount;
}

}  // namespace zelkor
