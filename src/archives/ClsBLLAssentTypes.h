#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "startup/BusinessClass.h"

namespace zelkor {

/// The archives that the selection dialogs offer, with the numbers that their callers use.
enum class ArchiveKind : int { AssetTypes = 1, Departments = 2, Origins = 3, Statuses = 4, Methods = 5 };

/// Reads the asset categories. Recordsets that could not be opened come back closed.
class ClsBLLAssentTypes : public BusinessClass {
 public:
  explicit ClsBLLAssentTypes(DbEngine& engine) : BusinessClass(engine, "ClsBLLAssentTypes.") {}

  using BusinessClass::ExecuteQuery;

  /// Depreciation method of the category, by its sID; empty when there is none.
  std::string GetDeprMethodID(std::string_view typeCode);
  /// Useful life of the category in months; 0 when there is none.
  std::int32_t GetAssetLift(std::string_view typeCode);
  std::string GetAssetTypeName(std::string_view typeCode);
  /// Categories that meet `criteria`, a condition of the dialect.
  Recordset GetAssetInfo(std::string_view criteria);
  Recordset GetAssentTypes();
  /// Entries of another archive, each with sName, sNum, sID and sParentID where it has them.
  Recordset GetOtherTypes(ArchiveKind kind);
};

}  // namespace zelkor
