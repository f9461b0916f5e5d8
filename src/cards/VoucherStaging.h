#pragma once

#include <string>

#include "startup/RunContext.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {

/// An asset whose addition is to be booked.
struct StagedAsset {
  std::string cardNum;
  std::string originID;       // way of addition
  std::string originalValue;  // as typed
  std::string department;
  int month = 1;  // of the operating date
};

/// Leaves a debit and a credit row of the original value for the ledger, under a key of their own.
void stageNewAsset(Database& database, const RunContext& context, const StagedAsset& asset);
/// The same after the statements of the group, which is run.
void stageNewAsset(StatementGroup& group, const RunContext& context, const StagedAsset& asset);

/// Rewrites the two rows of a changed card, if they bear "02" as the number of their event. Rows that were
/// staged bear the card number there, so that they stay as they are.
void restageChangedAsset(Database& database, const RunContext& context, const StagedAsset& asset);

}  // namespace zelkor
