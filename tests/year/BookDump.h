#pragma once

#include <string>

#include "year/YearBooks.h"

namespace zelkor::test {

// The books as text that a person can follow; Null is "~". Rows are in the order in which they were
// written, ledgers and options in that of their keys.

/// The depreciation ledgers, one paragraph per card, and those by department.
std::string ledgersText(YearBooks& books);
std::string workloadsText(YearBooks& books);
/// The tables of a part of tables.txt, those of a month for that one: "run" is what the last run has
/// allocated and all runs, "cards" the versions and the sheets that made them, "staged" the entries handed
/// over to the ledger in that month, "staged before" what batch billing wrote into those of the months before
/// (a voucher of depreciation numbers and names them again, since the entries of all months bear one key),
/// "vouchers" the ledger's entries of the month.
std::string tablesText(YearBooks& books, const std::string& part, int month = 0);

}  // namespace zelkor::test
