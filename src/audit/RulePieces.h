#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

// What the statements of the rules are put together from.
namespace zelkor {

/// The statement with the conditions, tables and columns that its words in braces name.
std::string withPieces(std::string_view statement);

/// The statement with each of these words replaced by what follows it.
std::string withNumbers(std::string statement,
                        const std::vector<std::pair<std::string_view, std::string>>& words);

/// What months 1 to `month` of ledger row t have depreciated.
std::string addedMonths(int month);

/// The ledger's columns of months 1 to `last` summed, each behind a comma: d1, d2 ...
std::string monthSums(int last);

/// The one of those sums of row l that belongs to month s.ioutperiod.
std::string sumOfMonth(int last);

}  // namespace zelkor
