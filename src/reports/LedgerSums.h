#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>

#include "base/Value.h"
#include "store/engine/Database.h"
#include "store/engine/StatementGroup.h"

// What all value reports ask the ledger of depreciation, and the archives they walk. What is asked for each
// of many is put into a group: the answers are there when the group has been run.
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

using UseOfSums = std::function<void(const LedgerSums& sums)>;

/// Over the assets of which any version stood under the department and the category, one of which is given.
void sumLedger(StatementGroup& group, const AssetSet& assets, UseOfSums use);
/// Without the residual value.
void sumDepartment(StatementGroup& group, std::string_view department, UseOfSums use);

/// The sums of some assets, and where these are worth something the number of their ledger rows, as it is
/// shown.
struct LedgerFigures : LedgerSums {
  std::string quantity;
};

/// A category of the first level with the figures of its assets, all or those of a department.
struct TypeFigures {
  std::string name;
  std::string unit;
  double months = 0;  // of its life
  LedgerFigures figures;
};

/// A department of the first level, too.
struct DepartmentFigures {
  std::string name;
  LedgerFigures figures;
  std::deque<TypeFigures> types;
};

/// The categories in the order in which they are read.
std::deque<TypeFigures> typeFigures(Database& data);
/// The departments in their order, each with its categories if these are wanted.
std::deque<DepartmentFigures> departmentFigures(Database& data, bool withTypes);

/// The departments of the first level, in the order of their codes.
Recordset firstLevelDepartments(Database& data);
/// The categories of the first level.
Recordset firstLevelTypes(Database& data);

}  // namespace zelkor
