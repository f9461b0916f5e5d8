#include "store/settings/OpenMonth.h"

#include <algorithm>

#include "base/Conversion.h"
#include "store/engine/Statement.h"
#include "store/settings/Parameters.h"

namespace zelkor {
namespace {

constexpr int kLastMonth = 12;

std::string nameOf(DateTime day) {
  return sql(day.year(), "年", day.month(), "月");
}

}  // namespace

std::optional<std::string> onlyAccount(Database& system) {
  Recordset accounts = system.OpenRecordset("select cAcc_id from za_account");
  if (accounts.Eof()) return std::nullopt;
  const std::string account = accounts.TextOrEmpty("cAcc_id");
  accounts.MoveNext();
  return accounts.Eof() ? std::optional(account) : std::nullopt;
}

std::optional<OpenPeriod> openPeriod(Database& data, Database& system, std::string_view account) {
  if (readParameter(data, "dStartDate").value_or("").empty()) return std::nullopt;
  const Value month(readParameter(data, "iLastPeriod").value_or(""));
  if (!IsNumeric(month)) return std::nullopt;
  const Recordset period =
      system.OpenRecordset(sql("select max(iyear) as lastYear from ZA_Period where cAcc_id='", account,
                               "' and iId=", std::min<int>(CInt(month), kLastMonth)));
  const Value year = period.Fields("lastYear");
  if (year.isNull()) return std::nullopt;
  return OpenPeriod{CInt(year), CInt(month)};
}

std::string remarkOnMonth(const OpenPeriod& open, DateTime day) {
  if (open.month < 1 || open.month > kLastMonth + 1) return {};
  const bool isNextYear = open.month > kLastMonth;
  const auto first = DateTime::fromParts(open.year + (isNextYear ? 1 : 0), isNextYear ? 1 : open.month, 1);
  const std::int64_t ahead = first ? DateDiff("m", *first, day) : 0;
  if (ahead == 0) return {};
  if (ahead < 0) return nameOf(day) + "已经结账";
  return sql("未结账的月份是", first->year() == day.year() ? sql(first->month(), "月") : nameOf(*first), "，",
             nameOf(day), "以前还有月份没有结账");
}

std::string whyBeforeBooks(Database& data, DateTime day) {
  const auto start = parseDate(readParameter(data, "dStartDate").value_or(""));
  if (!start || DateDiff("m", *start, day) >= 0) return {};
  return sql("操作日期在", nameOf(day), "，账套从", nameOf(*start), "开始：请另给操作日期。");
}

std::optional<DateTime> lastDayOfOpenMonth(Database& data, Database& system, std::string_view account) {
  const auto period = openPeriod(data, system, account);
  const auto first = period ? DateTime::fromParts(period->year, period->month, 1) : std::nullopt;
  return first ? std::optional(DateAdd("d", -1, DateAdd("m", 1, *first))) : std::nullopt;
}

}  // namespace zelkor
