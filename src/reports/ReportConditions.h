#pragma once

#include <array>
#include <string>
#include <string_view>

namespace zelkor {

/// An entry of an archive as the condition dialog keeps it; both empty when nothing was picked.
struct ChosenEntry {
  std::string code;
  std::string name;
};

enum class CompositionLevel { First, Detail };
enum class StatisticsLayout { ByDepartmentAndType, ByDepartment, ByType };

/// What ComboBMJC and ComboLBJC offer.
inline constexpr std::array<std::string_view, 3> departmentLevels{"第 1 级", "第 2 级", "明细级"};
inline constexpr std::array<std::string_view, 5> typeLevels{"第 1 级", "第 2 级", "第 3 级", "第 4 级",
                                                            "明细级"};

/// What the condition dialog holds when it is confirmed, with the dialog's own numbering of its controls:
/// reports read fields of other pages than their own.
struct ReportConditions {
  /// What the dialog shows when it opens, in a run of that year.
  explicit ReportConditions(int year);

  /// A choice in one of the level lists (Combo2). The first list never stays above the second.
  void chooseLevel(std::size_t list, const std::string& level);
  /// A pick on any page is written to the pages that share it.
  void pickDepartment(const ChosenEntry& picked);
  void pickType(const ChosenEntry& picked);
  /// "<caption><from>---<to>" of two levels.
  std::string levelRange(std::string_view caption, std::size_t from, std::size_t to) const;

  std::array<std::string, 12> months;   // what each period list offers: "2020.01", ...
  std::array<std::string, 21> periods;  // Combo1: the chosen one of each list
  std::array<std::string, 6> levels;    // Combo2: "1" or "2"
  CompositionLevel compositionLevel = CompositionLevel::First;                // Option1, Option2
  StatisticsLayout statisticsLayout = StatisticsLayout::ByDepartmentAndType;  // Option3
  std::string departmentLevel = "第 1 级";                                    // ComboBMJC
  std::string typeLevel = "第 1 级";                                          // ComboLBJC
  std::array<ChosenEntry, 5> departments;                                     // LblBMMC
  std::array<ChosenEntry, 6> types;                                           // LblLBMC
};

}  // namespace zelkor
