#include "changes/RowsOfSheets.h"

#include <set>
#include <utility>

#include "base/Text.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {

RowsOfSheets::RowsOfSheets(TableRows& rows, CanGoWithOthers canGoWithOthers)
    : table_(rows, kSheetCaptions, kOptionalSheetCaptions), canGoWithOthers_(std::move(canGoWithOthers)) {}

/// The next row; nothing at the end. A line that is no row of the table is refused like any other bad row.
std::optional<ReadRow> RowsOfSheets::read() {
  using namespace sheet_column;
  if (ahead_) return std::exchange(ahead_, std::nullopt);
  try {
    const auto row = table_.next();
    if (!row) return std::nullopt;
    const auto& cells = row->cells;
    return ReadRow{
        row->line, SheetRow{cells[Kind], cells[CardNum], cells[After], cells[SiteAfter], cells[Reason]}, {}};
  } catch (const CsvRowError& error) {
    return ReadRow{error.line(), std::nullopt, error.what()};
  }
}

std::vector<ReadRow> RowsOfSheets::next() {
  std::vector<ReadRow> rows;
  std::set<std::string> cards;
  while (rows.size() < StatementGroup::kThings) {
    auto row = read();
    if (!row) break;
    const bool joins =
        row->row && canGoWithOthers_(*row->row) && cards.insert(asciiLower(row->row->cardNum)).second;
    if (!joins && !rows.empty()) {
      ahead_ = std::move(row);
      break;
    }
    rows.push_back(std::move(*row));
    if (!joins) break;
  }
  return rows;
}

}  // namespace zelkor
