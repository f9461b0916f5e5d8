#include "reports/ReportConditions.h"

#include "base/Format.h"
#include "store/engine/Statement.h"

namespace zelkor {

ReportConditions::ReportConditions(int year) {
  for (std::size_t i = 0; i < months.size(); ++i) {
    months[i] = sql(year, ".", Format(static_cast<std::int32_t>(i + 1), "00"));
  }
  periods.fill(months.front());
  levels.fill("1");
}

void ReportConditions::chooseLevel(std::size_t list, const std::string& level) {
  levels[list] = level;
  if (levels[0] > levels[1]) levels[0] = levels[1];
}

void ReportConditions::pickDepartment(const ChosenEntry& picked) {
  for (std::size_t i = 1; i < departments.size(); ++i) departments[i] = picked;
}

void ReportConditions::pickType(const ChosenEntry& picked) {
  types[2] = picked;
  types[3] = picked;
  types[4].name = picked.name;  // a caption only
  types[5] = picked;
}

std::string ReportConditions::levelRange(std::string_view caption, std::size_t from, std::size_t to) const {
  return std::string(caption) + levels[from] + "---" + levels[to];
}

}  // namespace zelkor
