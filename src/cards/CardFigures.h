#pragma once

#include <string>

namespace zelkor {

// The figures of a card that follow from others, wherever the card is entered.

/// The residual value for a rate, a fraction, which counts in single precision.
std::string residualValueText(double rate, double originalValue);
/// What is left of the original value. Amounts subtract with four decimals.
std::string netValueText(double originalValue, double accumulatedDepreciation);
/// What a unit of work costs: the net value down to the residual one, by the total workload above 0.
std::string unitCostText(double netValue, double residualValue, double totalWorkload);

}  // namespace zelkor
