#pragma once

#include <array>
#include <string>
#include <string_view>

#include "base/TextGrid.h"
#include "store/engine/Database.h"

namespace zelkor {

/// The list beside the tree of categories, under one header row: the first level for the root ("&"),
/// otherwise the category with all below it. `deprStates` are the captions of the depreciation rules, at 1
/// to 3.
TextGrid assetTypeList(Database& database, std::string_view selectedCode,
                       const std::array<std::string, 4>& deprStates);

}  // namespace zelkor
