#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/TextGrid.h"
#include "base/TreeRow.h"
#include "startup/RunContext.h"
#include "store/engine/Foresight.h"

namespace zelkor {

/// Has what the screen begins with read together, where each would be a wait, until the result goes.
[[nodiscard]] Foresight foreseeDepreciationList(RunContext& run);
/// Items of the period combo: the account set's periods, the operating date's marked "(登陆)", and "全年".
std::vector<std::string> depreciationListPeriods(RunContext& run);
/// Index of the operating date's period in `periods`; 0 when it is not among them.
std::size_t loginPeriodIndex(const std::vector<std::string>& periods);

/// The list's trees below their roots; tags are the codes of departments and categories.
std::vector<TreeRow> depreciationListDepartments(RunContext& run);
std::vector<TreeRow> depreciationListAssetTypes(RunContext& run);

/// What the monthly runs stored, for every card's newest version, in the open month. Like the lists below it
/// leaves the versions in the working table `yxkp`. The last row adds up the amounts.
TextGrid depreciationList(RunContext& run);

/// The same for a period, by its combo item: the cards that were entered in that month. A department (empty:
/// none chosen) does not restrict the cards; it brings in its own workload. "全年" names no month and lists
/// nothing.
TextGrid depreciationListByDepartment(RunContext& run, std::string_view periodItem,
                                      std::string_view department);

/// The same for a category and all below it; empty: for all.
TextGrid depreciationListByAssetType(RunContext& run, std::string_view periodItem,
                                     std::string_view assetType);

}  // namespace zelkor
