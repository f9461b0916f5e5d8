#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Csv.h"
#include "changes/SheetRow.h"
#include "startup/RunContext.h"

namespace zelkor {

/// How a row of a file of changes ended. Before: an earlier call has saved it.
enum class SheetEnd { Saved, Before, Refused };

/// What became of one row of a file of changes.
struct ImportedSheet {
  std::size_t line = 0;         // of the file, from 1; 0 where the text names the place
  std::optional<SheetRow> row;  // nothing where the line has other columns than the header
  SheetEnd end = SheetEnd::Refused;
  std::string text;  // number of the sheet, or why there is none
};

/// Saves each row of a table (变动类型, 卡片编号, 变动后内容, 变动后地点, 变动原因) as a change sheet, in
/// their order and by the checks of the screens, and calls `ended` for each, in that order, when it has ended
/// (beside a server transfers of different cards go out together: rows may have been read on by then); a
/// refused row does not stop the others. A question that a screen would ask counts as answered with yes.
/// Raises RuntimeError, with nothing saved, when the header lacks a needed column.
///
/// The log of operations keeps each row that was saved, in one transaction with its sheet. A file that was
/// cut short is given again as a whole: rows that the log has for the open month are not saved twice.
void importSheets(RunContext& context, TableRows& rows,
                  const std::function<void(const ImportedSheet&)>& ended);

/// The same up to each save: Saved says of a row that its screen would go on to write it.
void checkSheets(RunContext& context, TableRows& rows,
                 const std::function<void(const ImportedSheet&)>& ended);

/// The captions that such a table has to have.
std::vector<std::string_view> sheetCaptions();
/// What a column of that caption holds: "编码，必填"; empty for one that is not read.
std::string_view descriptionOfColumn(std::string_view caption);

}  // namespace zelkor
