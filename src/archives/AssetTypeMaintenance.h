#pragma once

#include <string>
#include <string_view>

#include "archives/AssetTypeCode.h"
#include "store/engine/Database.h"

namespace zelkor {

/// A category as the detail page holds it, numbers as typed.
struct AssetTypeEntry {
  AssetTypeCodeParts parts = {};
  std::string name = {};
  std::string lifeYears = {};            // blank: 60 months
  std::string residualRatePercent = {};  // blank: 0
  std::string unit = {};                 // blank: Null
  int depreciationRule = 1;              // 1 to 3, the place among the depreciation states
  std::string methodName = {};

  /// The parts of all levels joined.
  std::string code() const;
};

inline constexpr std::string_view kAssetTypeBoxTitle = "固定资产";
inline constexpr std::string_view kAssetTypeCodeTakenText =
    "已存在相同编码或名称\n请试着修改编码或名称后再保存。";
inline constexpr std::string_view kAssetTypeMethodUnknownText = "折旧方法名称错误！";
inline constexpr std::string_view kAssetTypeDeleteQuestion = "确定要删除当前所选记录吗?";
inline constexpr std::string_view kAssetTypeCancelQuestion = "是否取消本次操作?";

enum class AssetTypeSaved { Stored, CodeTaken };

/// Rewrites the category whose code was `oldCode`. The level, the parts of the code and the categories below
/// stay as they were, also when the code changes. CodeTaken: refused with kAssetTypeCodeTakenText.
AssetTypeSaved updateAssetType(Database& database, const AssetTypeEntry& entry, std::string_view oldCode);

/// Adds a category at `level`, counts it with its parent and numbers it after the highest sID. Without a
/// category that bears the code of the level above it hangs below the root.
void addAssetType(Database& database, const AssetTypeEntry& entry, int level);

/// Takes the category out of its parent's count and deletes it. Cards of the category are not looked for.
void deleteAssetType(Database& database, std::string_view code);

/// sID of the depreciation method with this name; empty when there is none, which the screen refuses with
/// kAssetTypeMethodUnknownText.
std::string depreciationMethodID(Database& database, std::string_view name);

}  // namespace zelkor
