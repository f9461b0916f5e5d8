#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

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

/// Saves each row of a CSV text (变动类型, 卡片编号, 变动后内容, 变动后地点, 变动原因) as a change sheet, in
/// their order and by the checks of the screens, and calls `ended` after each; a refused row does not stop
/// the others. A question that a screen would ask counts as answered with yes. Raises RuntimeError, with
/// nothing saved, when the text is not UTF-8 or its header lacks a needed column.
///
/// The log of operations keeps each row that was saved, in one transaction with its sheet. A file that was
/// cut short is given again as a whole: rows that the log has for the open month are not saved twice.
void importSheets(RunContext& context, std::string_view csv,
                  const std::function<void(const ImportedSheet&)>& ended);

}  // namespace zelkor
