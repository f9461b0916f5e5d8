#include "base/CsvTable.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

[[noreturn]] void refuse(const std::string& reason) {
  throw RuntimeError(ErrorNumber::DataTypeConversion, reason);
}

/// The place of a caption in the header row; nothing where it is not there.
std::optional<std::size_t> placeOf(std::string_view caption, const std::vector<std::string>& header) {
  const auto isIt = [caption](const std::string& cell) { return Trim(cell) == caption; };
  const auto place = std::ranges::find_if(header, isIt);
  if (place == header.end()) return std::nullopt;
  if (std::ranges::count_if(header, isIt) > 1) refuse("表头中列“" + std::string(caption) + "”出现了不止一次");
  return static_cast<std::size_t>(place - header.begin());
}

}  // namespace

CsvTable::CsvTable(TableRows& rows, std::span<const std::string_view> captions,
                   std::span<const std::string_view> optional) try
    : rows_(rows) {
  const auto header = rows.next();
  if (!header) refuse("文件是空的：没有表头");
  width_ = header->fields.size();
  for (const std::string_view caption : captions) {
    places_.push_back(placeOf(caption, header->fields));
    if (!places_.back() && std::ranges::find(optional, caption) == optional.end()) {
      refuse("表头中列“" + std::string(caption) + "”缺少");
    }
  }
} catch (const CsvError& error) {
  refuse(error.what());
}

std::optional<CsvTableRow> CsvTable::next() try {
  const auto record = rows_.next();
  if (!record) return std::nullopt;
  if (record->fields.size() != width_) {
    throw CsvRowError(record->line, "有" + std::to_string(record->fields.size()) + "列，表头有" +
                                        std::to_string(width_) + "列");
  }
  CsvTableRow row{record->line, {}};
  for (const auto& place : places_) row.cells.push_back(place ? Trim(record->fields[*place]) : std::string());
  return row;
} catch (const CsvError& error) {
  throw CsvRowError(0, error.what());
}

std::vector<CsvTableRow> readCsvTable(TableRows& rows, std::span<const std::string_view> captions) try {
  CsvTable table(rows, captions);
  std::vector<CsvTableRow> all;
  while (auto row = table.next()) all.push_back(std::move(*row));
  return all;
} catch (const CsvRowError& error) {
  refuse((error.line() > 0 ? "第" + std::to_string(error.line()) + "行" : "") + error.what());
}

std::vector<CsvTableRow> readCsvTable(std::string_view csv, std::span<const std::string_view> captions) {
  requireUtf8(csv);
  CsvReader reader{std::string(csv)};
  return readCsvTable(reader, captions);
}

std::string csvCellText(std::size_t line, std::string_view column, const std::string& text) {
  return "第" + std::to_string(line) + "行，列“" + std::string(column) + "”：" + text;
}

std::optional<std::string> quoteProblem(std::string_view cell) {
  if (cell.find('\'') == std::string_view::npos) return std::nullopt;
  return "值中有单引号（'），会打断保存的语句";
}

void requireUtf8(std::string_view csv) {
  for (std::size_t line = 1; !csv.empty(); ++line) {
    const std::size_t end = std::min(csv.find('\n'), csv.size() - 1) + 1;
    if (!isValidUtf8(csv.substr(0, end)))
      refuse("文件不是 UTF-8 编码（第" + std::to_string(line) +
             "行）：请在电子表格中另存为“CSV UTF-8（逗号分隔）”");
    csv.remove_prefix(end);
  }
}

}  // namespace zelkor
