#pragma once

#include <string>
#include <string_view>

#include "base/Value.h"
#include "store/engine/Database.h"

// What all value reports ask the ledger of depreciation, and the archives they walk.
namespace zelkor {

/// Which assets a sum covers: those of which any version stood under the department and the category. Codes
/// take in what is below them; an empty one is no condition.
struct AssetSet {
  std::string department;
  std::string type;
};

/// Sums over the ledger's first month. Null without rows.
struct LedgerSums {
  Value yz;    // value
  Value ytzj;  // accumulated depreciation
  Value jcz;   // residual value

  /// False for a sum over nothing, too.
  bool hasValue() const { return !yz.isNull() && yz.number() > 0; }
  Value netValue() const { return yz.isNull() || ytzj.isNull() ? Value() : yz.number() - ytzj.number(); }
};

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
