#pragma once

#include <map>
#include <optional>
#include <string>

#include "depreciation/DeprCards.h"

namespace zelkor {

/// Says why a card depreciates otherwise than in the month before.
class DeprChangeReason {
 public:
  /// `month` is the first day of the month.
  DeprChangeReason(Database& data, DateTime month);

  /// The version by which the month before was computed, as far as can be told: the last one that was there
  /// then and comes to the ledger's amount, else the last that was there; null without one.
  const DeprVersion* versionBefore(const DeprCard& card) const;
  /// A text for the bookkeeper. `before` is that version; `computed` whether the month computes the card.
  std::string text(const DeprCard& card, const DeprVersion* before, bool computed);

 private:
  std::string causes(const DeprVersion& before, const DeprVersion& now);
  std::string sheetOf(const DeprVersion& version, const DeprVersion& older);
  std::string methodSheet(const DeprVersion& version);
  std::string methodName(const Value& number);

  Database& data_;
  DateTime month_;
  std::map<std::string, std::string> methods_;  // names by number
};

}  // namespace zelkor
