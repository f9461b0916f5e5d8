#pragma once

#include <array>
#include <string>
#include <vector>

#include "audit/CheckPeriod.h"
#include "base/Currency.h"
#include "store/engine/Database.h"

namespace zelkor {

/// What a card or a voucher adds to an account in a month of the year; what it takes away is negative.
struct Movement {
  int month = 0;
  std::string card;   // of a voucher the card that it is for, where it says so
  std::string place;  // of a voucher its number
  Currency amount;
  std::string detail;
};

/// The register's movements of the period's year.
struct RegisterMovements {
  std::vector<Movement> value;        // additions, changes of the value, disposals
  std::vector<Movement> accumulated;  // all but the depreciation
};
RegisterMovements registerMovements(Database& data, const CheckPeriod& period);

/// The depreciation of each month that was run, as the ledger of the cards has it, and how far its rounded
/// amounts may lead away from the entries.
struct MonthsDepreciation {
  std::array<Currency, 12> amounts;
  Currency tolerance;
};
MonthsDepreciation depreciationOfMonths(Database& data, const CheckPeriod& period);

/// The vouchers that touch the subject or one below it, on its debit side positive.
std::vector<Movement> voucherMovements(Database& data, const CheckPeriod& period, const std::string& subject);

}  // namespace zelkor
