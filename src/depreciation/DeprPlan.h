#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/Currency.h"
#include "base/DateTime.h"
#include "depreciation/DeprCards.h"
#include "depreciation/DeprGroups.h"
#include "depreciation/DeprTable.h"
#include "depreciation/PlannedChanges.h"
#include "store/settings/OpenMonth.h"

namespace zelkor {

using MonthlyAmounts = std::vector<Currency>;  // from the plan's first month on

struct PlannedCard {
  std::string number;  // of an addition that is only planned the line of its file
  std::string assetName;
  DeprPlace place;
};

/// What is still to be depreciated, month by month.
struct DeprPlan {
  DateTime month;                     // the first day of the first month
  std::size_t months = 0;             // how many
  std::vector<std::string> remarks;   // sentences for whoever reads the figures
  std::vector<std::string> problems;  // cards that cannot be computed; then there are no figures

  std::vector<PlannedCard> cards;
  MonthlyAmounts amounts;  // of the cards, one after the other
  std::vector<DeprGroup<MonthlyAmounts>> departments;
  std::vector<DeprGroup<MonthlyAmounts>> categories;
  std::vector<DeprGroup<MonthlyAmounts>> subjects;
  MonthlyAmounts totals;

  /// Months count from 0.
  Currency amountOf(std::size_t card, std::size_t place) const { return amounts[card * months + place]; }
};

/// Computes the depreciation of the operating date's month, as the run books it, and of the months behind it:
/// as the formulas give it when months go on being used up, until the residual value is reached. It only
/// reads. `open` is the month that is to be closed next, where the system file tells its year.
DeprPlan planDepr(Database& data, DateTime date, std::size_t months, const PlannedChanges& changes = {},
                  const std::optional<OpenPeriod>& open = {});

/// The totals by department, category and subject, a column for each month.
std::vector<DeprTable> planTables(const DeprPlan& plan);
/// One of them; `of` is 部门, 类别 or 科目.
DeprTable planTable(const DeprPlan& plan, const std::string& of,
                    const std::vector<DeprGroup<MonthlyAmounts>>& groups);
/// The same card by card.
DeprTable planCardTable(const DeprPlan& plan);

}  // namespace zelkor
