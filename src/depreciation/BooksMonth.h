#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/DateTime.h"
#include "store/settings/OpenMonth.h"

namespace zelkor {

/// The first day of the day's month.
DateTime firstOfMonth(DateTime day);
/// "2020年5月".
std::string monthName(DateTime month);

/// What is to be said where the month of the operating date is not the one that is to be closed next: a
/// sentence, or none. Without `open` that is taken to be in the year of the date.
std::vector<std::string> openMonthRemarks(Database& data, DateTime date,
                                          const std::optional<OpenPeriod>& open);

/// Why nothing can be compared with the month before, a sentence; nothing where a run has booked that month.
/// `month` is the first day of the month.
std::optional<std::string> whyNotCompared(Database& data, DateTime month);

}  // namespace zelkor
