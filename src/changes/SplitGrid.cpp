#include "changes/SplitGrid.h"

#include <array>

#include "base/Conversion.h"

namespace zelkor {
namespace {

constexpr std::array kWidths = {650, 2700, 1300, 3000, 1100, 2900};  // twips

}  // namespace

std::string codeAndName(const std::string& code, const std::string& name) {
  return code.empty() ? std::string() : code + "," + name;
}

std::vector<std::string> splitCells(std::size_t number, const SplitRow& row) {
  return {std::to_string(number),
          codeAndName(row.departCode, row.departName),
          row.scale,
          row.subject,
          row.itemClass,
          row.project};
}

TextGrid splitGrid(const std::vector<SplitRow>& rows) {
  TextGrid grid;
  grid.setHeader("序号|使用部门|使用比例(%)|对应折旧科目|项目大类|对应项目");
  for (std::size_t i = 0; i < kWidths.size(); ++i) grid.setColumnWidth(i, kWidths[i]);
  grid.setAlignment(split_column::Number, Align::Center);
  grid.setAlignment(split_column::Scale, Align::Right);
  for (std::size_t i = 0; i < rows.size(); ++i) grid.addRow(splitCells(i + 1, rows[i]));
  return grid;
}

std::string splitTotalText(const std::vector<SplitRow>& rows) {
  double total = 0;
  for (const SplitRow& row : rows) total += Val(row.scale);
  return "比例合计：" + textOfDouble(total) + "%";
}

}  // namespace zelkor
