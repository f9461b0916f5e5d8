#pragma once

#include <string>
#include <vector>

#include "depreciation/CardTally.h"

namespace zelkor {

/// A version of a card that came last.
struct RecentCard {
  std::string number;
  std::string assetName;
  std::string what;  // "录入", "变动" or "减少"
  DateTime day;
  double value = 0;
};

/// A voucher of the module in the ledger.
struct RecentVoucher {
  std::string number;  // "记-1"
  DateTime day;
  std::string digest;
  double amount = 0;
};

/// What was done last in the books, the newest first.
struct RecentWork {
  static constexpr std::size_t kMost = CardTally::kMostNewest;  // of each

  std::vector<RecentCard> cards;
  std::vector<RecentVoucher> vouchers;
};

/// Reads it; the versions' numbers are those of the newest ones, in any order.
RecentWork readRecentWork(Books& books, const std::vector<std::string>& newestVersions);

}  // namespace zelkor
