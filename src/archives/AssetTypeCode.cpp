#include "archives/AssetTypeCode.h"

#include "base/Format.h"
#include "base/RuntimeError.h"
#include "store/engine/Statement.h"

namespace zelkor {

namespace {

/// The part that follows the highest code of the level below the parent, cut to its last `length` characters.
std::string nextPart(Database& database, std::string_view parentCode, int level, std::size_t length) {
  const Recordset highest =
      database.OpenRecordset(sql("select Max(val(sNum)) as iMaxBM from fa_AssetTypes where iLevel=", level,
                                 " and sNum like '", parentCode, "*'"));
  const std::string next = Format(highest.Fields("iMaxBM").numberOrZero() + 1, "0000000000");
  return next.substr(next.size() - length);
}

}  // namespace

int AssetTypeCodingRule::deepestLevel() const {
  int level = 0;
  for (const int length : lengths) {
    if (length == 0) break;
    ++level;
  }
  return level;
}

AssetTypeCodingRule readAssetTypeCodingRule(Database& database) {
  AssetTypeCodingRule rule;
  const Recordset row =
      database.OpenRecordset("select * from AccInformation where cSysID ='FA' And cName ='sTypeNumType'");
  if (row.Eof()) return rule;
  const std::string digits = row.TextOrEmpty("cValue");
  for (std::size_t i = 0; i < kAssetTypeLevels && i < digits.size(); ++i) {
    rule.lengths[i] = static_cast<int>(Val(digits.substr(i, 1)));
  }
  return rule;
}

NewAssetTypeCode proposeAssetTypeCode(Database& database, const AssetTypeParent& parent) {
  NewAssetTypeCode proposal;
  proposal.rule = readAssetTypeCodingRule(database);
  proposal.level = parent.level + 1;
  const auto above = static_cast<std::size_t>(parent.level);
  if (above >= kAssetTypeLevels) throw RuntimeError(ErrorNumber::SubscriptOutOfRange);
  for (std::size_t i = 0; i < above; ++i) proposal.parts[i] = parent.parts[i];
  const auto length = static_cast<std::size_t>(proposal.rule.lengths[above]);
  proposal.parts[above] = nextPart(database, parent.code, proposal.level, length);
  return proposal;
}

std::string mainDepreciationMethodName(Database& database) {
  const Recordset parameter =
      database.OpenRecordset("select * from AccInformation where cSysID ='FA' And cName ='sDeprMethodNum'");
  if (parameter.Eof()) return {};
  const Recordset method = database.OpenRecordset(
      sql("select * from fa_Depreciations where sID='", parameter.TextOrEmpty("cValue"), "'"));
  return method.Eof() ? std::string() : method.TextOrEmpty("sName");
}

}  // namespace zelkor
