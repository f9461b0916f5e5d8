#pragma once

#include <array>
#include <span>
#include <string_view>

#include "reports/ReportConditions.h"

namespace zelkor {

struct RunContext;
struct ReportView;

/// What computes a report: reads the conditions, fills the view.
using ReportRoutine = void (*)(RunContext& run, const ReportConditions& conditions, ReportView& view);

inline constexpr std::size_t kFolderKeyLength = 2;

/// A kind of report, told from the others by its name.
struct ReportKind {
  std::string_view key;  // in the catalogue's tree: the folder's key and the report's number
  std::string_view name;
  ConditionPage page;
  ReportRoutine build;  // none for a kind that nothing computes

  std::string_view folder() const { return key.substr(0, kFolderKeyLength); }
};

struct ReportFolder {
  std::string_view key;
  std::string_view name;
};

inline constexpr std::string_view kCatalogueRootKey = "Nroot";
inline constexpr std::string_view kCatalogueRootName = "账簿";

inline constexpr std::array<ReportFolder, 5> kReportFolders{
    {{"N1", "自定义账夹"}, {"N2", "分析表"}, {"N3", "统计表"}, {"N4", "账簿"}, {"N5", "折旧表"}}};

/// All kinds, folder by folder.
std::span<const ReportKind> reportKinds();
/// The kinds in the folder of that key, or in the folder of the report of that key.
std::span<const ReportKind> reportsOf(std::string_view key);
/// The kind of that name; none for another text, a folder's name among them.
const ReportKind* findReport(std::string_view name);

}  // namespace zelkor
