#include "store/accountset/TemplateRows.h"

#include <algorithm>
#include <stdexcept>

namespace zelkor {
namespace {

std::vector<std::string_view> cut(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  for (;;) {
    const std::size_t end = std::min(text.find(separator), text.size());
    parts.push_back(text.substr(0, end));
    if (end == text.size()) return parts;
    text.remove_prefix(end + 1);
  }
}

void addRow(TemplateRows& rows, std::string_view line) {
  std::vector<std::optional<std::string>> cells;
  for (const std::string_view cell : cut(line, '\t'))
    cells.push_back(cell == "\\N" ? std::nullopt : std::optional<std::string>(cell));
  if (cells.size() != rows.columns.size())
    throw std::logic_error("template rows of " + rows.table + ": wrong number of cells in \"" +
                           std::string(line) + "\"");
  rows.rows.push_back(std::move(cells));
}

}  // namespace

std::vector<TemplateRows> readTemplateRows(std::string_view text) {
  std::vector<TemplateRows> tables;
  for (const std::string_view line : cut(text, '\n')) {
    if (line.empty() || line.front() == '#') continue;
    if (line.front() == '@') {
      tables.push_back({std::string(line.substr(1)), {}, {}});
    } else if (tables.empty()) {
      throw std::logic_error("template rows: no table for \"" + std::string(line) + "\"");
    } else if (tables.back().columns.empty()) {
      for (const std::string_view column : cut(line, '\t')) tables.back().columns.emplace_back(column);
    } else {
      addRow(tables.back(), line);
    }
  }
  return tables;
}

}  // namespace zelkor
