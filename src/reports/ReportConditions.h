#pragma once

#include <array>
#include <string>
#include <string_view>

namespace zelkor {

/// An entry of an archive as the condition dialog keeps it; both empty when nothing was picked.
struct PickedEntry {
  std::string code;
  std::string name;
};

enum class CompositionLevel { First, Detail };
enum class StatisticsLayout { ByDepartmentAndType, ByDepartment, ByType };

/// What the condition dialog holds when it is confirmed, with the dialog's own numbering of its controls:
/// reports read fields of other pages than their own.
struct ReportConditions {
  /// What the dialog shows when it opens, in a run of that year.
  explicit ReportConditions(int year);

  /// A pick on any page is written to the pages that share it.
  void pickDepartment(const PickedEntry& picked);
  void pickType(const PickedEntry& picked);
  /// "<caption><from>---<to>" of two levels.
  std::string levelRange(std::string_view caption, std::size_t from, std::size_t to) const;

  std::array<std::string, 12> months;   // what each period list offers: "2020.01", ...
  std::array<std::string, 21> periods;  // Combo1: the chosen one of each list
  std::array<std::string, 6> levels;    // Combo2: "1" or "2"
  CompositionLevel compositionLevel = CompositionLevel::First;                // Option1, Option2
  StatisticsLayout statisticsLayout = StatisticsLayout::ByDepartmentAndType;  // Option3
  std::string departmentLevel = "第 1 级";                                    // ComboBMJC
  std::string typeLevel = "第 1 级";                                          // ComboLBJC
  std::array<PickedEntry, 5> departments;                                     // LblBMMC
  std::array<PickedEntry, 6> types;                                           // LblLBMC
};

}  // namespace zelkor
