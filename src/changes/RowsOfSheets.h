#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/CsvTable.h"
#include "changes/SheetRow.h"

namespace zelkor {

/// The columns of a table of changes, by number and by caption.
namespace sheet_column {
enum : std::size_t { Kind, CardNum, After, SiteAfter, Reason };
}
inline constexpr std::array<std::string_view, 5> kSheetCaptions = {"变动类型", "卡片编号", "变动后内容",
                                                                   "变动后地点", "变动原因"};
inline constexpr std::array<std::string_view, 1> kOptionalSheetCaptions = {"变动后地点"};

/// A row of the table, or what is wrong with the line.
struct ReadRow {
  std::size_t line = 0;  // of the file, from 1; 0 where the problem names the place
  std::optional<SheetRow> row;
  std::string problem;
};

/// The rows of such a table, several at once where they can be saved together.
class RowsOfSheets {
 public:
  using CanGoWithOthers = std::function<bool(const SheetRow& row)>;

  /// `rows` must outlive the object. Errors as CsvTable.
  RowsOfSheets(TableRows& rows, CanGoWithOthers canGoWithOthers);

  /// One row, or some of different cards that can go with others; nothing at the end.
  std::vector<ReadRow> next();

 private:
  std::optional<ReadRow> read();

  CsvTable table_;
  CanGoWithOthers canGoWithOthers_;
  std::optional<ReadRow> ahead_;
};

}  // namespace zelkor
