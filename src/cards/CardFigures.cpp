#include "cards/CardFigures.h"

#include <cmath>

#include "base/Currency.h"
#include "base/Decimal.h"
#include "base/Format.h"
#include "base/NumberText.h"

namespace zelkor {
namespace {

constexpr std::string_view kAmountPicture = "0.00";
constexpr double kLargestCurrency = 922337203685477.0;

/// Beyond what four decimals can hold, amounts subtract as they are.
double difference(double minuend, double subtrahend) {
  if (std::abs(minuend) > kLargestCurrency || std::abs(subtrahend) > kLargestCurrency) {
    return minuend - subtrahend;
  }
  return (Currency::fromDouble(minuend) - Currency::fromDouble(subtrahend)).toDouble();
}

}  // namespace

std::string residualValueText(double rate, double originalValue) {
  return Format(static_cast<float>(rate) * originalValue, kAmountPicture);
}

std::string netValueText(double originalValue, double accumulatedDepreciation) {
  return Format(difference(originalValue, accumulatedDepreciation), kAmountPicture);
}

std::string unitCostText(double netValue, double residualValue, double totalWorkload) {
  return plainText(decimalOf(difference(netValue, residualValue) / totalWorkload));
}

}  // namespace zelkor
