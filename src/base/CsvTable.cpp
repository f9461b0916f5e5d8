#include "base/CsvTable.h"

#include <algorithm>

#include "base/Csv.h"
#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {
namespace {

[[noreturn]] void refuse(const std::string& reason) {
  throw RuntimeError(ErrorNumber::DataTypeConversion, reason);
}

/// The place of each caption in the header row.
std::vector<std::size_t> placesOf(std::span<const std::string_view> captions,
                                  const std::vector<std::string>& header) {
  std::vector<std::size_t> places;
  for (const std::string_view caption : captions) {
    const auto isIt = [caption](const std::string& cell) { return Trim(cell) == caption; };
    const auto count = std::ranges::count_if(header, isIt);
    if (count != 1) {
      refuse("表头中列“" + std::string(caption) + (count == 0 ? "”缺少" : "”出现了不止一次"));
    }
    places.push_back(static_cast<std::size_t>(std::ranges::find_if(header, isIt) - header.begin()));
  }
  return places;
}

CsvTableRow readRow(const CsvRecord& record, std::span<const std::size_t> places, std::size_t width) {
  if (record.fields.size() != width) {
    refuse("第" + std::to_string(record.line) + "行有" + std::to_string(record.fields.size()) + "列，表头有" +
           std::to_string(width) + "列");
  }
  CsvTableRow row{record.line, {}};
  for (const std::size_t place : places) row.cells.push_back(Trim(record.fields[place]));
  return row;
}

}  // namespace

std::vector<CsvTableRow> readCsvTable(const std::string& csv, std::span<const std::string_view> captions) {
  requireUtf8(csv);
  try {
    CsvReader reader(csv);
    const auto header = reader.next();
    if (!header) refuse("文件是空的：没有表头");
    const std::vector<std::size_t> places = placesOf(captions, header->fields);
    std::vector<CsvTableRow> rows;
    while (const auto record = reader.next()) rows.push_back(readRow(*record, places, header->fields.size()));
    return rows;
  } catch (const CsvError& error) {
    refuse(error.what());
  }
}

void requireUtf8(std::string_view csv) {
  for (std::size_t line = 1; !csv.empty(); ++line) {
    const std::size_t end = std::min(csv.find('\n'), csv.size() - 1) + 1;
    if (!isValidUtf8(csv.substr(0, end))) refuse("文件不是 UTF-8 编码（第" + std::to_string(line) + "行）");
    csv.remove_prefix(end);
  }
}

}  // namespace zelkor
