#pragma once

#include <optional>
#include <string>
#include <vector>

#include "depreciation/Books.h"
#include "depreciation/CardTally.h"
#include "home/CheckMemory.h"
#include "home/SetBackups.h"
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
  bool comparedWithRun = true;   // the cards were, so that the next two are known
  bool changedSinceRun = false;  // a run would give other figures now
  long cardsNotComputable = 0;
  long cardsInService = 0;  // that the run takes

  long pendingEvents = 0;
  double pendingAmount = 0;
  long billedEvents = 0;
  std::optional<DateTime> lastBilled;

  long disposals = 0;

  std::optional<KeptCheck> check;       // the last one of the month
  std::optional<DateTime> backup;       // the time of the last one that was made while the month was open
  std::vector<RowsSince> sinceBackup;   // what has come to the books since
  std::optional<OpenPeriod> reopening;  // the closed month that a backup can bring back

  std::optional<JobNote> busyWith;  // another job
};

/// Reads them, the check excepted. The cards are those of the same books.
MonthFacts readMonthFacts(Books& books, const CardTally& cards);
/// Compares what the run has allocated with what the cards would come to now.
void compareWithRun(Books& books, const CardTally& cards, MonthFacts& facts);

}  // namespace zelkor
