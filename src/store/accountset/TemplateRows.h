#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zelkor {

/// Rows for one table, as text; nullopt is Null.
struct TemplateRows {
  std::string table;
  std::vector<std::string> columns;
  std::vector<std::vector<std::optional<std::string>>> rows;
};

/// Reads rows from tab-separated text: a line "@table", a line with the columns, a line per row; \N is Null.
/// Empty lines and lines that begin with # do not count. Raises std::logic_error for a line that fits
/// nowhere.
std::vector<TemplateRows> readTemplateRows(std::string_view text);

}  // namespace zelkor
