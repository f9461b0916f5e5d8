#include "depreciation/BooksMonth.h"

#include "base/Conversion.h"
#include "store/engine/Statement.h"
#include "store/settings/Parameters.h"

namespace zelkor {
namespace {

/// The month in which the books were opened, where the row of it can be read.
std::optional<DateTime> openingMonth(Database& data) {
  const auto day = parseDate(readParameter(data, "dStartDate").value_or(""));
  return day ? std::optional(firstOfMonth(*day)) : std::nullopt;
}

bool wasRun(Database& data, int month) {
  if (!data.OpenRecordset(sql("select top 1 sNum from fa_DeprVoucherMain where iMaxPeriod=", month)).Eof())
    return true;
  return !data.OpenRecordset(
                  sql("select top 1 sCardNum from fa_DeprTransactions where dblDepr", month, "<>0"))
              .Eof();
}

}  // namespace

DateTime firstOfMonth(DateTime day) {
  return *DateTime::fromParts(day.year(), day.month(), 1);
}

std::string monthName(DateTime month) {
  return sql(month.year(), "年", month.month(), "月");
}

std::vector<std::string> openMonthRemarks(Database& data, DateTime date,
                                          const std::optional<OpenPeriod>& open) {
  const double month = Val(readParameter(data, "iLastPeriod").value_or(""));
  const bool isOpen = !readParameter(data, "dStartDate").value_or("").empty() && month >= 1 && month <= 13;
  if (!isOpen) return {};
  const std::string remark = remarkOnMonth(open.value_or(OpenPeriod{date.year(), CInt(month)}), date);
  return remark.empty() ? std::vector<std::string>() : std::vector{remark};
}

std::optional<std::string> whyNotCompared(Database& data, DateTime month) {
  if (month.month() == 1) return "一月不与上年十二月比较：折旧台账从一月记起";
  const DateTime before = DateAdd("m", -1, month);
  if (wasRun(data, before.month())) return std::nullopt;
  if (openingMonth(data) == month) return monthName(month) + "是账套的第一个月，没有上月可比";
  return monthName(before) + "没有计提，不能比较";
}

}  // namespace zelkor
