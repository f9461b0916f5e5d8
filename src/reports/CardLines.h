#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "reports/ReportConditions.h"
#include "reports/ReportGrid.h"
#include "reports/ReportView.h"
#include "store/engine/Recordset.h"

// What the reports share that list one line per version of a card.
namespace zelkor {

/// Codes that a ledger is limited to; empty for all.
struct LedgerFilter {
  std::string department;
  std::string type;
};

/// The caption lines of a ledger, for which the dialog's page of the general ledger names the period.
void setLedgerCaptions(ReportView& view, const ReportConditions& conditions);

/// Query of the versions with their ledger rows: `columns`, then the rest by the filter. Transfers are left
/// out only when there is no filter.
std::string cardLinesQuery(std::string_view columns, const LedgerFilter& filter);

/// The kind of a version; 0 where the card has none.
int kindOf(const Recordset& card);

/// What a version of that kind is called in a ledger; empty for some.
std::string_view digestOf(int iOptType);

/// Columns 0 to 3 of a card's line: date, asset number, card number, voucher number.
void writeCardHead(ReportGrid& grid, std::size_t row, const Recordset& card);

}  // namespace zelkor
