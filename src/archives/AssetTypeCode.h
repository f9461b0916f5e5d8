#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "store/engine/Database.h"

namespace zelkor {

inline constexpr std::size_t kAssetTypeLevels = 4;

/// A category's code cut into the parts of its levels; the parts of deeper levels are empty.
using AssetTypeCodeParts = std::array<std::string, kAssetTypeLevels>;

/// The coding rule of the categories: how many characters each level's part has. A level without characters
/// ends the tree.
struct AssetTypeCodingRule {
  std::array<int, kAssetTypeLevels> lengths{};

  /// Deepest level that can hold a category, from 1; 0 when none can.
  int deepestLevel() const;
};

AssetTypeCodingRule readAssetTypeCodingRule(Database& database);

/// The category that is selected when a new one is begun. A root or no selection has level 0 and no code.
struct AssetTypeParent {
  std::string code;
  AssetTypeCodeParts parts;
  int level = 0;
};

struct NewAssetTypeCode {
  AssetTypeCodeParts parts;  // the parent's, then the proposal
  int level = 1;
  AssetTypeCodingRule rule;  // its lengths are the most that may be typed into each part
};

/// Proposes the code of a new category below `parent`: the highest part among its siblings plus 1. A level
/// that is full starts again from 0 without a word.
NewAssetTypeCode proposeAssetTypeCode(Database& database, const AssetTypeParent& parent);

/// Name of the main depreciation method among the account set's parameters; empty when there is none.
std::string mainDepreciationMethodName(Database& database);

}  // namespace zelkor
