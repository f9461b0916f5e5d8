#include "reports/ReportCatalogue.h"

#include <algorithm>

#include "reports/ReportRoutines.h"

namespace zelkor {
namespace {

constexpr ReportKind kKinds[] = {
    {"N21", "部门构成分析表", ConditionPage::Composition, BuildDeptComposition},
    {"N22", "固定资产使用状况分析表", ConditionPage::SinglePeriod, BuildStatusAnalysis},
    {"N23", "价值结构分析表", ConditionPage::SinglePeriod, BuildValueStructure},
    {"N24", "类别构成分析表", ConditionPage::SinglePeriod, BuildTypeComposition},
    {"N31", "(固定资产原值)一览表", ConditionPage::DepartmentRange, BuildValueOverview},
    {"N32", "固定资产统计表", ConditionPage::Statistics, BuildAssetStatistics},
    {"N33", "盘盈盘亏报告表", ConditionPage::Inventory, nullptr},
    {"N34", "评估变动表", ConditionPage::Revaluation, nullptr},
    {"N35", "评估汇总表", ConditionPage::RevaluationSummary, nullptr},
    {"N36", "役龄资产统计表", ConditionPage::InService, nullptr},
    {"N37", "逾龄资产统计表", ConditionPage::SinglePeriod, nullptr},
    {"N41", "(部门、类别)明细账", ConditionPage::LineLedgers, BuildDeptTypeLedger},
    {"N42", "(单个)固定资产明细账", ConditionPage::CardLedger, BuildCardLedger},
    {"N43", "固定资产登记簿", ConditionPage::LineLedgers, BuildRegisterBook},
    {"N44", "固定资产总账", ConditionPage::GeneralLedger, BuildGeneralLedger},
    {"N51", "(部门)折旧计提汇总表", ConditionPage::DepartmentRange, BuildDeprSummary},
    {"N52", "固定资产及累计折旧表(一)", ConditionPage::DepartmentRange, BuildAssetDeprTable1},
    {"N53", "固定资产及累计折旧表(二)", ConditionPage::AssetDeprTable2, BuildAssetDeprTable2},
    {"N54", "固定资产折旧计算明细表", ConditionPage::DeprDetail, BuildDeprDetail},
    {"N55", "固定资产折旧期间统计表", ConditionPage::DeprPeriods, nullptr},
};

}  // namespace

std::span<const ReportKind> reportKinds() {
  return kKinds;
}

std::span<const ReportKind> reportsOf(std::string_view key) {
  const auto inFolder = [key](const ReportKind& kind) {
    return kind.folder() == key.substr(0, kFolderKeyLength);
  };
  const auto* first = std::ranges::find_if(kKinds, inFolder);
  return {first, std::find_if_not(first, std::end(kKinds), inFolder)};
}

const ReportKind* findReport(std::string_view name) {
  const auto* found = std::ranges::find(kKinds, name, &ReportKind::name);
  return found == std::end(kKinds) ? nullptr : found;
}

}  // namespace zelkor
