#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

namespace zelkor {

/// The pages of the condition dialog in their order, each named after what uses it.
enum class ConditionPage : std::size_t {
  Composition,
  SinglePeriod,
  DepartmentRange,
  Statistics,
  Inventory,
  Revaluation,
  RevaluationSummary,
  InService,
  GeneralLedger,
  CardLedger,
  LineLedgers,
  AssetDeprTable2,
  DeprDetail,
  DeprPeriods,
};

/// What the dialog's controls of that page are numbered by.
constexpr std::size_t numberOf(ConditionPage page) {
  return static_cast<std::size_t>(page);
}

/// An entry of an archive as the condition dialog keeps it; both empty when nothing was picked.
struct ChosenEntry {
  std::string code;
  std::string name;
};

/// The entry of an archive that was picked by that name: what comes before the name's first blank is taken
/// for its code and left out.
ChosenEntry chosenEntry(std::string code, const std::string& name);

/// Texts of a page's period lists; of a single list both are the same.
struct PeriodRange {
  std::string from;
  std::string to;
};

/// Levels of departments or categories, "1" or "2".
struct LevelRange {
  std::string from = "1";
  std::string to = "1";

  /// Lowers `from` to `to` where it is above.
  void keepOrder();
  /// "<caption><from>---<to>".
  std::string captioned(std::string_view caption) const;
};

enum class CompositionLevel { First, Detail };
enum class StatisticsLayout { ByDepartmentAndType, ByDepartment, ByType };

/// What the lists of a range of levels, ComboBMJC and ComboLBJC offer.
inline constexpr std::array<std::string_view, 2> kOfferedLevels{"1", "2"};
inline constexpr std::array<std::string_view, 3> kOfferedDepartmentLevels{"第 1 级", "第 2 级", "明细级"};
inline constexpr std::array<std::string_view, 5> kOfferedTypeLevels{"第 1 级", "第 2 级", "第 3 级",
                                                                    "第 4 级", "明细级"};

/// What the condition dialog holds when it is confirmed: reports read conditions of other pages than their
/// own.
struct ReportConditions {
  /// What the dialog shows when it opens, in a run of that year.
  explicit ReportConditions(int year);

  std::array<std::string, 12> months;            // what each period list offers: "2020.01", ...
  std::map<ConditionPage, PeriodRange> periods;  // chosen on each page
  ChosenEntry department;                        // one for all pages
  ChosenEntry type;                              // likewise
  LevelRange departmentRange;                    // 汇总部门
  LevelRange typeRange;                          // 类别级次 of the page of DeprDetail
  LevelRange periodTypeRange;                    // 汇总类别 of the page of DeprPeriods
  CompositionLevel compositionLevel = CompositionLevel::First;
  StatisticsLayout statisticsLayout = StatisticsLayout::ByDepartmentAndType;
  std::string departmentLevel{kOfferedDepartmentLevels.front()};
  std::string typeLevel{kOfferedTypeLevels.front()};
};

}  // namespace zelkor
