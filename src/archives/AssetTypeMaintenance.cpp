#include "archives/AssetTypeMaintenance.h"

#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

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

constexpr const char* kHighestID = "select Max(val(sID)) as iMax from fa_AssetTypes";

std::string assetTypeOf(std::string_view code) {
  return sql("select * from fa_AssetTypes where sNum='", code, "'");
}

std::string methodOf(std::string_view name) {
  return sql("select * from fa_Depreciations where sName='", name, "'");
}

std::string methodID(const Recordset& method) {
  return method.Eof() ? std::string() : method.TextOrEmpty("sID");
}

/// Counts a new category with the one above it; gives the parent's sID and sNum as they are in the INSERT.
std::string countWithParent(StatementGroup& group, const std::string& parentCode) {
  const Recordset parent = group.rowsOf(assetTypeOf(parentCode));
  if (parent.Eof()) {
    group.execute("update fa_AssetTypes set lChilds=lChilds+1 where sNum='&'");
    return "1,NULL";
  }
  const std::string parentNum = parent.TextOrEmpty("sNum");
  std::string values = sql("'", parent.TextOrEmpty("sID"), "','", parentNum, "'");
  group.execute(sql("update fa_AssetTypes set lChilds=lChilds+1 where sNum='", parentNum, "'"));
  return values;
}

void insertAssetType(StatementGroup& group, const AssetTypeEntry& entry, int level) {
  const std::string parentCode = joinedParts(entry.parts, static_cast<std::size_t>(level - 1));
  group.foresee({methodOf(entry.methodName), kHighestID, assetTypeOf(parentCode)});
  const std::string method = methodID(group.rowsOf(methodOf(entry.methodName)));
  const std::string typeID = sql(group.rowsOf(kHighestID).Fields("iMax").numberOrZero() + 1);
  const std::string parentValues = countWithParent(group, parentCode);
  const auto& parts = entry.parts;
  group.execute(
      sql("insert into fa_AssetTypes (sNum,sName,iLife,dblBVRate,sUnit,iDeprType,"
          "sDeprMethodNum,sModelID,sNum1,sNum2,sNum3,sNum4,iLevel,lChilds,sID,sParentID,"
          "sParentNum,iDefineType) values ('",
          entry.code(), "','", entry.name, "',", lifeInMonths(entry), ",", residualRate(entry), ",",
          unitOrNull(entry), ",", entry.depreciationRule, ",'", method, "','1','", parts[0], "','", parts[1],
          "','", parts[2], "','", parts[3], "',", level, ",0,'", typeID, "',", parentValues, ",1)"));
}

}  // namespace

std::string AssetTypeEntry::code() const {
  return joinedParts(parts, parts.size());
}

AssetTypeSaved updateAssetType(Database& database, const AssetTypeEntry& entry, std::string_view oldCode) {
  const std::string code = entry.code();
  const std::string other =
      sql("select * from fa_AssetTypes where sNum='", code, "' and sNum<>'", oldCode, "'");
  StatementGroup group(database);
  group.foresee({other, methodOf(entry.methodName)});
  if (!group.rowsOf(other).Eof()) return AssetTypeSaved::CodeTaken;
  database.Execute(sql("update fa_AssetTypes set sNum='", code, "',sName='", entry.name,
                       "',iLife=", lifeInMonths(entry), ",dblBVRate=", residualRate(entry),
                       ",sUnit=", unitOrNull(entry), ",iDeprType=", entry.depreciationRule,
                       ",sDeprMethodNum='", methodID(group.rowsOf(methodOf(entry.methodName))),
                       "',sModelID='1'", " where sNum='", oldCode, "'"));
  return AssetTypeSaved::Stored;
}

void addAssetType(Database& database, const AssetTypeEntry& entry, int level) {
  StatementGroup group(database);
  group.runAll([&] { insertAssetType(group, entry, level); });
}

void deleteAssetType(Database& database, std::string_view code) {
  StatementGroup group(database);
  group.foresee({assetTypeOf(code)});
  group.execute(sql("update fa_AssetTypes set lChilds=lChilds-1 where sID='",
                    group.rowsOf(assetTypeOf(code)).TextOrEmpty("sParentID"), "'"));
  group.execute(sql("delete from fa_AssetTypes where sNum='", code, "'"));
  group.run();
}

std::string depreciationMethodID(Database& database, std::string_view name) {
  return methodID(database.OpenRecordset(methodOf(name)));
}

}  // namespace zelkor
