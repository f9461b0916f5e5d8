#pragma once

#include <string>
#include <string_view>

#include "base/Value.h"
#include "store/engine/Database.h"

// What all value reports ask the ledger of depreciation, and the archives they walk.
namespace zelkor {

/// The codes of a department and of a category, by which assets are chosen. A code takes in what is below it;
/// an empty one is no condition.
struct AssetSet {
  std::string department;
  std::string type;
};

/// Sums over the ledger's first month. Null without rows.
struct LedgerSums {
  Value value;
  Value depreciation;  // accumulated
  Value residual;

  /// False for a sum over nothing, too.
  bool hasValue() const { return !value.isNull() && value.number() > 0; }
  Value netValue() const {
    return value.isNull() || depreciation.isNull() ? Value() : value.number() - depreciation.number();
  }
};

/// Over the assets of which any version stood under the department and the category, one of which is given.
LedgerSums sumLedger(Database& data, const AssetSet& assets);
/// Without the residual value.
LedgerSums sumDepartment(Database& data, std::string_view department);
/// Number of ledger rows of these assets, as it is shown.
std::string countLedger(Database& data, const AssetSet& assets);

/// The departments of the first level, in the order of their codes.
Recordset firstLevelDepartments(Database& data);
/// The categories of the first level.
Recordset firstLevelTypes(Database& data);

}  // namespace zelkor
