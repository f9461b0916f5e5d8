#pragma once

#include <string>

#include "store/engine/Database.h"
#include "store/settings/OpenMonth.h"

namespace zelkor {

/// What the system file calls an account set.
struct AccountTitle {
  std::string name;
  std::string unit;
};

/// Empty where the system file does not have the account.
AccountTitle accountTitle(Database& system, const std::string& account);

/// "2020年5月"
std::string monthText(int year, int month);
/// "未结账的是2020年5月", or that the year has been closed.
std::string openPeriodText(const OpenPeriod& open);

}  // namespace zelkor
