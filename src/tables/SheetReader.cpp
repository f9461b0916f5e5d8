#include "tables/SheetReader.h"

#include <algorithm>
#include <charconv>

#include "base/Characters.h"
#include "tables/DamagedWorkbook.h"

namespace zelkor {
namespace {

constexpr std::size_t kRows = 1048576;

std::size_t numberOf(std::string_view text) {
  std::size_t number = 0;
  const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (failure != std::errc() || end != text.data() + text.size())
    refuseWorkbook("“" + std::string(text) + "”不是序号");
  return number;
}

void dropBlankEnd(std::vector<std::string>& cells) {
  const auto isBlank = [](const std::string& cell) {
    return cell.find_first_not_of(' ') == std::string::npos;
  };
  while (!cells.empty() && isBlank(cells.back())) cells.pop_back();
}

}  // namespace

SheetReader::SheetReader(const WorkbookArchive& archive, const WorkbookMap& map, const std::string& part)
    : map_(map),
      part_(archive.open(part)),
      pieces_([this](char* buffer, std::size_t size) { return part_.read(buffer, size); }, "sheetData",
              "row") {}

std::optional<WorkbookRow> SheetReader::next() {
  while (const auto piece = pieces_.next()) {
    if (!tree_.load_buffer(piece->data(), piece->size())) refuseWorkbook("有一行不是 XML");
    WorkbookRow row = rowOf(tree_.document_element());
    if (!row.cells.empty()) return row;
  }
  part_.finish();
  return std::nullopt;
}

WorkbookRow SheetReader::rowOf(pugi::xml_node row) {
  const std::string_view number = attributeOf(row, "r");
  WorkbookRow result{.number = number.empty() ? last_ + 1 : numberOf(number), .cells = {}, .problems = {}};
  if (result.number <= last_ || result.number > kRows) refuseWorkbook("行的次序不对");
  last_ = result.number;
  column_ = 0;
  for (const pugi::xml_node cell : row.children()) take(cell, result);
  dropBlankEnd(result.cells);
  if (!result.problems.empty())
    result.cells.resize(std::max(result.cells.size(), result.problems.back().column));
  return result;
}

void SheetReader::take(pugi::xml_node cell, WorkbookRow& row) {
  const std::string_view place = attributeOf(cell, "r");
  const auto column = place.empty() ? std::optional(column_) : columnOfCell(place);
  if (!column || *column < column_) refuseWorkbook("单元格的次序不对");
  column_ = *column + 1;
  std::string problem;
  std::string text = textOf(cell, problem);
  const bool isWritable = findUnwritable(text) == std::string::npos;
  if (!isWritable && problem.empty()) problem = "有不能用的字符";
  if (text.empty() && problem.empty()) return;
  row.cells.resize(*column);
  row.cells.push_back(isWritable ? std::move(text) : writable(text));
  if (!problem.empty()) row.problems.push_back({*column + 1, std::move(problem)});
}

std::string SheetReader::textOf(pugi::xml_node cell, std::string& problem) const {
  const std::string_view type = attributeOf(cell, "t");
  if (type == "inlineStr") return textOfString(childOf(cell, "is"));
  const std::string_view stored = childOf(cell, "v").text().get();
  if (stored.empty() && childOf(cell, "f")) problem = "公式还没有算出的值，请在电子表格中打开并保存一次";
  if (stored.empty()) return {};
  if (type == "s") {
    const std::size_t index = numberOf(stored);
    if (index >= map_.texts.size()) refuseWorkbook("缺少文字");
    return std::string(map_.texts[index]);
  }
  if (type == "e") problem = "单元格是错误值 " + std::string(stored);
  if (type == "str") return unescaped(std::string(stored));
  if (type == "d") return std::string(stored.substr(0, stored.find("T00:00")));
  return type.empty() || type == "n" ? textOfNumber(cell, stored) : std::string(stored);
}

std::string SheetReader::textOfNumber(pugi::xml_node cell, std::string_view stored) const {
  const std::string_view style = attributeOf(cell, "s");
  const std::size_t index = style.empty() ? 0 : numberOf(style);
  return numberText(stored, index < map_.styles.size() ? map_.styles[index] : NumberStyle{}, map_.from1904);
}

}  // namespace zelkor
