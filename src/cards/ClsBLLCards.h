#pragma once

#include "startup/BusinessClass.h"

namespace zelkor {

/// The cards that the card picker offers.
class ClsBLLCards : public BusinessClass {
 public:
  explicit ClsBLLCards(DbEngine& engine) : BusinessClass(engine, "ClsBLLCards.") {}

  /// Every version of every card with its depreciation method, each card's newest first; closed when the
  /// query fails.
  Recordset rstGetCards();
};

}  // namespace zelkor
