#pragma once

#include <map>
#include <string>
#include <string_view>

#include "cards/CardRows.h"
#include "startup/RunContext.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {

/// A new asset as it is staged for the ledger; `month` is that of the operating date, the value as typed.
struct StagedAsset {
  std::string cardNum;
  std::string originID;
  std::string originalValue;
  std::string department;
  int month = 0;
};

/// The card as an asset of that card number.
StagedAsset stagedAsset(const CardEntry& card, std::string_view cardNum);

/// Leaves a debit and a credit row of each asset's original value for the ledger, under a key of their own.
class AssetStaging {
 public:
  /// `context` must outlive the object.
  explicit AssetStaging(const RunContext& context) : context_(context) {}

  /// Has the group read what the rows of an asset of that origin need. Stays where it is until the group has
  /// been run.
  void read(StatementGroup& group, const std::string& originID, int month);
  /// Writes the rows, which count for those of the next asset.
  void write(StatementGroup& group, const StagedAsset& asset);

 private:
  const RunContext& context_;
  bool haveRead_ = false;
  double lastLine_ = 0;
  double lastKey_ = 0;
  std::map<std::string, std::string> digests_;  // by the origin's sID
};

/// Stages one asset after the statements of the group, which is run.
void stageNewAsset(StatementGroup& group, const RunContext& context, const StagedAsset& asset);

/// Rewrites the two rows of a changed card, if they bear "02" as the number of their event. Rows that were
/// staged bear the card number there, so that they stay as they are. The group is run.
void restageChangedAsset(StatementGroup& group, const RunContext& context, const StagedAsset& asset);

}  // namespace zelkor
