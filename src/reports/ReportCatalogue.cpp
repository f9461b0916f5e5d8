#include "reports/ReportCatalogue.h"

#include <algorithm>

#include "reports/ReportRoutines.h"

namespace zelkor {
namespace {

constexpr std::size_t kFolderKeyLength = 2;

constexpr ReportKind kKinds[] = {
    {"N21", "部门构成分析表", 0, 3900, 3840, BuildDeptComposition},
    {"N22", "固定资产使用状况分析表", 1, 2760, 5190, BuildStatusAnalysis},
    {"N23", "价值结构分析表", 1, 2760, 5190, BuildValueStructure},
    {"N24", "类别构成分析表", 1, 2760, 5190, BuildTypeComposition},
    {"N31", "(固定资产原值)一览表", 2, 3375, 5640, BuildValueOverview},
    {"N32", "固定资产统计表", 3, 4900, 5865, BuildAssetStatistics},
    {"N33", "盘盈盘亏报告表", 4, 3015, 5565, nullptr},
    {"N34", "评估变动表", 5, 3465, 6000, nullptr},
    {"N35", "评估汇总表", 6, 4095, 5685, nullptr},
    {"N36", "役龄资产统计表", 7, 3480, 5415, nullptr},
    {"N37", "逾龄资产统计表", 1, 2760, 5190, nullptr},
    {"N41", "(部门、类别)明细账", 10, 3360, 5415, BuildDeptTypeLedger},
    {"N42", "(单个)固定资产明细账", 9, 5145, 5520, BuildCardLedger},
    {"N43", "固定资产登记簿", 10, 3360, 5415, BuildRegisterBook},
    {"N44", "固定资产总账", 8, 3255, 5250, BuildGeneralLedger},
    {"N51", "(部门)折旧计提汇总表", 2, 3375, 5640, BuildDeprSummary},
    {"N52", "固定资产及累计折旧表(一)", 2, 3375, 5640, BuildAssetDeprTable1},
    {"N53", "固定资产及累计折旧表(二)", 11, 3255, 5250, BuildAssetDeprTable2},
    {"N54", "固定资产折旧计算明细表", 12, 3375, 5640, BuildDeprDetail},
    {"N55", "固定资产折旧期间统计表", 13, 3375, 5640, nullptr},
};

}  // namespace

std::span<const ReportKind> reportKinds() {
  return kKinds;
}

std::span<const ReportKind> reportsOf(std::string_view folderKey) {
  const auto inFolder = [folderKey](const ReportKind& kind) {
    return kind.key.substr(0, kFolderKeyLength) == folderKey;
  };
  const auto* first = std::ranges::find_if(kKinds, inFolder);
  return {first, std::find_if_not(first, std::end(kKinds), inFolder)};
}

const ReportKind* findReport(std::string_view name) {
  const auto* found = std::ranges::find(kKinds, name, &ReportKind::name);
  return found == std::end(kKinds) ? nullptr : found;
}

}  // namespace zelkor
