#include "home/DeprPages.h"

#include <utility>

#include "base/Format.h"
#include "depreciation/DeprPlan.h"
#include "depreciation/RunPreview.h"
#include "store/accountset/ReadingDatabase.h"

namespace zelkor {
namespace {

/// The data, opened for one page, and the month that is to be closed next.
struct OpenPages {
  explicit OpenPages(const BooksPlace& place) : data(openDatabaseForReading(place.dataFile)) {
    Database system = openDatabaseForReading(place.systemFile);
    open = openPeriod(data, system, place.account);
  }

  Database data;
  std::optional<OpenPeriod> open;
};

}  // namespace

DeprPage previewPage(const BooksPlace& place) {
  OpenPages books(place);
  RunPreview preview = previewMonthDepr(books.data, place.date, books.open);
  DeprPage page{std::move(preview.remarks), std::move(preview.problems), {}, {}};
  if (page.problems.empty()) page.tables = previewTables(preview);
  return page;
}

DeprPage planPage(const BooksPlace& place, std::size_t months) {
  OpenPages books(place);
  DeprPlan plan = planDepr(books.data, place.date, months, {}, books.open);
  DeprPage page{std::move(plan.remarks), std::move(plan.problems), {}, {}};
  if (!page.problems.empty()) return page;
  page.tables = planTables(plan);
  for (std::size_t month = 0; month < plan.totals.size(); ++month)
    page.months.push_back({Format(DateAdd("m", static_cast<std::int64_t>(month), plan.month), "yyyy.mm"),
                           plan.totals[month].toDouble()});
  return page;
}

}  // namespace zelkor
