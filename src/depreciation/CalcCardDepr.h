#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "depreciation/DeprThisYear.h"
#include "startup/RunContext.h"

namespace zelkor {

/// Computes the open month's depreciation of one card from its latest version by the text order of
/// `sCardID`: writes the month's columns of the card's ledger row, the year's total on every ledger row, and
/// an allocation row of the card's department, category and subject. A card without department or category
/// in the archives is left alone. Safe to repeat, but for the allocation row, which is added each time.
///
/// Errors 6, 11 and 94 where a card's figures allow no computation. The result is always 0.
std::int16_t CalcCardDepr(RunContext& run, const std::string& cardNum);

/// The same for cards of a walk, which decides when the year's total is written. All of them are read before
/// the first is written; after a failure those before it are.
void calcCardsDepr(RunContext& run, std::span<const std::string> cardNums, DeprThisYear& deprThisYear);

}  // namespace zelkor
