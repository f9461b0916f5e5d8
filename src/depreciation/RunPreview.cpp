#include "depreciation/RunPreview.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <utility>

#include "base/Conversion.h"
#include "base/DecimalSum.h"
#include "base/Text.h"
#include "depreciation/BooksMonth.h"
#include "depreciation/DeprChangeReason.h"

namespace zelkor {
namespace {

/// Computes the preview card by card.
class PreviewMaker {
 public:
  PreviewMaker(Database& data, DateTime date, const std::optional<OpenPeriod>& open)
      : data_(data), reasons_(data, firstOfMonth(date)) {
    preview_.month = firstOfMonth(date);
    preview_.remarks = openMonthRemarks(data, date, open);
    const auto reason = whyNotCompared(data_, preview_.month);
    if (reason) preview_.remarks.push_back(*reason);
    preview_.compared = !reason;
  }

  RunPreview make();

 private:
  void take(const DeprCard& card);
  TwoMonths amountsOf(const DeprCard& card, const DeprVersion* before, const DeprVersion* now) const;
  void addToGroups(const DeprPlace& place, const TwoMonths& amounts);
  void compare(const DeprCard& card, const DeprVersion* before, const DeprVersion* now,
               const TwoMonths& amounts);
  void stage();
  void forgetFigures();

  Database& data_;
  RunPreview preview_;
  DeprChangeReason reasons_;
  DeprGroups<TwoMonths> departments_;
  DeprGroups<TwoMonths> subjects_;
  DeprGroups<TwoMonths> categories_;
  long inService_ = 0;
  PassedOver passedOver_;
};

bool isSamePlace(const DeprPlace& one, const DeprPlace& other) {
  return one.department == other.department && one.category == other.category && one.subject == other.subject;
}

/// Where the month before went, as far as can be told.
DeprPlace placeBefore(const DeprCard& card, const DeprVersion* before) {
  if (before) return before->place;
  return card.versions.empty() ? DeprPlace() : card.versions.front().place;
}

/// The run allocates four decimals and keeps two in the ledger: of the month before the allocation counts,
/// where the version tells it.
TwoMonths PreviewMaker::amountsOf(const DeprCard& card, const DeprVersion* before,
                                  const DeprVersion* now) const {
  TwoMonths amounts;
  if (now) amounts.now = now->depr->amount;
  if (!preview_.compared || card.lastMonth == Currency()) return amounts;
  const bool isTold = before && before->depr && ledgerAmount(before->depr->amount) == card.lastMonth;
  amounts.before = isTold ? before->depr->amount : card.lastMonth;
  return amounts;
}

void PreviewMaker::addToGroups(const DeprPlace& place, const TwoMonths& amounts) {
  const auto add = [&amounts](TwoMonths& sums) {
    sums.before += amounts.before;
    sums.now += amounts.now;
  };
  add(departments_.of(place.department, place.departmentName));
  add(subjects_.of(place.subject, place.subjectName));
  add(categories_.of(place.category, place.categoryName));
}

void PreviewMaker::compare(const DeprCard& card, const DeprVersion* before, const DeprVersion* now,
                           const TwoMonths& amounts) {
  const bool sameAmount = ledgerAmount(amounts.now) == card.lastMonth;
  const bool samePlace =
      !now || !before || amounts.before == Currency() || isSamePlace(before->place, now->place);
  if (sameAmount && samePlace) return;
  preview_.changes.push_back({.number = card.number,
                              .assetName = card.versions.empty() ? "" : card.versions.front().assetName,
                              .place = now ? now->place : placeBefore(card, before),
                              .amounts = amounts,
                              .reason = reasons_.text(card, before, now != nullptr)});
}

void PreviewMaker::take(const DeprCard& card) {
  const bool inService = card.inServiceBefore(preview_.month) && !card.number.empty();
  if (inService) {
    ++inService_;
    if (auto problem = deprProblem(card, preview_.month)) {
      preview_.problems.push_back(std::move(*problem));
      return;
    }
    passedOver_.count(card);
  }
  const DeprVersion* now = inService ? card.current() : nullptr;
  const DeprVersion* before = preview_.compared ? reasons_.versionBefore(card) : nullptr;
  const TwoMonths amounts = amountsOf(card, before, now);
  if (amounts.before != Currency()) addToGroups(placeBefore(card, before), {amounts.before, {}});
  if (now) {
    addToGroups(now->place, {{}, amounts.now});
    preview_.cards.push_back({card.number, now->place, now->depr->rate, amounts.now});
  }
  if (preview_.compared) compare(card, before, now, amounts);
}

/// As the run stages the allocation rows.
void PreviewMaker::stage() {
  struct Side {
    DeprPlace place;
    DecimalSum sum;
  };
  std::map<std::pair<std::string, std::string>, Side> sides;
  for (const PreviewedCard& card : preview_.cards) {
    Side& side = sides[{asciiLower(card.place.department), asciiLower(card.place.subject)}];
    if (side.place.department.empty()) side.place = card.place;
    side.sum.add(card.amount.toDouble());
  }
  Currency total;
  std::int16_t line = 1;
  for (const auto& [key, side] : sides) {
    const double amount = side.sum.total();
    if (amount == 0) continue;
    preview_.entries.push_back({.line = line, .place = side.place, .debit = amount, .credit = {}});
    total = Currency::fromDouble(total.toDouble() + amount);
    line = CInt(static_cast<double>(line) + 1);
  }
  preview_.entries.push_back({.line = line, .place = {}, .debit = 0, .credit = total});
}

void PreviewMaker::forgetFigures() {
  preview_.cards.clear();
  preview_.changes.clear();
}

RunPreview PreviewMaker::make() {
  DeprCards cards(data_, preview_.month, DeprDetail::History);
  for (DeprCard card; cards.next(card);) take(card);
  if (preview_.problems.empty() && inService_ == 0)
    preview_.problems.emplace_back("没有固定资产卡片，不能进行折旧操作");
  if (!preview_.problems.empty()) {
    forgetFigures();
    return std::move(preview_);
  }
  std::ranges::move(passedOver_.remarks(), std::back_inserter(preview_.remarks));
  preview_.departments = std::move(departments_).inOrder();
  preview_.subjects = std::move(subjects_).inOrder();
  preview_.categories = std::move(categories_).inOrder();
  stage();
  return std::move(preview_);
}

}  // namespace

RunPreview previewMonthDepr(Database& data, DateTime date, const std::optional<OpenPeriod>& open) {
  return PreviewMaker(data, date, open).make();
}

}  // namespace zelkor
