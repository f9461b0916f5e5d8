#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archives/AssetTypeMaintenance.h"
#include "base/TreeRow.h"
#include "store/engine/Database.h"

namespace zelkor {

inline constexpr std::string_view kAssetTypeRootKey = "R";

/// The tree of categories: the root with key "R", every category with key "D" and its code, its code as tag.
/// A failure on the way ends the loading silently; what has been read is given.
std::vector<TreeRow> assetTypeTree(Database& database);

/// The tree of depreciation methods below a root "R", by sID and name, the sID as tag.
std::vector<TreeRow> depreciationMethodTree(Database& database);

/// A stored category as the detail page shows it.
struct AssetTypeDetail {
  AssetTypeEntry entry;
  std::string code;
  int level = 0;
  int children = 0;
};

/// Nothing when there is no category with this code.
std::optional<AssetTypeDetail> readAssetType(Database& database, std::string_view code);

}  // namespace zelkor
