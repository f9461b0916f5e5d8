#include "audit/CheckPeriod.h"

#include "audit/RulePieces.h"
#include "base/Conversion.h"
#include "store/engine/Statement.h"
#include "store/settings/Parameters.h"

namespace zelkor {
namespace {

constexpr int kMonths = 12;

int numberIn(Database& data, const std::string& query) {
  const Recordset row = data.OpenRecordset(query);
  const Value value = row.Eof() ? Value() : row.Fields(std::size_t{0});
  return value.isNull() ? 0 : CInt(value);
}

int openMonth(Database& data) {
  const Value month(readParameter(data, "iLastPeriod").value_or(""));
  return IsNumeric(month) ? CInt(month) : 0;
}

/// The first day of a month, which may be the thirteenth.
std::string firstDay(int year, int month) {
  return month > kMonths ? sql(year + 1, "-1-1") : sql(year, "-", month, "-1");
}

}  // namespace

CheckPeriod CheckPeriod::of(Database& data, const DateTime& date) {
  CheckPeriod period{.year = date.year(), .month = date.month()};
  const auto start = parseDate(readParameter(data, "dStartDate").value_or(""));
  period.isFirstYear = start && start->year() == period.year;
  period.start = period.isFirstYear ? start->month() : 1;
  const int open = openMonth(data);
  period.closed = open >= 1 && open - 1 <= period.month && open > period.start ? open - 1 : 0;
  const std::string runs = "from fa_ZWVouchers where coutsign='折旧计提' and ioutyear";
  period.run = numberIn(
      data, sql("select max(ioutperiod) ", runs, "=", period.year, " and ioutperiod<=", period.month));
  period.isLastRun = numberIn(data, sql("select count(*) ", runs, "*12+ioutperiod>",
                                        period.year * kMonths + period.run)) == 0;
  return period;
}

bool CheckPeriod::admits(RuleTime time) const {
  switch (time) {
    case RuleTime::Always:
      return true;
    case RuleTime::Run:
      return run > 0;
    case RuleTime::LastRun:
      return run > 0 && isLastRun;
    case RuleTime::RunOfMonth:
      return run == month && isLastRun;
    case RuleTime::Closed:
      return closed > 0 && isFirstYear;
  }
  return false;
}

std::string CheckPeriod::filled(std::string_view statement) const {
  return withNumbers(withPieces(statement), {{"{year}", sql(year)},
                                             {"{month}", sql(month)},
                                             {"{start}", sql(start)},
                                             {"{run}", sql(run)},
                                             {"{closed}", sql(closed)},
                                             {"{first}", firstDay(year, run)},
                                             {"{next}", firstDay(year, run + 1)},
                                             {"{sumsBeforeRun}", monthSums(run - 1)},
                                             {"{sumOfMonth}", sumOfMonth(run - 1)},
                                             {"{addedToRun}", addedMonths(run)},
                                             {"{addedToClosed}", addedMonths(closed)}});
}

}  // namespace zelkor
