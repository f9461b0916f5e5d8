#pragma once

#include <string>

#include "base/DateTime.h"
#include "base/TextGrid.h"
#include "store/engine/Database.h"

namespace zelkor {

enum class AllocationMode { Department = 1, AssetType = 2 };

/// The depreciation of the last run by department (or asset type) and subject, with a total row. Number in
/// column 0, name in 1, subject number and name in 4 and 5, amount in 6; columns 2 and 3 stay free for
/// projects and are hidden.
TextGrid allocationTable(Database& data, AllocationMode mode);

/// The one item of the period combo: the operating date's month.
std::string allocationPeriod(DateTime opDate);

}  // namespace zelkor
