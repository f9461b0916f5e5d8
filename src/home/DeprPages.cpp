#include "home/DeprPages.h"

#include <sstream>
#include <utility>

#include "base/Format.h"
#include "depreciation/DeprPlan.h"
#include "depreciation/RunPreview.h"
#include "store/accountset/DbEngine.h"

namespace zelkor {

DeprPage previewPage(const BooksPlace& place) {
  std::ostringstream unsaid;
  DbEngine engine(unsaid);
  Database data = engine.OpenDatabase(place.dataFile);
  RunPreview preview = previewMonthDepr(data, place.date);
  DeprPage page{std::move(preview.remarks), std::move(preview.problems), {}, {}};
  if (page.problems.empty()) page.tables = previewTables(preview);
  return page;
}

DeprPage planPage(const BooksPlace& place, std::size_t months) {
  std::ostringstream unsaid;
  DbEngine engine(unsaid);
  Database data = engine.OpenDatabase(place.dataFile);
  DeprPlan plan = planDepr(data, place.date, months);
  DeprPage page{std::move(plan.remarks), std::move(plan.problems), {}, {}};
  if (!page.problems.empty()) return page;
  page.tables = planTables(plan);
  for (std::size_t month = 0; month < plan.totals.size(); ++month)
    page.months.push_back({Format(DateAdd("m", static_cast<std::int64_t>(month), plan.month), "yyyy.mm"),
                           plan.totals[month].toDouble()});
  return page;
}

}  // namespace zelkor
