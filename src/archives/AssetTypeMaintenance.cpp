#include "archives/AssetTypeMaintenance.h"

#include "store/engine/Statement.h"

namespace zelkor {

namespace {

constexpr int kDefaultLifeMonths = 60;

std::string lifeInMonths(const AssetTypeEntry& entry) {
  return entry.lifeYears.empty() ? sql(kDefaultLifeMonths) : sql(Val(entry.lifeYears) * 12);
}

std::string residualRate(const AssetTypeEntry& entry) {
  return entry.residualRatePercent.empty() ? "0" : sql(Val(entry.residualRatePercent) / 100);
}

std::string unitOrNull(const AssetTypeEntry& entry) {
  return entry.unit.empty() ? "Null" : sql("'", entry.unit, "'");
}

std::string joinedParts(const AssetTypeCodeParts& parts, std::size_t count) {
  std::string code;
  for (std::size_t i = 0; i < count; ++i) code += parts[i];
  return code;
}

std::string nextAssetTypeID(Database& database) {
  const Recordset highest = database.OpenRecordset("select Max(val(sID)) as iMax from fa_AssetTypes");
  return sql(highest.Fields("iMax").numberOrZero() + 1);
}

/// Counts a new category with the one above it; gives the parent's sID and sNum as they are in the INSERT.
std::string countWithParent(Database& database, std::string_view parentCode) {
  const Recordset parent =
      database.OpenRecordset(sql("select * from fa_AssetTypes where sNum='", parentCode, "'"));
  if (parent.Eof()) {
    database.Execute("update fa_AssetTypes set lChilds=lChilds+1 where sNum='&'");
    return "1,NULL";
  }
  const std::string parentNum = parent.TextOrEmpty("sNum");
  std::string values = sql("'", parent.TextOrEmpty("sID"), "','", parentNum, "'");
  database.Execute(sql("update fa_AssetTypes set lChilds=lChilds+1 where sNum='", parentNum, "'"));
  return values;
}

}  // namespace

std::string AssetTypeEntry::code() const {
  return joinedParts(parts, parts.size());
}

AssetTypeSaved updateAssetType(Database& database, const AssetTypeEntry& entry, std::string_view oldCode) {
  const std::string code = entry.code();
  const Recordset other = database.OpenRecordset(
      sql("select * from fa_AssetTypes where sNum='", code, "' and sNum<>'", oldCode, "'"));
  if (!other.Eof()) return AssetTypeSaved::CodeTaken;
  database.Execute(sql("update fa_AssetTypes set sNum='", code, "',sName='", entry.name,
                       "',iLife=", lifeInMonths(entry), ",dblBVRate=", residualRate(entry),
                       ",sUnit=", unitOrNull(entry), ",iDeprType=", entry.depreciationRule,
                       ",sDeprMethodNum='", depreciationMethodID(database, entry.methodName),
                       "',sModelID='1'", " where sNum='", oldCode, "'"));
  return AssetTypeSaved::Stored;
}

void addAssetType(Database& database, const AssetTypeEntry& entry, int level) {
  const std::string methodID = depreciationMethodID(database, entry.methodName);
  const std::string typeID = nextAssetTypeID(database);
  const std::string parentValues =
      countWithParent(database, joinedParts(entry.parts, static_cast<std::size_t>(level - 1)));
  const auto& parts = entry.parts;
  database.Execute(sql(
      "insert into fa_AssetTypes (sNum,sName,iLife,dblBVRate,sUnit,iDeprType,"
      "sDeprMethodNum,sModelID,sNum1,sNum2,sNum3,sNum4,iLevel,lChilds,sID,sParentID,"
      "sParentNum,iDefineType) values ('",
      entry.code(), "','", entry.name, "',", lifeInMonths(entry), ",", residualRate(entry), ",",
      unitOrNull(entry), ",", entry.depreciationRule, ",'", methodID, "','1','", parts[0], "','", parts[1],
      "','", parts[2], "','", parts[3], "',", level, ",0,'", typeID, "',", parentValues, ",1)"));
}

void deleteAssetType(Database& database, std::string_view code) {
  const Recordset row = database.OpenRecordset(sql("select * from fa_AssetTypes where sNum='", code, "'"));
  database.Execute(
      sql("update fa_AssetTypes set lChilds=lChilds-1 where sID='", row.TextOrEmpty("sParentID"), "'"));
  database.Execute(sql("delete from fa_AssetTypes where sNum='", code, "'"));
}

std::string depreciationMethodID(Database& database, std::string_view name) {
  const Recordset method =
      database.OpenRecordset(sql("select * from fa_Depreciations where sName='", name, "'"));
  return method.Eof() ? std::string() : method.TextOrEmpty("sID");
}

}  // namespace zelkor
