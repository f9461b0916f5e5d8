#include <algorithm>

#include "archives/ClsBLLAssentTypes.h"
#include "archives/LevelTree.h"
#include "base/Conversion.h"
#include "depreciation/DepreciationList.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

constexpr const char* kTopDeparts = "SELECT * From fa_Departments  Where iLevel=1 ORDER BY sNum";
constexpr const char* kRootKey = "R";
constexpr const char* kRootCode = "&";
constexpr const char* kLoginMark = "(登陆)";

TreeRow nodeOf(const std::string& code, const std::string& name, std::string parentKey) {
  return {"D" + code, std::move(parentKey), "(" + code + ")" + name, code};
}

void addDeparts(LevelTree& tree, std::size_t above, Recordset& departs) {
  for (; !departs.Eof(); departs.MoveNext()) {
    const std::string code = departs.TextOrEmpty("sNum");
    if (code != kRootCode) tree.add(above, nodeOf(code, departs.TextOrEmpty("sName"), tree[above].key));
  }
}

/// What is below all departments of a level is asked for together.
void loadSubDeparts(Database& data, LevelTree& tree) {
  int level = 1;
  for (auto parents = tree.newPlaces(); !parents.empty(); parents = tree.newPlaces()) {
    ++level;
    StatementGroup group(data);
    for (const std::size_t parent : parents)
      group.open(sql("SELECT * From fa_Departments  Where iLevel=", level, " And sNum Like '",
                     tree[parent].tag, "*' ORDER BY sNum"),
                 [&tree, parent](Recordset& departs) { addDeparts(tree, parent, departs); });
    group.run();
  }
}

}  // namespace

Foresight foreseeDepreciationList(RunContext& run) {
  return {run.dbZKData, {kTopDeparts, "fa_Cards", "fa_DeprTransactions", "fa_workload"}};
}

std::vector<std::string> depreciationListPeriods(RunContext& run) {
  std::vector<std::string> items;
  Recordset periods = run.dbZKSystem.OpenRecordset(
      sql("select iyear,iId from ZA_Period where  cAcc_id = '", run.gstrAccountId, "'"));
  for (; !periods.Eof(); periods.MoveNext()) {
    const Value year = periods.Fields("iyear");
    const Value period = periods.Fields("iId");
    const bool login = year.numberOrZero() == run.gdOpDate.year() && period.numberOrZero() == run.period();
    items.push_back(year.textOrEmpty() + "." + period.textOrEmpty() + (login ? kLoginMark : ""));
  }
  items.emplace_back("全年");
  return items;
}

std::size_t loginPeriodIndex(const std::vector<std::string>& periods) {
  const auto found =
      std::ranges::find_if(periods, [](const auto& item) { return item.ends_with(kLoginMark); });
  return found == periods.end() ? 0 : static_cast<std::size_t>(found - periods.begin());
}

std::vector<TreeRow> depreciationListDepartments(RunContext& run) {
  LevelTree tree;
  tree.add({}, {kRootKey, "", "固定资产部门编码目录", ""});
  Recordset departs = run.dbZKData.OpenRecordset(kTopDeparts);
  addDeparts(tree, tree.newPlaces().front(), departs);
  loadSubDeparts(run.dbZKData, tree);
  return tree.rows();
}

std::vector<TreeRow> depreciationListAssetTypes(RunContext& run) {
  std::vector<TreeRow> nodes{{kRootKey, "", "固定资产分类编码表", ""}};
  ClsBLLAssentTypes assetTypes(run.engine);
  assetTypes.setZkDataPath(run.gstrZtFile);
  Recordset rows = assetTypes.GetAssentTypes();
  for (; rows.isOpen() && !rows.Eof(); rows.MoveNext()) {
    const std::string code = rows.TextOrEmpty("sNum");
    if (code == kRootCode) continue;
    const std::string parent = rows.TextOrEmpty("sParentNum");
    nodes.push_back(nodeOf(code, rows.TextOrEmpty("sName"), parent.empty() ? kRootKey : "D" + parent));
  }
  assetTypes.CloseZkData();
  return nodes;
}

}  // namespace zelkor
