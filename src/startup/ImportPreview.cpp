#include "startup/ImportPreview.h"

#include <algorithm>

#include "base/RuntimeError.h"
#include "base/Text.h"

namespace zelkor {

CsvRecord previewHeader(TableRows& rows, const std::vector<std::string_view>& needed,
                        ImportPreview& preview) try {
  auto header = rows.next();
  if (!header) throw RuntimeError(ErrorNumber::DataTypeConversion, "文件是空的：没有表头");
  for (std::string& caption : header->fields) caption = Trim(caption);
  for (const std::string_view caption : needed)
    if (std::ranges::find(header->fields, caption) == header->fields.end())
      preview.missing.emplace_back(caption);
  return std::move(*header);
} catch (const CsvError& error) {
  throw RuntimeError(ErrorNumber::DataTypeConversion, error.what());
}

std::optional<CsvRecord> previewNext(TableRows& rows, ImportPreview& preview) {
  while (true) {
    try {
      auto row = rows.next();
      if (!row) return row;
      ++preview.rows;
      if (preview.firstRows.size() < ImportPreview::kFirstRows) preview.firstRows.push_back(*row);
      return row;
    } catch (const CsvError& error) {
      ++preview.rows;
      addBadRow(preview, {{0, {}, error.what()}});
    }
  }
}

void addBadRow(ImportPreview& preview, const std::vector<ImportPreview::Problem>& problems) {
  ++preview.badRows;
  for (const ImportPreview::Problem& problem : problems)
    if (preview.problems.size() < ImportPreview::kMostProblems) preview.problems.push_back(problem);
}

}  // namespace zelkor
