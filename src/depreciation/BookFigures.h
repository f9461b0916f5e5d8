#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "depreciation/Books.h"
#include "depreciation/CardTally.h"

namespace zelkor {

/// An amount of a department or category of the first level.
struct NamedAmount {
  std::string code;  // empty for what belongs to none
  std::string name;
  double amount = 0;
};

/// What the assets of the books come to on the day, by the versions in force and the ledger of depreciation.
struct BookFigures {
  static constexpr std::size_t kMonths = 12;

  long cardsInUse = 0;
  long cardsDisposed = 0;
  double value = 0;                                   // of the cards in use
  double accumulated = 0;                             // their depreciation
  double depreciation = 0;                            // of the month, of all cards that the run takes
  std::vector<NamedAmount> depreciationByDepartment;  // the largest first
  std::vector<NamedAmount> netValueByCategory;
  std::array<std::optional<double>, kMonths> depreciationByMonth;  // of the year, up to the day's month

  double netValue() const { return value - accumulated; }
};

/// Reads them. The accumulated depreciation of a card is what it was entered with and that of the year's
/// months since, or what its newest sheet has put in the place of both and that of the months since: the
/// ledger's own column begins anew with each month that is closed.
BookFigures readFigures(Books& books, const CardTally& cards);

}  // namespace zelkor
