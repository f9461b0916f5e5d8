#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "startup/BusinessClass.h"

namespace zelkor {

/// Stands for the row id of a voucher type that is not stored yet.
inline constexpr std::int32_t kNewDsign = -1;

/// A voucher type without its row id.
struct DsignValues {
  std::string sign;
  std::int32_t sequence = 0;
  std::string name;
  int type = 0;  // limit kind, 0 to 4
};

/// The voucher types and the subjects that they are limited to. What fails is silent; the methods then return
/// false, 0, an empty text or a closed recordset.
class ClsBLLPZType : public BusinessClass {
 public:
  explicit ClsBLLPZType(DbEngine& engine) : BusinessClass(engine, "ClsBLLPZType.") {}

  /// All types in their order.
  Recordset GetAllDsign();
  /// Stores the type; a new one (kNewDsign) gets its row id into `I_ID`.
  bool UpdateDsign(std::int32_t& I_ID, const DsignValues& values);
  /// Row id of the type with that sign; 0 when there is none.
  std::int32_t GetDsignID(std::string_view sign);
  /// Replaces the subjects that the type is limited to.
  bool UpdateDsigns(std::string_view sign, const std::vector<std::string>& codes);
  /// Deletes the type with its subjects.
  bool DeleteDsign(std::int32_t I_ID);
  bool UpdateDsignSeq(std::int32_t I_ID, std::int32_t sequence);
  /// The subjects that the type is limited to, joined by commas.
  std::string GetDsignLimitCodes(std::string_view sign);

  // Archives of the suite, in tree order.
  Recordset GetAllCustomClass();
  Recordset GetAllDistrictClass();
  Recordset GetAllGradedef();
  Recordset GetAllVendorClass();
};

}  // namespace zelkor
