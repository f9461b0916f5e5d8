#include "reports/ConditionTexts.h"

#include <algorithm>

#include "base/Format.h"
#include "reports/ConditionPages.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

[[noreturn]] void refuse(const std::string& text) {
  throw ConditionRefused(text);
}

constexpr std::string_view kCompositionNames[] = {"first", "detail"};
constexpr std::string_view kLayoutNames[] = {"both", "department", "category"};

/// Sets conditions one by one, by the keys of one report.
class ConditionSetter {
 public:
  ConditionSetter(RunContext& run, const ReportKind& kind)
      : run_(run), kind_(kind), asked_(conditionsOf(kind.page)), conditions_(run.gdOpDate.year()) {}

  void set(std::string_view key, const std::string& value) {
    for (const Setter& setter : setters()) {
      if (setter.key != key) continue;
      if (setter.offered) return (this->*setter.assign)(value);
      if (month_) return;
    }
    refuse("报表“" + std::string(kind_.name) + "”没有条件“" + std::string(key) + "”，只有：" + keys());
  }

  /// From here on all periods are one, and a condition of another report is passed over.
  void setMonth(const std::string& value) {
    choose(conditions_.months, value);
    for (auto& [page, periods] : conditions_.periods) periods = {value, value};
    month_ = true;
  }

  std::string keys() const {
    std::string list;
    for (const Setter& setter : setters()) {
      if (setter.offered || month_) list += (list.empty() ? "" : "、") + std::string(setter.key);
    }
    return list;
  }

  ReportConditions conditions() const {
    ReportConditions all = conditions_;
    all.departmentRange.keepOrder();
    return all;
  }

 private:
  struct Setter {
    std::string_view key;
    bool offered;
    void (ConditionSetter::*assign)(const std::string& value);
  };

  std::vector<Setter> setters() const {
    const bool levels = asked_.levels != nullptr;
    const bool statistics = kind_.page == ConditionPage::Statistics;
    return {{"period", true, &ConditionSetter::setPeriod},
            {"period-to", asked_.range, &ConditionSetter::setPeriodTo},
            {"department", asked_.department, &ConditionSetter::setDepartment},
            {"category", asked_.type, &ConditionSetter::setType},
            {"from-level", levels, &ConditionSetter::setFromLevel},
            {"to-level", levels, &ConditionSetter::setToLevel},
            {"composition", kind_.page == ConditionPage::Composition, &ConditionSetter::setComposition},
            {"layout", statistics, &ConditionSetter::setLayout},
            {"department-level", statistics, &ConditionSetter::setDepartmentLevel},
            {"category-level", statistics, &ConditionSetter::setTypeLevel}};
  }

  template <typename Values>
  static std::size_t choose(const Values& offered, const std::string& value) {
    const auto found = std::ranges::find(offered, value);
    if (found != std::end(offered)) return static_cast<std::size_t>(found - std::begin(offered));
    std::string list;
    for (const auto& one : offered) list += (list.empty() ? "" : "、") + std::string(one);
    refuse("没有“" + value + "”，只有：" + list);
  }

  template <typename Values>
  static void setListed(std::string& condition, const Values& offered, const std::string& value) {
    choose(offered, value);
    condition = value;
  }

  void setPeriod(const std::string& value) {
    if (month_) return setMonth(value);
    setListed(conditions_.periods[kind_.page].from, conditions_.months, value);
  }
  void setPeriodTo(const std::string& value) {
    choose(conditions_.months, value);
    for (auto& [page, periods] : conditions_.periods) {
      if (month_ || page == kind_.page) periods.to = value;
    }
  }
  void setDepartment(const std::string& code) {
    conditions_.department = chosenEntry(code, nameOf("fa_Departments", code, "部门"));
  }
  void setType(const std::string& code) {
    conditions_.type = chosenEntry(code, nameOf("fa_AssetTypes", code, "类别"));
  }
  void setFromLevel(const std::string& value) {
    setListed((conditions_.*asked_.levels).from, kOfferedLevels, value);
  }
  void setToLevel(const std::string& value) {
    setListed((conditions_.*asked_.levels).to, kOfferedLevels, value);
  }
  void setComposition(const std::string& value) {
    conditions_.compositionLevel = static_cast<CompositionLevel>(choose(kCompositionNames, value));
  }
  void setLayout(const std::string& value) {
    conditions_.statisticsLayout = static_cast<StatisticsLayout>(choose(kLayoutNames, value));
  }
  void setDepartmentLevel(const std::string& value) {
    setListed(conditions_.departmentLevel, kOfferedDepartmentLevels, value);
  }
  void setTypeLevel(const std::string& value) { setListed(conditions_.typeLevel, kOfferedTypeLevels, value); }

  std::string nameOf(std::string_view table, const std::string& code, std::string_view what) {
    const Recordset entry =
        run_.dbZKData.OpenRecordset(sql("select sName from ", table, " where sNum='", code, "'"));
    if (entry.Eof()) refuse("没有" + std::string(what) + "“" + code + "”");
    return entry.TextOrEmpty("sName");
  }

  RunContext& run_;
  const ReportKind& kind_;
  const PageConditions& asked_;
  ReportConditions conditions_;
  bool month_ = false;
};

void setAll(ConditionSetter& setter, const std::vector<std::string>& assignments) {
  for (const std::string& assignment : assignments) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) refuse("条件“" + assignment + "”不是 条件=值 的形式");
    setter.set(std::string_view(assignment).substr(0, equals), assignment.substr(equals + 1));
  }
}

}  // namespace

ReportConditions readConditions(RunContext& run, const ReportKind& kind,
                                const std::vector<std::string>& assignments) {
  ConditionSetter setter(run, kind);
  setAll(setter, assignments);
  return setter.conditions();
}

std::vector<std::string> conditionTexts(const ReportKind& kind, const ReportConditions& conditions) {
  const PageConditions& asked = conditionsOf(kind.page);
  std::vector<std::string> texts;
  const auto add = [&texts](bool offered, std::string_view key, std::string_view value) {
    if (offered && !value.empty()) texts.push_back(std::string(key) + "=" + std::string(value));
  };
  const auto periods = conditions.periods.find(kind.page);
  if (periods != conditions.periods.end()) {
    add(true, "period", periods->second.from);
    add(asked.range, "period-to", periods->second.to);
  }
  add(asked.department, "department", conditions.department.code);
  add(asked.type, "category", conditions.type.code);
  if (asked.levels != nullptr) {
    add(true, "from-level", (conditions.*asked.levels).from);
    add(true, "to-level", (conditions.*asked.levels).to);
  }
  add(kind.page == ConditionPage::Composition, "composition",
      kCompositionNames[static_cast<std::size_t>(conditions.compositionLevel)]);
  const bool statistics = kind.page == ConditionPage::Statistics;
  add(statistics, "layout", kLayoutNames[static_cast<std::size_t>(conditions.statisticsLayout)]);
  add(statistics, "department-level", conditions.departmentLevel);
  add(statistics, "category-level", conditions.typeLevel);
  return texts;
}

ReportConditions readMonthConditions(RunContext& run, const ReportKind& kind,
                                     const std::vector<std::string>& assignments) {
  ConditionSetter setter(run, kind);
  setter.setMonth(Format(run.gdOpDate, "yyyy.mm"));
  setAll(setter, assignments);
  return setter.conditions();
}

}  // namespace zelkor
