#include "archives/AssetTypeTree.h"

#include <algorithm>

#include "archives/LevelTree.h"
#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "startup/Logs.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

constexpr int kMonthsPerYear = 12;

void addTypes(LevelTree& tree, LevelTree::Place above, Recordset& types) {
  for (; !types.Eof(); types.MoveNext()) {
    const std::string code = types.TextOrEmpty("sNum");
    const std::string parentKey = above ? tree[*above].key : "";
    tree.add(above, {"D" + code, parentKey, "(" + code + ")" + types.TextOrEmpty("sName"), code});
  }
}

void LoadAllClass(Database& database, LevelTree& tree) {
  try {
    StatementGroup group(database);
    std::size_t rootPlace = 0;
    group.open("select * from fa_AssetTypes where sNum='&'", [&](const Recordset& root) {
      tree.add({},
               {std::string(kAssetTypeRootKey), "", root.Eof() ? std::string() : root.TextOrEmpty("sName")});
      rootPlace = tree.newPlaces().front();  // what is below it is asked for here, also where that fails
    });
    group.open("select * from fa_AssetTypes where iLevel=1",
               [&](Recordset& types) { addTypes(tree, rootPlace, types); });
    group.run();
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "LoadAllClass");
  }
}

/// What is below all categories of a level is asked for together.
void LoadSubClass(Database& database, LevelTree& tree) {
  for (int level = 2; level <= static_cast<int>(kAssetTypeLevels); ++level) {
    const std::vector<std::size_t> parents = tree.newPlaces();
    std::vector<std::string> statements;
    for (const std::size_t place : parents) {
      statements.push_back(
          sql("select * from fa_AssetTypes where iLevel=", level, " and sNum like '", tree[place].tag, "*'"));
    }
    askEach(
        database, statements, [&](std::size_t i, Recordset& types) { addTypes(tree, parents[i], types); },
        [](const RuntimeError& error) { WriteErrorLog(error.number(), error.what(), "LoadSubClass"); });
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
  LevelTree tree;
  LoadAllClass(database, tree);
  LoadSubClass(database, tree);
  return tree.rows();
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
