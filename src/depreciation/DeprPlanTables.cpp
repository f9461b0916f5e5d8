#include "base/Format.h"
#include "depreciation/DeprPlan.h"

namespace zelkor {
namespace {

constexpr int kAmountWidth = 1400;

/// A header of the captions, the months and their sum.
TextGrid monthGrid(const DeprPlan& plan, const std::vector<std::string>& captions) {
  const std::size_t columns = captions.size() + plan.months + 1;
  TextGrid grid(1, columns);
  grid.setHeaderRows(1);
  for (std::size_t i = 0; i < columns; ++i) {
    const bool amount = i >= captions.size();
    grid.setColumnWidth(i, amount ? kAmountWidth : i % 2 == 0 ? kDeprNumberWidth : kDeprNameWidth);
    if (amount) grid.setAlignment(i, Align::Right);
    if (!amount) grid.setText(0, i, captions[i]);
  }
  for (std::size_t month = 0; month < plan.months; ++month) {
    const DateTime day = DateAdd("m", static_cast<std::int64_t>(month), plan.month);
    grid.setText(0, captions.size() + month, Format(day, "yyyy.mm"));
  }
  grid.setText(0, columns - 1, "合计");
  return grid;
}

void addRow(TextGrid& grid, std::vector<std::string> cells, const Currency* amounts, std::size_t months) {
  cells.reserve(cells.size() + months + 1);
  Currency sum;
  for (std::size_t month = 0; month < months; ++month) {
    cells.push_back(Format(amounts[month], "0.00"));
    sum += amounts[month];
  }
  cells.push_back(Format(sum, "0.00"));
  grid.addRow(std::move(cells));
}

void addTotal(TextGrid& grid, const DeprPlan& plan, std::size_t captions) {
  std::vector<std::string> cells(captions);
  cells.front() = "合计";
  addRow(grid, std::move(cells), plan.totals.data(), plan.months);
  grid.setTotal(grid.rows() - 1);
}

}  // namespace

DeprTable planTable(const DeprPlan& plan, const std::string& of,
                    const std::vector<DeprGroup<MonthlyAmounts>>& groups) {
  TextGrid grid = monthGrid(plan, {of + "编号", of + "名称"});
  for (const auto& group : groups) addRow(grid, {group.number, group.name}, group.sums.data(), plan.months);
  addTotal(grid, plan, 2);
  return {"折旧计划（按" + of + "）", std::move(grid)};
}

std::vector<DeprTable> planTables(const DeprPlan& plan) {
  std::vector<DeprTable> tables;
  tables.push_back(planTable(plan, "部门", plan.departments));
  tables.push_back(planTable(plan, "类别", plan.categories));
  tables.push_back(planTable(plan, "科目", plan.subjects));
  return tables;
}

DeprTable planCardTable(const DeprPlan& plan) {
  const std::vector<std::string> captions = {"卡片编号", "固定资产名称", "部门编号", "部门名称",
                                             "类别编号", "类别名称",     "科目编号", "科目名称"};
  TextGrid grid = monthGrid(plan, captions);
  for (std::size_t i = 0; i < plan.cards.size(); ++i) {
    const PlannedCard& card = plan.cards[i];
    const DeprPlace& place = card.place;
    addRow(grid,
           {card.number, card.assetName, place.department, place.departmentName, place.category,
            place.categoryName, place.subject, place.subjectName},
           plan.amounts.data() + i * plan.months, plan.months);
  }
  addTotal(grid, plan, captions.size());
  return {"折旧计划（按卡片）", std::move(grid)};
}

}  // namespace zelkor
