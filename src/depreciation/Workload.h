#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "store/engine/Database.h"

namespace zelkor {

inline constexpr double kMostWork = 1e12;  // in one month
inline constexpr int kWorkDecimals = 4;

/// The month's work that a text gives: digits, with a point where there are decimals. Nothing for a
/// text that is no such number up to kMostWork, or has more than kWorkDecimals of them.
std::optional<double> workOf(std::string_view text);

/// The work of a card in one month, for cards that depreciate by workload.
struct CardWorkload {
  std::string cardNum;
  std::string assetName;
  std::string unit;
  double total = 0;   // over the asset's whole life
  double before = 0;  // done before the month
  double work = 0;    // in the month
};

/// The newest version of each card whose method is named "工作量法", by card number. What was done before is
/// the accumulated work of the year's last month with any; a card keeps none of what was done before its
/// entry.
std::vector<CardWorkload> workloadCards(Database& data, int month);

/// Writes a card's work of the month and the accumulated work at its end.
void storeWorkload(Database& data, std::string_view cardNum, int month, double work, double accumulated);

}  // namespace zelkor
