#include "base/Format.h"
#include "depreciation/RunPreview.h"
#include "depreciation/StagedDepr.h"

namespace zelkor {
namespace {

constexpr int kAmountWidth = 1600;
constexpr int kReasonWidth = 6000;
constexpr std::size_t kBefore = 2;  // in the table of a group
constexpr std::size_t kDifference = 4;

std::string amountText(Currency amount) {
  return Format(amount, "0.00");
}

std::vector<std::string> amountCells(const TwoMonths& amounts) {
  return {amountText(amounts.before), amountText(amounts.now), amountText(amounts.now - amounts.before)};
}

std::vector<std::string> cellsOf(const std::string& number, const std::string& name,
                                 const TwoMonths& amounts) {
  std::vector<std::string> cells{number, name};
  for (std::string& cell : amountCells(amounts)) cells.push_back(std::move(cell));
  return cells;
}

DeprTable groupTable(const std::string& of, const std::vector<DeprGroup<TwoMonths>>& groups, bool compared) {
  const std::string numberCaption = of + "编号";
  const std::string nameCaption = of + "名称";
  TextGrid grid = deprGrid({{numberCaption, kDeprNumberWidth},
                            {nameCaption, kDeprNameWidth},
                            {"上月", kAmountWidth, true},
                            {"本月", kAmountWidth, true},
                            {"差额", kAmountWidth, true}});
  TwoMonths total;
  for (const DeprGroup<TwoMonths>& group : groups) {
    grid.addRow(cellsOf(group.number, group.name, group.sums));
    total.before += group.sums.before;
    total.now += group.sums.now;
  }
  grid.setTotal(grid.addRow(cellsOf("合计", "", total)));
  for (const std::size_t column : {kBefore, kDifference}) grid.setColumnHidden(column, !compared);
  return {"按" + of, std::move(grid)};
}

DeprTable entryTable(const RunPreview& preview) {
  TextGrid grid = deprGrid({{"行号", 800},
                            {"摘要", kDeprNameWidth},
                            {"科目编号", kDeprNumberWidth},
                            {"科目名称", kDeprNameWidth},
                            {"部门编号", kDeprNumberWidth},
                            {"部门名称", kDeprNameWidth},
                            {"借方", kAmountWidth, true},
                            {"贷方", kAmountWidth, true}});
  for (const PreviewedEntry& entry : preview.entries) {
    const DeprPlace& place = entry.place;
    grid.addRow({std::to_string(entry.line), stagedDeprDigest(preview.month.month()), place.subject,
                 place.subjectName, place.department, place.departmentName, Format(entry.debit, "0.00"),
                 amountText(entry.credit)});
  }
  return {"待制单分录", std::move(grid)};
}

DeprTable changeTable(const std::vector<PreviewedChange>& changes) {
  TextGrid grid = deprGrid({{"卡片编号", kDeprNumberWidth},
                            {"固定资产名称", kDeprNameWidth},
                            {"部门", kDeprNameWidth},
                            {"类别", kDeprNameWidth},
                            {"科目", kDeprNameWidth},
                            {"上月", kAmountWidth, true},
                            {"本月", kAmountWidth, true},
                            {"差额", kAmountWidth, true},
                            {"原因", kReasonWidth}});
  const auto coded = [](const std::string& number, const std::string& name) {
    return number + (number.empty() || name.empty() ? "" : " ") + name;
  };
  TwoMonths total;
  for (const PreviewedChange& change : changes) {
    const DeprPlace& place = change.place;
    std::vector<std::string> cells{
        change.number, change.assetName, coded(place.department, place.departmentName),
        coded(place.category, place.categoryName), coded(place.subject, place.subjectName)};
    for (std::string& cell : amountCells(change.amounts)) cells.push_back(std::move(cell));
    cells.push_back(change.reason);
    grid.addRow(std::move(cells));
    total.before += change.amounts.before;
    total.now += change.amounts.now;
  }
  std::vector<std::string> cells{"合计", "", "", "", ""};
  for (std::string& cell : amountCells(total)) cells.push_back(std::move(cell));
  grid.setTotal(grid.addRow(std::move(cells)));
  return {"与上月不同的卡片", std::move(grid)};
}

}  // namespace

std::vector<DeprTable> previewTables(const RunPreview& preview) {
  std::vector<DeprTable> tables;
  tables.push_back(groupTable("部门", preview.departments, preview.compared));
  tables.push_back(groupTable("科目", preview.subjects, preview.compared));
  tables.push_back(groupTable("类别", preview.categories, preview.compared));
  tables.push_back(entryTable(preview));
  if (preview.compared) tables.push_back(changeTable(preview.changes));
  return tables;
}

}  // namespace zelkor
