#pragma once

#include <optional>
#include <string>

#include "home/Books.h"
#include "home/CardTally.h"
#include "store/engine/JobLock.h"
#include "store/settings/OpenMonth.h"

namespace zelkor {

/// What the books say of the month of a day.
struct MonthFacts {
  DateTime date;
  bool initialised = false;
  std::string startDate;    // as the wizard wrote it: "2020-01-01"
  bool depreciates = true;  // the account set does at all
  std::optional<OpenPeriod> open;

  long departments = 0;  // of the lowest level
  long departmentsWithoutSubject = 0;
  long categories = 0;
  long statuses = 0;

  long cards = 0;
  long cardsInUse = 0;
  long cardsEntered = 0;  // in the month
  long cardsWithoutSubject = 0;
  std::optional<DateTime> lastCard;

  long sheets = 0;
  std::optional<DateTime> lastSheet;

  long workloadCards = 0;
  long workloadFilled = 0;

  bool depreciationIsDue = true;  // what the closing sets and the run takes back
  std::optional<int> lastRun;     // month of the newest run
  bool depreciationIsStaged = false;
  double depreciation = 0;  // of the month, as it was staged
  std::optional<DateTime> lastDepreciation;
  bool changedSinceRun = false;  // a run would give other figures now
  long cardsInService = 0;       // that the run takes
  long cardsNotComputable = 0;

  long pendingEvents = 0;
  double pendingAmount = 0;
  long billedEvents = 0;
  std::optional<DateTime> lastBilled;

  long disposals = 0;

  std::optional<JobNote> busyWith;  // another job
};

/// Reads them. The cards are those of the same books.
MonthFacts readMonthFacts(Books& books, const CardTally& cards);

}  // namespace zelkor
