#include "reports/CardLines.h"

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {

void setLedgerCaptions(ReportView& view, const ReportConditions& conditions) {
  const auto& [from, to] = conditions.periods.at(ConditionPage::GeneralLedger);
  view.periodListVisible = false;
  view.periodCaption = "期间：" + from + " --- " + to;
  view.conditionLines[0].text = "资产类别：" + conditions.type.name;
  view.conditionLines[1].text = "使用部门：" + conditions.department.name;
}

AssetSet chosenAssets(const ReportConditions& conditions) {
  return {conditions.department.code, conditions.type.code};
}

std::string assetCondition(const AssetSet& assets) {
  const auto& [department, type] = assets;
  std::string condition;
  if (!type.empty()) condition = sql("sTypeNum like '", type, "*'");
  if (!condition.empty() && !department.empty()) condition += " and ";
  if (!department.empty()) condition += sql("sDeptNum like '", department, "*'");
  return condition;
}

std::string cardLinesQuery(std::string_view columns, const AssetSet& assets) {
  const std::string condition = assetCondition(assets);
  if (condition.empty()) {
    return sql(columns, " From fa_Cards a, fa_DeprTransactions b where a.iOptType<>6 and ",
               "iOptType<>7 and a.sCardNum=b.sCardNum ");
  }
  return sql(columns, " From fa_Cards a, fa_DeprTransactions b where a.sCardNum=b.sCardNum and ", condition);
}

int kindOf(const Recordset& card) {
  const Value kind = card.Fields("iOptType");
  return kind.isNull() ? 0 : CInt(kind);
}

std::string_view digestOf(int iOptType) {
  switch (iOptType) {
    case 1:
      return "录入原始卡片";
    case 2:
      return "新增固定资产";
    case 4:
      return "原值增加";
    case 6:
      return "部门转出";
    case 7:
      return "部门转入";
    default:
      return {};
  }
}

}  // namespace zelkor
