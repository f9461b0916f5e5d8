#include "archives/ClsBLLAssentTypes.h"

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {

namespace {

std::string typeStatement(std::string_view typeCode) {
  return sql("Select * From FA_AssetTypes Where sNum='", typeCode, "'");
}

std::string_view otherTypesStatement(ArchiveKind kind) {
  switch (kind) {
    case ArchiveKind::Departments:
      return "Select sName,sNum,sNum as sID,sParentNum as sParentID From FA_Departments Order by sNum";
    case ArchiveKind::Origins:
      return "Select *,sID,sID As sNum From FA_Origins Where iType=-1 Or iType=1 Order by sID ";
    case ArchiveKind::Statuses:
      return "Select *,sID As sNum,sID From FA_Status Order by sID ";
    case ArchiveKind::Methods:
      return "Select sName,sID,sID As sNum,'' As sParentID From FA_Depreciations Order by sID";
    case ArchiveKind::AssetTypes:
      break;
  }
  return {};
}

}  // namespace

std::string ClsBLLAssentTypes::GetDeprMethodID(std::string_view typeCode) {
  return firstText("GetDeprMethodID", typeStatement(typeCode), "sDeprMethodNum");
}

std::int32_t ClsBLLAssentTypes::GetAssetLift(std::string_view typeCode) {
  return attempt("GetAssetLift", std::int32_t{0}, [&] {
    const Recordset rows = zkData().OpenRecordset(typeStatement(typeCode));
    return rows.Eof() ? 0 : CLng(rows.Fields("iLife").numberOrZero());
  });
}

std::string ClsBLLAssentTypes::GetAssetTypeName(std::string_view typeCode) {
  return firstText("GetAssetTypeName", typeStatement(typeCode), "sName");
}

Recordset ClsBLLAssentTypes::GetAssetInfo(std::string_view criteria) {
  return query("GetAssetInfo", sql("Select * From FA_AssetTypes Where ", criteria));
}

Recordset ClsBLLAssentTypes::GetAssentTypes() {
  return query("GetAssentTypes", "Select * From FA_AssetTypes Order by val(sID)");
}

Recordset ClsBLLAssentTypes::GetOtherTypes(ArchiveKind kind) {
  const std::string_view statement = otherTypesStatement(kind);
  return statement.empty() ? Recordset() : query("GetOtherTypes", statement);
}

}  // namespace zelkor
