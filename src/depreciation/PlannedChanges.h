#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "base/DateTime.h"
#include "depreciation/DeprCards.h"

namespace zelkor {

/// An asset that is to come into use.
struct PlannedAddition {
  std::string label;  // in the place of a card number
  DateTime date;
  std::string assetName;
  DeprBasis basis;
  DeprPlace place;
};

/// Additions and disposals that a plan reckons with and no table holds.
struct PlannedChanges {
  std::vector<PlannedAddition> additions;
  std::map<std::string, DateTime> disposals;  // by the card's number in small letters
};

/// Reads them from a CSV text (业务 增加 or 减少, 日期; for an addition the fields of a card as a register
/// has them, for a disposal 卡片编号). What an addition leaves blank its category gives. A row that cannot be
/// planned is named in `problems`, by line, column and reason. `month` is the first day of the plan.
///
/// Error 3421 for a text that is no such table.
PlannedChanges readPlannedChanges(Database& data, DateTime month, std::string_view csv,
                                  std::vector<std::string>& problems);

}  // namespace zelkor
