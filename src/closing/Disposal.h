#pragma once

#include <span>
#include <string>

#include "startup/RunContext.h"

namespace zelkor {

/// An asset that is to leave the books, as it is in the list of disposals.
struct DisposedAsset {
  std::string sCardNum;
  std::string sAssetNum;
  std::string sAssetName;
  std::string way;      // how it leaves, as shown
  std::string wayID;    // the way's sID in fa_Origins
  std::string revenue;  // of the clearing
  std::string cost;
  std::string reason;
};

/// Says so when the month's depreciation is still to be run; assets can only be disposed of after it.
bool refusedBeforeDepreciation(RunContext& run);

/// Takes the assets off the books one after the other: a new card version each with the disposal's data, the
/// ledger's remaining columns cleared, voucher rows staged, a sheet registered. Stops with a message at an
/// asset whose way is not filled in; false then. What is done stays done.
///
/// Errors: 3021 for a card that has no version in force or lacks a row that the disposal reads, 3134 after
/// the credit row of an asset with a department share, 6 where a figure leaves its range.
bool disposeOfAssets(RunContext& run, std::span<const DisposedAsset> assets);

/// Says that the whole list is disposed of.
void tellDisposed(RunContext& run);

}  // namespace zelkor
