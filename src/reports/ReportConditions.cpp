#include "reports/ReportConditions.h"

#include <utility>
#include <vector>

#include "base/Format.h"
#include "reports/ConditionPages.h"
#include "store/engine/Statement.h"

namespace zelkor {

ChosenEntry chosenEntry(std::string code, const std::string& name) {
  return {std::move(code), name.substr(name.find(' ') + 1)};
}

void LevelRange::keepOrder() {
  if (from > to) from = to;
}

std::string LevelRange::captioned(std::string_view caption) const {
  return std::string(caption) + from + "---" + to;
}

ReportConditions::ReportConditions(int year) {
  for (std::size_t i = 0; i < months.size(); ++i) {
    months[i] = sql(year, ".", Format(static_cast<std::int32_t>(i + 1), "00"));
  }
  for (std::size_t page = 0; page < kConditionPages.size(); ++page) {
    periods[static_cast<ConditionPage>(page)] = {months.front(), months.front()};
  }
}

const std::string& periodInList(const ReportConditions& conditions, std::size_t list) {
  std::vector<const std::string*> lists;
  for (const auto& [page, periods] : conditions.periods) {
    lists.push_back(&periods.from);
    if (conditionsOf(page).range) lists.push_back(&periods.to);
  }
  return *lists.at(list);
}

}  // namespace zelkor
