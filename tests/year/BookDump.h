#pragma once

#include <string>

#include "year/YearBooks.h"

namespace zelkor::test {

// The books as text that a person can follow; Null is "~". Rows stand in the order in which they were
// written, ledgers and options in that of their keys.

/// The depreciation ledgers, one paragraph per card, and those by department.
std::string ledgersText(YearBooks& books);
std::string workloadsText(YearBooks& books);
/// What the last run has allocated, and all runs.
std::string runText(YearBooks& books);
/// The card versions and the sheets that made them.
std::string cardsText(YearBooks& books);
std::string totalsText(YearBooks& books);
std::string optionsText(YearBooks& books);
/// The entries handed over to the ledger in that month.
std::string stagedText(YearBooks& books, int month);
/// Those of the months before, with what batch billing writes: a voucher of depreciation numbers and names
/// them anew, since the entries of all months bear one key.
std::string earlierStagedText(YearBooks& books, int month);
/// The ledger's entries of that month.
std::string vouchersText(YearBooks& books, int month);

}  // namespace zelkor::test
