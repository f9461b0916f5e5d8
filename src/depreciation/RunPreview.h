#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Currency.h"
#include "base/DateTime.h"
#include "depreciation/DeprCards.h"
#include "depreciation/DeprGroups.h"
#include "depreciation/DeprTable.h"
#include "store/settings/OpenMonth.h"

namespace zelkor {

/// An amount of the month before and of the month.
struct TwoMonths {
  Currency before;
  Currency now;
};

/// What the run would leave for a card.
struct PreviewedCard {
  std::string number;
  DeprPlace place;
  Currency rate;
  Currency amount;
};

/// A line of the staged entries.
struct PreviewedEntry {
  std::int16_t line = 0;
  DeprPlace place;  // department and subject alone; empty in the line of the total
  double debit = 0;
  Currency credit;
};

/// A card whose amount, department, category or subject is not that of the month before.
struct PreviewedChange {
  std::string number;
  std::string assetName;
  DeprPlace place;
  TwoMonths amounts;
  std::string reason;
};

/// What the monthly run would book.
struct RunPreview {
  DateTime month;                     // its first day
  bool compared = false;              // with the month before; otherwise no amount of that is given
  std::vector<std::string> remarks;   // sentences for whoever reads the figures
  std::vector<std::string> problems;  // what would keep the run from its end; then there are no figures

  std::vector<PreviewedCard> cards;  // the allocation rows, in their order
  std::vector<DeprGroup<TwoMonths>> departments;
  std::vector<DeprGroup<TwoMonths>> subjects;
  std::vector<DeprGroup<TwoMonths>> categories;
  std::vector<PreviewedEntry> entries;
  std::vector<PreviewedChange> changes;
};

/// Computes what RunMonthDepr would book on the operating date, without writing and without a lock.
/// `open` is the month that is to be closed next, where the system file tells its year.
RunPreview previewMonthDepr(Database& data, DateTime date, const std::optional<OpenPeriod>& open = {});

/// The figures as tables: by department, subject and category, the staged entries, the cards that changed.
std::vector<DeprTable> previewTables(const RunPreview& preview);

}  // namespace zelkor
