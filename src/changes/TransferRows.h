#pragma once

#include "changes/SheetSaving.h"

// What a transfer writes beside its versions and its sheet.
namespace zelkor {

struct TransferKeys {
  VersionKeys left;
  VersionKeys receiving;
};

/// Carries the shares of the departments into fa_DeptScale. The rows are numbered after the highest
/// operation of that table, which need not be those of the two versions.
void carryShares(const SheetSaving& saving);

/// Carries the figures by department into fa_Cards_Detail, under the keys of the two versions.
void carryDetails(const SheetSaving& saving, const TransferKeys& keys);

}  // namespace zelkor
