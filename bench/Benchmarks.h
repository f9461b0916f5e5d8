#pragma once

#include "changes/ChangeKind.h"
#include "LargeAccountSet.h"

namespace zelkor::bench {

/// The monthly run against its floor; prints one line and gives the run's microseconds per card.
double benchMonthlyRun(const LargeAccountSet& set);

/// The preview of a month behind one that was run, and the plan of 60 months; prints a line each.
void benchPlan(const LargeAccountSet& set);

/// The closing of a month against its floor; prints one line and gives the closing's microseconds per card.
double benchMonthEnd(const LargeAccountSet& set);

/// Stand-alone statements of known shapes, through the store and as bare prepared statements.
void benchStatements(const LargeAccountSet& set);

/// The total of a column over every row beside the engine's own; prints a line for each kind of numbers.
void benchTotals(const LargeAccountSet& set);

/// Saving a further card into the set, in files against its floor; prints one line and gives the microseconds
/// per card.
double benchSaveCard(const LargeAccountSet& set);

/// The import of a register of that many cards, or of as many as find a number, into the set against its
/// floor; prints one line.
void benchCardImport(const LargeAccountSet& set, long cards);

/// Saving change sheets of every kind, from the card's loading to the commit, in a small and a large set;
/// prints one line per kind.
void benchSaveSheets(const LargeAccountSet& small, const LargeAccountSet& large);

/// A transfer and a disposal hold the highest number in 16 bits: numbers that repeat keep it within them.
void keepNumbersSmall(const LargeAccountSet& set);

/// Saves one sheet of that kind.
void saveOneSheet(const LargeAccountSet& set, ChangeKind kind, const std::string& cardNum);

/// Opening batch billing over that many staged events, and loading the lines of all of them as one merged
/// set; prints one line and gives the seconds of both.
double benchBatchBilling(long events);

/// Every computed report beside one ideal query for the same figures; prints one line each.
void benchReports(const LargeAccountSet& set);

/// The ledger with a line for each card in every form of file, by zelkorctl as a whole; prints the CPU's
/// seconds and the memory of each.
void benchExports(const LargeAccountSet& set);

/// The check of a set whose month was run, in a file and, with a server at hand, there; prints one line each.
void benchBookCheck(const LargeAccountSet& set);

/// A backup of a set in files, and a restore over one of the same size, against the bare copy of both files;
/// prints one line each.
void benchBackup(const LargeAccountSet& set);

/// The monthly run of a set on a server against its floor there, with and without forcing to disk what is
/// committed; prints one line each.
void benchServerRun(const LargeAccountSet& set);

/// Stand-alone statements and those of a transaction on a server, through the store and as bare prepared
/// statements there; prints one line each.
void benchServerStatements(const LargeAccountSet& set);

/// The closing of a month on a server; prints one line and gives the microseconds per card.
double benchServerMonthEnd(const LargeAccountSet& set);

/// The jobs of a set on a server that is reached over a wire, whose round trips take 0, 1, 5 and 20 ms;
/// prints a line each.
void benchWire(const LargeAccountSet& set);

/// How long another desk waits for what it saves, while nothing else happens, a month is run and a month is
/// closed, all of them over a wire of 1 ms; prints the median, the 99th part of a hundred and the longest.
void benchDesk(const LargeAccountSet& set);

/// Runs every kind of job once on a server and prints which tables it went through as a whole, and its
/// dearest statements where the server counts them.
void benchServerScans(const LargeAccountSet& set);

/// The import of a Jet file of 50 tables and 100,000 rows by zelkorctl beside mdbtools' export piped into the
/// engine's own loader, both as processes, into a file and, with a server at hand, there; prints one line
/// each.
void benchImport();

}  // namespace zelkor::bench
