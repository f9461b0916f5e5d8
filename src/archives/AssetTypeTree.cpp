#include "archives/AssetTypeTree.h"

#include <algorithm>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "startup/Logs.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr int kMonthsPerYear = 12;

/// Adds the categories of a recordset below `parentKey`; each one's code is handed on for the level below.
template <typename Deeper>
void loadTypes(Recordset types, const std::string& parentKey, std::vector<TreeRow>& tree, Deeper deeper) {
  for (; !types.Eof(); types.MoveNext()) {
    const std::string code = types.TextOrEmpty("sNum");
    tree.push_back({"D" + code, parentKey, "(" + code + ")" + types.TextOrEmpty("sName"), code});
    deeper(code);
  }
}

void LoadSubClass(Database& database, const std::string& parentCode, int level, std::vector<TreeRow>& tree) {
  try {
    const std::string statement =
        sql("select * from fa_AssetTypes where iLevel=", level, " and sNum like '", parentCode, "*'");
    loadTypes(database.OpenRecordset(statement), "D" + parentCode, tree, [&](const std::string& code) {
      if (level < static_cast<int>(kAssetTypeLevels)) LoadSubClass(database, code, level + 1, tree);
    });
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "LoadSubClass");
  }
}

void LoadAllClass(Database& database, std::vector<TreeRow>& tree) {
  try {
    const Recordset root = database.OpenRecordset("select * from fa_AssetTypes where sNum='&'");
    const std::string rootKey(kAssetTypeRootKey);
    tree.push_back({rootKey, "", root.Eof() ? std::string() : root.TextOrEmpty("sName")});
    loadTypes(database.OpenRecordset("select * from fa_AssetTypes where iLevel=1"), rootKey, tree,
              [&](const std::string& code) { LoadSubClass(database, code, 2, tree); });
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "LoadAllClass");
  }
}

/// The code cut where the parts above its level end; the rest is the level's own. A code that was changed has
/// left its stored parts as they were.
AssetTypeCodeParts partsOf(const std::string& code, int level, const AssetTypeCodeParts& stored) {
  AssetTypeCodeParts parts;
  std::string rest = code;
  const auto own = static_cast<std::size_t>(std::clamp<int>(level, 1, kAssetTypeLevels) - 1);
  for (std::size_t i = 0; i < own; ++i) {
    parts[i] = Left(rest, Len(stored[i]));
    rest = Mid(rest, Len(stored[i]) + 1);
  }
  parts[own] = rest;
  return parts;
}

std::string methodName(Database& database, const std::string& id) {
  const Recordset method = database.OpenRecordset(sql("select * from fa_Depreciations where sID='", id, "'"));
  return method.Eof() ? std::string() : method.TextOrEmpty("sName");
}

}  // namespace

std::vector<TreeRow> assetTypeTree(Database& database) {
  std::vector<TreeRow> tree;
  LoadAllClass(database, tree);
  return tree;
}

std::vector<TreeRow> depreciationMethodTree(Database& database) {
  const std::string rootKey(kAssetTypeRootKey);
  std::vector<TreeRow> tree{{rootKey, "", "折旧方法"}};
  Recordset methods = database.OpenRecordset("select * from fa_Depreciations order by sID");
  for (; !methods.Eof(); methods.MoveNext()) {
    const std::string id = methods.TextOrEmpty("sID");
    tree.push_back({"D" + id, rootKey, methods.TextOrEmpty("sName"), id});
  }
  return tree;
}

std::optional<AssetTypeDetail> readAssetType(Database& database, std::string_view code) {
  const Recordset row = database.OpenRecordset(sql("select * from fa_AssetTypes where sNum='", code, "'"));
  if (row.Eof()) return std::nullopt;
  AssetTypeDetail detail;
  detail.code = row.TextOrEmpty("sNum");
  detail.level = CInt(row.Fields("iLevel").numberOrZero());
  detail.children = CLng(row.Fields("lChilds").numberOrZero());
  AssetTypeEntry& entry = detail.entry;
  entry.parts = partsOf(detail.code, detail.level,
                        {row.TextOrEmpty("sNum1"), row.TextOrEmpty("sNum2"), row.TextOrEmpty("sNum3")});
  entry.name = row.TextOrEmpty("sName");
  entry.lifeYears = textOfDouble(row.Fields("iLife").numberOrZero() / kMonthsPerYear);
  entry.residualRatePercent = textOfDouble(row.Fields("dblBVRate").numberOrZero() * 100);
  entry.unit = row.TextOrEmpty("sUnit");
  entry.depreciationRule = CInt(row.Fields("iDeprType").numberOrZero());
  entry.methodName = methodName(database, row.TextOrEmpty("sDeprMethodNum"));
  return detail;
}

}  // namespace zelkor
