#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "transfer/TransferSource.h"
#include "transfer/TransferTarget.h"

namespace zelkor {

/// What became of one table.
struct CarriedTable {
  std::string name;
  std::int64_t read = 0;
  std::int64_t stored = 0;
};

struct TransferReport {
  std::vector<CarriedTable> tables;
  std::vector<TransferProblem> problems;  // the source's and the target's among them
};

/// Carries all tables of the source into the target: rows in their order, counters, indexes; and the revision
/// of the books, since a table that the source does not have yet is not there in the target either. Does not
/// finish the target. Raises RuntimeError when the target cannot be written or the source cannot be read on.
TransferReport carryTables(TransferSource& source, TransferTarget& target);

/// Compares the rows of all tables of the original with the copy's, cell by cell and in order; gives the
/// differences, one for each table at most: the first, with the number of rows on both sides.
std::vector<TransferProblem> compareTables(TransferSource& original, TransferSource& copy);

}  // namespace zelkor
