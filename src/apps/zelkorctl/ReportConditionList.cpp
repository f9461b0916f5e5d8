#include "apps/zelkorctl/ReportConditionList.h"

#include <algorithm>

#include "reports/ConditionPages.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

[[noreturn]] void refuse(const std::string& text) {
  throw ConditionRefused(text);
}

/// Sets conditions one by one, by the keys of one report.
class ConditionSetter {
 public:
  ConditionSetter(RunContext& run, const ReportKind& kind)
      : run_(run),
        kind_(kind),
        page_(conditionPages[static_cast<std::size_t>(kind.page)]),
        conditions_(run.gdOpDate.year()) {}

  void set(std::string_view key, const std::string& value) {
    for (const Setter& setter : setters()) {
      if (setter.key == key && setter.offered) return (this->*setter.assign)(value);
    }
    refuse("报表“" + std::string(kind_.name) + "”没有条件“" + std::string(key) + "”，只有：" + keys());
  }

  std::string keys() const {
    std::string list;
    for (const Setter& setter : setters()) {
      if (setter.offered) list += (list.empty() ? "" : "、") + std::string(setter.key);
    }
    return list;
  }

  const ReportConditions& conditions() const { return conditions_; }

 private:
  struct Setter {
    std::string_view key;
    bool offered;
    void (ConditionSetter::*assign)(const std::string& value);
  };

  std::vector<Setter> setters() const {
    const bool statistics = kind_.page == statisticsPage;
    return {{"period", true, &ConditionSetter::setPeriod},
            {"period-to", page_.periodTo.has_value(), &ConditionSetter::setPeriodTo},
            {"department", page_.department, &ConditionSetter::setDepartment},
            {"category", page_.type, &ConditionSetter::setType},
            {"from-level", page_.level.has_value(), &ConditionSetter::setFromLevel},
            {"to-level", page_.level.has_value(), &ConditionSetter::setToLevel},
            {"composition", kind_.page == compositionPage, &ConditionSetter::setComposition},
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

  void setPeriod(const std::string& value) {
    conditions_.periods[page_.period] = conditions_.months[choose(conditions_.months, value)];
  }
  void setPeriodTo(const std::string& value) {
    conditions_.periods[*page_.periodTo] = conditions_.months[choose(conditions_.months, value)];
  }
  void setDepartment(const std::string& code) {
    conditions_.pickDepartment({code, nameOf("fa_Departments", code, "部门")});
  }
  void setType(const std::string& code) {
    conditions_.pickType({code, nameOf("fa_AssetTypes", code, "类别")});
  }
  void setFromLevel(const std::string& value) { setLevel(*page_.level, value); }
  void setToLevel(const std::string& value) { setLevel(*page_.level + 1, value); }
  void setComposition(const std::string& value) {
    static constexpr std::string_view kNames[] = {"first", "detail"};
    conditions_.compositionLevel = static_cast<CompositionLevel>(choose(kNames, value));
  }
  void setLayout(const std::string& value) {
    static constexpr std::string_view kNames[] = {"both", "department", "category"};
    conditions_.statisticsLayout = static_cast<StatisticsLayout>(choose(kNames, value));
  }
  void setDepartmentLevel(const std::string& value) {
    conditions_.departmentLevel = departmentLevels[choose(departmentLevels, value)];
  }
  void setTypeLevel(const std::string& value) {
    conditions_.typeLevel = typeLevels[choose(typeLevels, value)];
  }

  void setLevel(std::size_t list, const std::string& value) {
    static constexpr std::string_view kLevels[] = {"1", "2"};
    choose(kLevels, value);
    conditions_.chooseLevel(list, value);
  }

  std::string nameOf(std::string_view table, const std::string& code, std::string_view what) {
    const Recordset entry =
        run_.dbZKData.OpenRecordset(sql("select sName from ", table, " where sNum='", code, "'"));
    if (entry.Eof()) refuse("没有" + std::string(what) + "“" + code + "”");
    return entry.TextOrEmpty("sName");
  }

  RunContext& run_;
  const ReportKind& kind_;
  const ConditionPage& page_;
  ReportConditions conditions_;
};

}  // namespace

ReportConditions readConditions(RunContext& run, const ReportKind& kind,
                                std::vector<std::string> assignments) {
  // The end of a range of levels first: its beginning cannot be set above it.
  std::stable_partition(assignments.begin(), assignments.end(),
                        [](const std::string& text) { return text.starts_with("to-level="); });
  ConditionSetter setter(run, kind);
  for (const std::string& assignment : assignments) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos) refuse("条件“" + assignment + "”不是 条件=值 的形式");
    setter.set(std::string_view(assignment).substr(0, equals), assignment.substr(equals + 1));
  }
  return setter.conditions();
}

}  // namespace zelkor
