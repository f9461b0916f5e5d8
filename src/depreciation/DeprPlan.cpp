#include "depreciation/DeprPlan.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/RuntimeError.h"
#include "base/Text.h"
#include "depreciation/BooksMonth.h"
#include "depreciation/CardProjection.h"

namespace zelkor {
namespace {

/// Computes the plan card by card.
class PlanMaker {
 public:
  PlanMaker(Database& data, DateTime date, std::size_t months, const PlannedChanges& changes,
            const std::optional<OpenPeriod>& open)
      : data_(data), changes_(changes) {
    plan_.month = firstOfMonth(date);
    plan_.months = months;
    plan_.totals.resize(months);
    plan_.remarks = openMonthRemarks(data, date, open);
  }

  DeprPlan make();

 private:
  /// Months of the plan, counted from 0.
  struct Span {
    std::size_t first;
    std::size_t end;
  };

  void take(const DeprCard& card);
  void takeAddition(const PlannedAddition& addition);
  void add(PlannedCard card, CardProjection projection, Span span, bool isBooked);
  std::size_t monthAfter(DateTime day) const;
  void addToTotals(const DeprPlace& place, const Currency* amounts);

  Database& data_;
  const PlannedChanges& changes_;
  DeprPlan plan_;
  DeprGroups<MonthlyAmounts> departments_;
  DeprGroups<MonthlyAmounts> categories_;
  DeprGroups<MonthlyAmounts> subjects_;
  PassedOver passedOver_;
};

/// The month behind the day's: an asset depreciates from there on, or no longer.
std::size_t PlanMaker::monthAfter(DateTime day) const {
  const std::int64_t place = DateDiff("m", plan_.month, day) + 1;
  return static_cast<std::size_t>(
      std::clamp<std::int64_t>(place, 0, static_cast<std::int64_t>(plan_.months)));
}

void PlanMaker::add(PlannedCard card, CardProjection projection, Span span, bool isBooked) {
  const std::size_t begin = plan_.amounts.size();
  plan_.amounts.resize(begin + plan_.months);
  for (std::size_t month = span.first; month < span.end; ++month) {
    plan_.amounts[begin + month] = month == 0 && isBooked ? projection.booked() : projection.projected();
  }
  addToTotals(card.place, plan_.amounts.data() + begin);
  plan_.cards.push_back(std::move(card));
}

void PlanMaker::addToTotals(const DeprPlace& place, const Currency* amounts) {
  const MonthlyAmounts none(plan_.months);
  for (MonthlyAmounts* sums : {&departments_.of(place.department, place.departmentName, none),
                               &categories_.of(place.category, place.categoryName, none),
                               &subjects_.of(place.subject, place.subjectName, none), &plan_.totals}) {
    for (std::size_t month = 0; month < plan_.months; ++month) (*sums)[month] += amounts[month];
  }
}

void PlanMaker::take(const DeprCard& card) {
  const auto use = card.firstUse();
  if (card.number.empty() || !use) return;
  Span span{monthAfter(*use), plan_.months};
  if (span.first == span.end) return;
  passedOver_.count(card);
  if (!card.current()) return;
  if (auto problem = deprProblem(card, plan_.month)) {
    plan_.problems.push_back(std::move(*problem));
    return;
  }
  const auto disposal = changes_.disposals.find(asciiLower(card.number));
  if (disposal != changes_.disposals.end()) span.end = monthAfter(disposal->second);
  const DeprVersion& version = *card.current();
  try {
    add({card.number, version.assetName, version.place},
        CardProjection(version.basis, *version.depr, card.opening), span, true);
  } catch (const RuntimeError& error) {
    plan_.problems.push_back("卡片“" + card.number + "”的数据不能计划：" + error.what());
  }
}

void PlanMaker::takeAddition(const PlannedAddition& addition) {
  try {
    add({addition.label, addition.assetName, addition.place},
        CardProjection(addition.basis, monthlyDepr(addition.basis), 0),
        {monthAfter(addition.date), plan_.months}, false);
  } catch (const RuntimeError& error) {
    plan_.problems.push_back(addition.label + "的增加不能计算：" + error.what());
  }
}

DeprPlan PlanMaker::make() {
  DeprCards cards(data_, plan_.month, DeprDetail::Figures);
  for (DeprCard card; cards.next(card);) take(card);
  for (const PlannedAddition& addition : changes_.additions) takeAddition(addition);
  if (plan_.problems.empty() && plan_.cards.empty())
    plan_.problems.emplace_back("没有固定资产卡片，没有折旧可计划");
  if (!plan_.problems.empty()) {
    plan_.cards.clear();
    plan_.amounts.clear();
    plan_.totals.clear();
    return std::move(plan_);
  }
  plan_.remarks.push_back(monthName(plan_.month) +
                          "与当月计提相同，以后各月是推算：已计提月份逐月增加，到净残值为止");
  std::ranges::move(passedOver_.remarks(), std::back_inserter(plan_.remarks));
  plan_.departments = std::move(departments_).inOrder();
  plan_.categories = std::move(categories_).inOrder();
  plan_.subjects = std::move(subjects_).inOrder();
  return std::move(plan_);
}

}  // namespace

DeprPlan planDepr(Database& data, DateTime date, std::size_t months, const PlannedChanges& changes,
                  const std::optional<OpenPeriod>& open) {
  return PlanMaker(data, date, months, changes, open).make();
}

}  // namespace zelkor
