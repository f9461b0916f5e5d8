#pragma once

#include <string>
#include <string_view>

#include "audit/CheckRule.h"
#include "base/DateTime.h"
#include "store/engine/Database.h"

namespace zelkor {

/// The month that is checked, and how far its year has come.
struct CheckPeriod {
  int year = 0;
  int month = 0;
  int start = 1;             // the first month of the year in which the books were kept
  bool isFirstYear = false;  // the ledger of the cards holds what each had when the books began
  int closed = 0;            // the last closed month of the year
  int run = 0;               // the last month of the year, up to this one, whose depreciation was run
  bool isLastRun = false;

  /// Reads the rest for the month of that day.
  static CheckPeriod of(Database& data, const DateTime& date);

  bool admits(RuleTime time) const;
  /// The statement with the words in braces filled in: conditions and tables that several rules name, and the
  /// numbers of the period.
  std::string filled(std::string_view statement) const;
};

}  // namespace zelkor
