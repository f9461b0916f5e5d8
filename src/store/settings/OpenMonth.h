#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "store/engine/Database.h"

namespace zelkor {

/// The number of the account in the system file; nothing when there is none, or more than one.
std::optional<std::string> onlyAccount(Database& system);

/// The month that is to be closed next: 1 to 12, and 13 once December has been closed.
struct OpenPeriod {
  int year = 0;
  int month = 0;
};

/// Nothing when the account set has not been set up, or the system file has no periods for it.
std::optional<OpenPeriod> openPeriod(Database& data, Database& system, std::string_view account);

/// What is to be said of that day's month where it is not the one that is to be closed next: a sentence
/// without its end, or nothing.
std::string remarkOnMonth(const OpenPeriod& open, DateTime day);

/// Why nothing can be told for that day's month, a sentence: the books begin later. Empty for all others, and
/// for an account set that has not been set up.
std::string whyBeforeBooks(Database& data, DateTime day);

/// The last day of the month that is to be closed next. Nothing when the account set has not been set up, and
/// after December has been closed: that there is another year only the suite knows.
std::optional<DateTime> lastDayOfOpenMonth(Database& data, Database& system, std::string_view account);

}  // namespace zelkor
