#include "store/settings/OpenMonth.h"

#include <algorithm>

#include "base/Conversion.h"
#include "store/engine/Statement.h"
#include "store/settings/Parameters.h"

namespace zelkor {

std::optional<std::string> onlyAccount(Database& system) {
  Recordset accounts = system.OpenRecordset("select cAcc_id from za_account");
  if (accounts.Eof()) return std::nullopt;
  const std::string account = accounts.TextOrEmpty("cAcc_id");
  accounts.MoveNext();
  return accounts.Eof() ? std::optional(account) : std::nullopt;
}

std::optional<OpenPeriod> openPeriod(Database& data, Database& system, std::string_view account) {
  constexpr int kLastMonth = 12;
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

std::optional<DateTime> lastDayOfOpenMonth(Database& data, Database& system, std::string_view account) {
  const auto period = openPeriod(data, system, account);
  const auto first = period ? DateTime::fromParts(period->year, period->month, 1) : std::nullopt;
  return first ? std::optional(DateAdd("d", -1, DateAdd("m", 1, *first))) : std::nullopt;
}

}  // namespace zelkor
